#include "stepeditors.h"

#include "fingerwidgets.h"
#include "sequenceeditor.h"
#include "unitdisplay.h"
#include "vantoprotocol.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vanto
{

namespace
{
constexpr int MaxDelayMs = 65535;
constexpr int MinSpeed = 1;
constexpr int MaxSpeed = 255;
constexpr double OutOfRange = 1e6; ///< beyond every slider
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
        m_speeds[f]->clear();
        restore(static_cast<std::uint8_t>(f), {});
    }
}

void StepEditors::showPreview(std::uint8_t finger, int value)
{
    m_positions[finger]->setText(UnitDisplay::text(unit(), value));
    markPreview(finger, true);
}

void StepEditors::setValue(std::uint8_t finger, int value)
{
    m_sliders[finger]->setValue(value);
    m_positions[finger]->setText(UnitDisplay::text(unit(), value));
    markPreview(finger, false);
}

void StepEditors::restore(std::uint8_t finger, const SequenceDataItem& step)
{
    if (finger < step.position.size()) {
        setValue(finger, step.position[finger]);
        return;
    }
    m_positions[finger]->clear();
    m_sliders[finger]->setValue(0);
    markPreview(finger, false);
}

void StepEditors::markPreview(std::uint8_t finger, bool isPreview)
{
    if (std::exchange(m_isPreview[finger], isPreview) == isPreview)
        return;
    QLineEdit* field = m_positions[finger];
    QFont font = field->font();
    font.setItalic(isPreview);
    field->setFont(font);
    field->setToolTip(isPreview
                          ? QCoreApplication::translate(
                                "StepEditors", "Not stored. Press Return to send and store it.")
                          : QString());
}

std::optional<int> StepEditors::typedValue(std::uint8_t finger) const
{
    QString text = m_positions[finger]->text().trimmed();
    bool isNumber = false;
    double ticks = 0;
    if (unit().isPosition())
        ticks = static_cast<double>(text.toLongLong(&isNumber)); // a comma would mean thousands
    else
        ticks = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber) *
                HundredthsPerDegree;
    if (!isNumber || !std::isfinite(ticks))
        return std::nullopt;
    return static_cast<int>(std::lround(std::clamp(ticks, -OutOfRange, OutOfRange)));
}

bool StepEditors::isAbandoned(std::uint8_t finger) const
{
    const QLineEdit* field = m_positions[finger];
    const QString ofSlider = UnitDisplay::text(unit(), m_sliders[finger]->sliderPosition());
    return !field->hasFocus() && !field->isReadOnly() &&
           (field->isModified() || (!field->text().isEmpty() && field->text() != ofSlider));
}

bool StepEditors::hasPreview() const
{
    return std::any_of(m_isPreview.begin(), m_isPreview.end(), [](bool is) { return is; });
}

bool StepEditors::isDelayEdited() const
{
    return m_delay->hasFocus() && m_delay->isModified();
}

void StepEditors::setEnabled(bool enabled)
{
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_speeds[f]->setReadOnly(!enabled);
        m_positions[f]->setReadOnly(!enabled);
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
