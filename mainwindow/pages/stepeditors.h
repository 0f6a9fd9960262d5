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
    /// Updates only the read-out of a finger's slider, and marks it as a value that is not sent.
    void showPreview(std::uint8_t finger, int value);
    /// Updates slider and read-out.
    void setValue(std::uint8_t finger, int value);
    /// The same with the value of the step; empty if there is none.
    void restore(std::uint8_t finger, const SequenceDataItem& step);
    void setEnabled(bool enabled);
    /// Forgets sliders that are held.
    void cancelDrags() { vanto::cancelDrags(m_sliders); }

    /// Store the typed value, clamped to its range, and show the stored one.
    void storeDelay(SequenceDataItem& step);
    void storeSpeed(std::uint8_t finger, SequenceDataItem& step);

    /// The number in a read-out, or nothing if it is none. It may be out of range.
    std::optional<int> typedValue(std::uint8_t finger) const;
    /// Whether a read-out contains something that was typed, and the user has left the field.
    bool isAbandoned(std::uint8_t finger) const;
    /// Whether a read-out or a slider shows a value that is not sent.
    bool hasPreview() const;
    /// Whether the user is typing a delay.
    bool isDelayEdited() const;

    QSlider* slider(std::uint8_t finger) const { return m_sliders[finger]; }
    QLineEdit* position(std::uint8_t finger) const { return m_positions[finger]; }
    QLineEdit* speed(std::uint8_t finger) const { return m_speeds[finger]; }
    /// The finger whose speed the user is typing, if any.
    std::optional<std::uint8_t> fingerOfEditedSpeed() const;

private:
    void markPreview(std::uint8_t finger, bool isPreview);

    QLineEdit* m_delay;
    QComboBox* m_mode;
    QLabel* m_unitName;
    PerFinger<QSlider*> m_sliders;
    PerFinger<QLineEdit*> m_positions;
    PerFinger<QLineEdit*> m_speeds;
    PerFinger<bool> m_isPreview{};
};

} // namespace vanto
