#include "stepinput.h"

#include "numbertext.h"
#include "sequenceeditor.h"
#include "statusreporter.h"
#include "stepeditors.h"
#include "steptable.h"

#include <QLineEdit>
#include <QSlider>

#include <algorithm>
#include <optional>
#include <utility>

namespace vanto
{

StepInput::StepInput(SequenceEditor* sequence, StepTable* table, StepEditors* editors,
                     Request request)
    : m_sequence(sequence), m_table(table), m_editors(editors), m_request(std::move(request))
{
}

void StepInput::show(int row)
{
    m_editors->cancelDrags(); // the release would store the target in another step
    m_shownStep = m_table->idOf(row);
    if (m_shownStep == StepTable::NoStep)
        m_editors->clear();
    else
        m_editors->show(m_sequence->data().sequences[row]);
}

void StepInput::storeDelay()
{
    m_sequence->edit(m_shownStep, tr("delay of %1"),
                     [this](SequenceDataItem& step) { m_editors->storeDelay(step); });
}

void StepInput::storeSpeed(std::uint8_t finger)
{
    m_sequence->edit(m_shownStep, tr("speed of %1"), [this, finger](SequenceDataItem& step) {
        m_editors->storeSpeed(finger, step);
    });
}

void StepInput::storeTypedSpeed()
{
    if (const auto finger = m_editors->fingerOfEditedSpeed())
        storeSpeed(*finger);
}

void StepInput::storeTyped()
{
    storeTypedSpeed();
    if (m_editors->isDelayEdited())
        storeDelay();
}

void StepInput::previewTarget(std::uint8_t finger, int value)
{
    m_editors->showPreview(finger, value);
    emit sig_previewChanged();
}

void StepInput::restore(std::uint8_t finger)
{
    if (const int row = m_table->rowOf(m_shownStep); row >= 0)
        m_editors->restore(finger, m_sequence->data().sequences[row]);
    emit sig_previewChanged();
}

void StepInput::restoreAbandoned(std::uint8_t finger)
{
    if (m_editors->isAbandoned(finger))
        restore(finger);
}

void StepInput::sendTarget(std::uint8_t finger)
{
    const QSlider* slider = m_editors->slider(finger);
    const Release release{finger, &m_editors->unit(), slider->sliderPosition(),
                          NumberText::toByte(m_editors->speed(finger)->text()), m_shownStep};
    m_request(
        [this, slider, release] { return slider->isEnabled() && m_shownStep == release.step; },
        [this, release](const HandTarget& target) { moveAndStore(target, release); });
}

void StepInput::sendTypedTarget(std::uint8_t finger)
{
    QSlider* slider = m_editors->slider(finger);
    if (!slider->isEnabled())
        return;
    const auto typed = m_editors->typedValue(finger);
    if (!typed) {
        restore(finger);
        return;
    }
    const int value = std::clamp(*typed, slider->minimum(), slider->maximum());
    if (value != *typed) {
        slider->setValue(value); // Return on the slider sends what is shown
        previewTarget(finger, value);
        m_editors->position(finger)->setModified(true); // restored when the user leaves it
        return;
    }
    slider->setValue(value);
    sendTarget(finger);
}

void StepInput::moveAndStore(const HandTarget& target, const Release& release)
{
    bool isMoved = false;
    std::optional<int> reached;
    {
        HandCall call(target, m_reporter->plainReport());
        isMoved = release.unit->move(call, release.finger, release.value, release.speed);
        if (isMoved)
            reached = release.unit->readTarget(call, release.finger);
    }
    if (reached)
        m_sequence->edit(release.step, tr("target of %1"), [&](SequenceDataItem& step) {
            SequenceEditor::store(step.position, release.finger, *reached);
        });
    // Meanwhile the user may have selected another row, or be dragging the slider again.
    if (m_shownStep != release.step || m_editors->slider(release.finger)->isSliderDown())
        return;
    if (reached) {
        m_editors->setValue(release.finger, *reached);
        emit sig_previewChanged();
    } else if (isMoved) {
        m_editors->slider(release.finger)->setValue(release.value);
        previewTarget(release.finger, release.value);
    } else {
        restore(release.finger);
    }
}

} // namespace vanto
