#pragma once

namespace vanto
{

/// How long a hand is given for its reply, in milliseconds. Set-up for tests: on a busy machine a
/// simulated hand may not get a processor for longer than the limits of a real one.
struct ReplyLimits {
    int serialCtrl = 50;
    int serialCtrlGains = 150; ///< the hand stores the gains before it answers
    int modbusRead = 50;       ///< each of two attempts
    int modbusWrite = 200;     ///< likewise; a hand stores some values before it answers

    /// The limits of all adapters of this process.
    static ReplyLimits& current();
    /// The same `factor` times as long.
    constexpr ReplyLimits stretched(int factor) const
    {
        return {factor * serialCtrl, factor * serialCtrlGains, factor * modbusRead,
                factor * modbusWrite};
    }
};

} // namespace vanto
