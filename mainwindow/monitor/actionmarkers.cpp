#include "actionmarkers.h"

#include "fingernames.h"
#include "numbertext.h"
#include "unitdisplay.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vanto
{

namespace
{
constexpr int IntervalMs = 250; ///< between two markers of a group
constexpr std::int64_t UsPerMs = 1000;

struct OperationText {
    std::string_view operation;
    const char* text; ///< a finger is %1, and the numbers follow; without a finger they begin at %1
    int decimals = 0;
};

constexpr std::array OperationTexts{
    OperationText{"setFingerPID",
                  QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write %1: P %2, I %3, D %4, G %5"), 2},
    OperationText{"setFingerCurrentLimit",
                  QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write %1: current limit %2")},
    OperationText{"setFingerForceLimit",
                  QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write %1: force limit %2")},
    OperationText{"setFingerPosLimit",
                  QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write %1: position limits %2, %3")},
    OperationText{"setSelfTestLevel",
                  QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write self-test level %1")},
    OperationText{"setBeepSwitch",
                  QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write beep switch %1")},
    OperationText{"setCaliData", QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Write calibration")},
    OperationText{"startInit", QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Init")},
    OperationText{"reset", QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Reset")},
    OperationText{"calibrate", QT_TRANSLATE_NOOP("vanto::ActionMarkers", "Calibrate")},
};

QString textOfTarget(const HandAction& action)
{
    const MotionUnit& unit =
        action.quantity == Quantity::Position ? MotionUnit::position() : MotionUnit::angle();
    return ActionMarkers::tr("Set %1: %2")
        .arg(FingerNames::shown(action.finger.value_or(0)), UnitDisplay::text(unit, action.value));
}

/// Empty for an operation that is not marked.
QString textOfOperation(const HandAction& action)
{
    for (const auto& [operation, text, decimals] : OperationTexts) {
        if (operation != action.operation)
            continue;
        QString shown = ActionMarkers::tr(text);
        if (action.finger)
            shown = shown.arg(FingerNames::shown(*action.finger));
        for (const double value : action.values)
            if (shown.contains(QLatin1Char('%')))
                shown = shown.arg(decimals > 0 ? NumberText::fromDouble(value)
                                               : QString::number(value));
        return shown;
    }
    return {};
}
} // namespace

ActionMarkers::ActionMarkers(std::function<std::optional<HandTarget>()> target,
                             const TelemetryClock& clock, QObject* parent)
    : QObject(parent), m_target(std::move(target)), m_clock(clock)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &ActionMarkers::release);
    connect(&ActionMonitor::instance(), &ActionMonitor::sig_action, this, &ActionMarkers::note);
}

void ActionMarkers::note(const HandAction& action)
{
    const auto target = m_target();
    if (!target || action.node != target->node)
        return;
    if (action.origin == HandAction::Origin::Halt)
        add(m_groups[Halts], action.operation == "fingerStart" ? tr("Continue") : tr("Halt"));
    else if (action.kind == HandAction::Kind::Step)
        add(m_groups[Steps], tr("Step %1").arg(action.value + 1));
    else if (action.kind == HandAction::Kind::Operation)
        add(m_groups[Writes], textOfOperation(action));
    else if (action.origin == HandAction::Origin::Request && action.finger &&
             *action.finger < FingerCount)
        add(m_groups[*action.finger], textOfTarget(action)); // those of a play belong to its step
}

void ActionMarkers::add(Group& group, const QString& text)
{
    if (text.isEmpty())
        return;
    const std::int64_t now = m_clock.nowUs();
    const bool isOpen = now >= group.openUs;
    if (!isOpen && group.count == 0 && text == group.shown) {
        group.openUs = now + IntervalMs * UsPerMs; // as the many operations of one halt
        return;
    }
    group.held = {now, text};
    ++group.count;
    if (!isOpen) {
        if (!m_timer.isActive())
            m_timer.start(IntervalMs);
        return;
    }
    flush();
}

void ActionMarkers::flush()
{
    std::vector<Group*> groups;
    for (Group& group : m_groups)
        if (group.count > 0)
            groups.push_back(&group);
    std::ranges::sort(groups, {}, [](const Group* group) { return group->held.timeUs; });
    for (Group* const group : groups)
        show(*group);
}

/// The timer serves all groups, so a group may have to wait for another interval.
void ActionMarkers::release()
{
    const std::int64_t now = m_clock.nowUs();
    bool hasMore = false;
    for (const Group& group : m_groups) {
        if (group.count > 0 && group.openUs <= now) {
            flush();
            return;
        }
        hasMore = hasMore || group.count > 0;
    }
    if (hasMore)
        m_timer.start(IntervalMs);
}

void ActionMarkers::show(Group& group)
{
    group.openUs = m_clock.nowUs() + IntervalMs * UsPerMs;
    const int others = std::exchange(group.count, 0) - 1;
    Marker marker = group.held;
    group.shown = marker.text;
    if (others > 0)
        marker.text = tr("%1 (and %2 more)").arg(marker.text).arg(others);
    emit sig_marker(marker);
}

} // namespace vanto
