#pragma once

#include "generation.h"
#include "readingmonitor.h"

#include <QObject>

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vanto
{

/// What the program has made a hand do.
struct HandAction {
    enum class Kind : std::uint8_t {
        Target,    ///< a finger has a new target; an operation for all fingers is six actions
        Operation, ///< the hand has accepted another operation that is not a read
        Step       ///< a step of a sequence begins; the targets of its fingers follow
    };
    enum class Origin : std::uint8_t { Request, Player, Halt };

    std::uint8_t node = 0;
    Generation::Token token{}; ///< that of the target
    Kind kind = Kind::Target;
    Origin origin = Origin::Request;
    std::string_view operation{}; ///< a name like "setFingerPID"; empty for a step
    std::optional<std::uint8_t> finger{};
    Quantity quantity = Quantity::Position; ///< of a target: a position or an angle
    std::int32_t value = 0;                 ///< the target, or the index of the step
    std::span<const double> values{};       ///< the numbers that an operation has written
};

/// Reports what the program makes hands do, for the whole process. Listeners only take note: they
/// are called inside a conversation.
class ActionMonitor : public QObject
{
    Q_OBJECT
public:
    static ActionMonitor& instance();

signals:
    void sig_action(const vanto::HandAction& action);
};

} // namespace vanto
