#pragma once

#include "framelog.h"
#include "handprocess.h"

#include <vector>

namespace vanto
{

class HandClock;

/// Explains requests that a simulated hand has received before its reply to the previous one was
/// written. One explanation counts: the host had sent the previous request, waited for as long as
/// its time-out says, and the hand replied later than that. The time of the reply is that of the
/// hand's trace, those of the requests are from the frame log of this process.
class OverlapCheck
{
public:
    /// `clock` may be null; then nothing can be explained.
    explicit OverlapCheck(const HandClock* clock) : m_clock(clock) {}

    /// Counts the overlaps of the next part of the trace. Returns a description of each one that is
    /// not explained.
    QStringList check(const QList<TracedFrame>& frames);
    int overlaps() const { return m_overlaps; }
    int explained() const { return m_explained; }

private:
    /// A request as this process has sent it, with the time in the trace.
    struct Sent {
        double ms;
        QByteArray bytes;
    };
    std::vector<Sent> sentRequests() const;
    /// Empty if the overlap is explained.
    QString unexplained(const TracedFrame& next, const std::vector<Sent>& sent) const;
    void note(const TracedFrame& frame);

    const HandClock* m_clock;
    TracedFrame m_request; ///< the last one received
    double m_replyMs = 0;  ///< when its reply was written; 0 if not yet
    int m_overlaps = 0;
    int m_explained = 0;
};

} // namespace vanto
