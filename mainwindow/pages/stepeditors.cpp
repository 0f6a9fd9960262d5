#include "stepeditors.h"

#include "fingerwidgets.h"
#include "sequenceeditor.h"
#include "unitdisplay.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int MaxDelayMs = 65535;
constexpr int MinSpeed = 1;
constexpr int MaxSpeed = 255;
} // namespace

StepEditors::StepEditors(const QWidget* page, QLineEdit* delay, QComboBox* mode, QLabel* unitName)
    : m_delay(delay),
      m_mode(mode),
      m_unitName(unitName),
      m_sliders(fingerWidgets<QSlider>(page, "verticalSlider_SeqPos")),
      m_positions(fingerWidgets<QLineEdit>(page, "lineEdit_SeqPos")),
      m_speeds(fingerWidgets<QLineEdit>(page, "lineEdit_SeqSpeed"))
{
    QList<QWidget*> order(m_sliders.begin(), m_sliders.end());
    order += QList<QWidget*>(m_positions.begin(), m_positions.end());
    order += QList<QWidget*>(m_speeds.begin(), m_speeds.end());
    order += {m_delay, m_mode};
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
    applyMode();
}

const MotionUnit& StepEditors::unit() const
{
    return UnitDisplay::selectedUnit(m_mode);
}

void StepEditors::applyMode()
{
    UnitDisplay::apply(unit(), m_unitName, m_sliders);
}

void StepEditors::show(const SequenceDataItem& step)
{
    clear();
    m_delay->setText(QString::number(step.delay));
    for (std::uint8_t f = 0; f < FingerCount; ++f) {
        if (f < step.speed.size())
            m_speeds[f]->setText(QString::number(step.speed[f]));
        if (f < step.position.size())
            setValue(f, step.position[f]);
    }
}

void StepEditors::clear()
{
    m_delay->clear();
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_positions[f]->clear();
        m_speeds[f]->clear();
        m_sliders[f]->setValue(0);
    }
}

void StepEditors::showValue(std::uint8_t finger, int value)
{
    m_positions[finger]->setText(UnitDisplay::text(unit(), value));
}

void StepEditors::setValue(std::uint8_t finger, int value)
{
    m_sliders[finger]->setValue(value);
    showValue(finger, value);
}

void StepEditors::setEnabled(bool enabled)
{
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_speeds[f]->setReadOnly(!enabled);
        m_sliders[f]->setEnabled(enabled);
    }
    m_delay->setEnabled(enabled);
}

void StepEditors::storeDelay(SequenceDataItem& step)
{
    const int typed = m_delay->text().toInt();
    step.delay = std::clamp(typed, 0, MaxDelayMs);
    if (step.delay != typed)
        m_delay->setText(QString::number(step.delay));
}

void StepEditors::storeSpeed(std::uint8_t finger, SequenceDataItem& step)
{
    QLineEdit* field = m_speeds[finger];
    if (finger >= step.speed.size() && field->text().isEmpty())
        return; // no speed is stored, and none has been typed
    const int speed = std::clamp(field->text().toInt(), MinSpeed, MaxSpeed);
    SequenceEditor::store(step.speed, finger, speed);
    field->setText(finger < step.speed.size() ? QString::number(speed) : QString());
}

std::optional<std::uint8_t> StepEditors::fingerOfEditedSpeed() const
{
    const auto field = std::find_if(m_speeds.begin(), m_speeds.end(), [](const QLineEdit* speed) {
        return speed->hasFocus() && speed->isModified();
    });
    if (field == m_speeds.end())
        return std::nullopt;
    return static_cast<std::uint8_t>(field - m_speeds.begin());
}

} // namespace vanto
