#pragma once

namespace vanto
{

/// Time-outs for the replies of a hand, in milliseconds. Tests change them: on a busy machine a
/// simulated hand may have to wait for a processor longer than the limits for a real hand allow.
struct ReplyLimits {
    int serialCtrl = 50;
    int serialCtrlGains = 150; ///< the hand stores the gains before it answers
    int modbusRead = 50;       ///< for each of two attempts
    int modbusWrite = 200;     ///< likewise; a hand stores some values before it answers

    /// The limits of all adapters of this process.
    static ReplyLimits& current();
    /// These limits multiplied by `factor`.
    constexpr ReplyLimits scaled(int factor) const
    {
        return {factor * serialCtrl, factor * serialCtrlGains, factor * modbusRead,
                factor * modbusWrite};
    }
};

} // namespace vanto
