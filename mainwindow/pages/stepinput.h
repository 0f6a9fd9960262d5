#pragma once

#include "requestqueue.h"

#include <QObject>

#include <cstdint>
#include <functional>

namespace vanto
{

class MotionUnit;
class SequenceEditor;
class StatusReporter;
class StepEditors;
class StepTable;

/// What the user enters for one step: stores delay and speeds, sends targets to the hand and stores
/// those that it reports.
///
/// Input belongs to the step that is shown, even if another row has become current meanwhile.
class StepInput : public QObject
{
    Q_OBJECT
public:
    /// Makes a request of the page; dropped if the first function returns false by then.
    using Request = std::function<void(std::function<bool()>, RequestQueue::Request)>;

    StepInput(SequenceEditor* sequence, StepTable* table, StepEditors* editors, Request request);

    void setReporter(StatusReporter* reporter) { m_reporter = reporter; }
    /// Shows the step of a row, or none if it is negative.
    void show(int row);

    void storeDelay();
    void storeSpeed(std::uint8_t finger);
    /// Stores a speed that is being typed. Unlike a field that is disabled, one that becomes
    /// read-only does not finish editing.
    void storeTypedSpeed();
    /// Stores what is being typed.
    void storeTyped();

    void previewTarget(std::uint8_t finger, int value);
    /// Sends the target that the slider shows, and stores the one that the hand then reports. If it
    /// reports none, the target remains a preview; if the hand refuses it, the stored one is shown.
    void sendTarget(std::uint8_t finger);
    /// The same with the number in the read-out. One that is out of range is only replaced by the
    /// end of the range.
    void sendTypedTarget(std::uint8_t finger);
    /// Shows the stored target again if the user has left the read-out without sending.
    void restoreAbandoned(std::uint8_t finger);

signals:
    /// A target is or is no longer a preview.
    void sig_previewChanged();

private:
    /// The state at the release of a slider.
    struct Release {
        std::uint8_t finger;
        const MotionUnit* unit;
        int value;
        std::uint8_t speed;
        std::uint64_t step;
    };

    void restore(std::uint8_t finger);
    void moveAndStore(const HandTarget& target, const Release& release);

    SequenceEditor* m_sequence;
    StepTable* m_table;
    StepEditors* m_editors;
    Request m_request;
    StatusReporter* m_reporter = nullptr;
    std::uint64_t m_shownStep = 0;
};

} // namespace vanto
