#pragma once

#include "actionmonitor.h"
#include "handcall.h"
#include "sample.h"
#include "telemetryclock.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <functional>
#include <optional>

namespace vanto
{

/// Makes markers of what the program makes the open hand do: a target that the user sets, a written
/// parameter, the start of a step, a halt. Of many actions of one kind in a short time the first
/// and the last are marked; a repetition is not.
class ActionMarkers : public QObject
{
    Q_OBJECT
public:
    /// `target` returns the hand whose actions are marked. `clock` must outlive the object.
    ActionMarkers(std::function<std::optional<HandTarget>()> target, const TelemetryClock& clock,
                  QObject* parent = nullptr);

    /// Emits the markers that are held back. Call this before a marker of another source, as the
    /// times of markers must not decrease.
    void flush();

signals:
    void sig_marker(const vanto::Marker& marker);

private:
    /// Actions that displace each other: those of one kind, or targets of one finger.
    struct Group {
        std::int64_t openUs = 0; ///< from then on an action is marked at once
        QString shown;           ///< text of the last marker
        Marker held;             ///< the last action that is not marked yet
        int count = 0;           ///< of such actions
    };
    static constexpr std::size_t Steps = FingerCount; ///< groups of targets come first
    static constexpr std::size_t Writes = Steps + 1;
    static constexpr std::size_t Halts = Steps + 2;

    void note(const HandAction& action);
    void add(Group& group, const QString& text);
    void release();
    void show(Group& group);

    std::function<std::optional<HandTarget>()> m_target;
    const TelemetryClock& m_clock;
    std::array<Group, Halts + 1> m_groups;
    QTimer m_timer;
};

} // namespace vanto
