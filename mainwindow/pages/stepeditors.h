#pragma once

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
    /// `page` holds the widgets of the fingers.
    StepEditors(const QWidget* page, QLineEdit* delay, QComboBox* mode, QLabel* unitName);

    /// Of the mode that is chosen.
    const MotionUnit& unit() const;
    /// Sets unit and ranges to those of the mode that is chosen.
    void followMode();

    /// Shows a step; what it lacks is shown empty.
    void show(const SequenceDataItem& step);
    void clear();
    /// Only the read-out of a finger's slider.
    void showValue(std::uint8_t finger, int value);
    /// Slider and read-out.
    void setValue(std::uint8_t finger, int value);
    void setEnabled(bool enabled);

    /// Store what has been typed, brought into range, and show it as it is stored.
    void takeDelay(SequenceDataItem& step);
    void takeSpeed(std::uint8_t finger, SequenceDataItem& step);

    QSlider* slider(std::uint8_t finger) const { return m_sliders[finger]; }
    QLineEdit* speed(std::uint8_t finger) const { return m_speeds[finger]; }
    /// The finger whose speed is being typed, if any.
    std::optional<std::uint8_t> typedSpeed() const;

private:
    QLineEdit* m_delay;
    QComboBox* m_mode;
    QLabel* m_unitName;
    PerFinger<QSlider*> m_sliders;
    PerFinger<QLineEdit*> m_positions;
    PerFinger<QLineEdit*> m_speeds;
};

} // namespace vanto
