#pragma once

#include "fingerwidgets.h"
#include "motionunit.h"
#include "sequencedata.h"

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QSlider;
class QWidget;

namespace vanto
{

/// The fields and sliders that show one step of the sequence.
class StepEditors
{
public:
    /// `page` contains the widgets of the fingers.
    StepEditors(const QWidget* page, QLineEdit* delay, QComboBox* mode, QLabel* unitName);

    /// The unit of the selected mode.
    const MotionUnit& unit() const;
    /// Sets unit and ranges to those of the selected mode.
    void applyMode();

    /// Shows a step; missing values are left empty.
    void show(const SequenceDataItem& step);
    void clear();
    /// Updates only the read-out of a finger's slider.
    void showValue(std::uint8_t finger, int value);
    /// Updates slider and read-out.
    void setValue(std::uint8_t finger, int value);
    void setEnabled(bool enabled);
    /// Forgets sliders that are held.
    void cancelDrags() { vanto::cancelDrags(m_sliders); }

    /// Store the typed value, clamped to its range, and show the stored one.
    void storeDelay(SequenceDataItem& step);
    void storeSpeed(std::uint8_t finger, SequenceDataItem& step);

    QSlider* slider(std::uint8_t finger) const { return m_sliders[finger]; }
    QLineEdit* speed(std::uint8_t finger) const { return m_speeds[finger]; }
    /// The finger whose speed the user is typing, if any.
    std::optional<std::uint8_t> fingerOfEditedSpeed() const;

private:
    QLineEdit* m_delay;
    QComboBox* m_mode;
    QLabel* m_unitName;
    PerFinger<QSlider*> m_sliders;
    PerFinger<QLineEdit*> m_positions;
    PerFinger<QLineEdit*> m_speeds;
};

} // namespace vanto
