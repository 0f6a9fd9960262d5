#pragma once

#include "timepoint.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

namespace vanto::simulator
{

/// Transfers bytes over a descriptor in both directions, at once or at the rate of a serial line.
class Wire : public QObject
{
    Q_OBJECT

public:
    /// A baud rate of 0 means no limit.
    explicit Wire(std::uint32_t baud, QObject* parent = nullptr);
    ~Wire() override;

    /// The descriptor must be non-blocking; the caller keeps its ownership.
    void attach(int descriptor);
    void detach();

    /// Calls `beforeLastByte` when the last byte is due, just before it is written.
    /// Returns false if the bytes are lost because the line is unplugged or its queue is full.
    bool send(const QByteArray& bytes, std::function<void()> beforeLastByte);

    /// Whether bytes wait until they are due, or until the line takes them.
    bool isSending() const { return !m_outgoing.empty(); }
    Clock::duration byteTime() const { return m_byteTime; }

signals:
    void aboutToRead();
    void written();
    /// `startTime` is the start of the first byte on the wire.
    void received(const QByteArray& bytes, vanto::simulator::TimePoint startTime);

private:
    struct Incoming {
        char byte;
        TimePoint due;
    };
    struct Outgoing {
        QByteArray bytes;
        std::function<void()> beforeLastByte;
        TimePoint start;
        qsizetype written = 0;
    };

    void readAvailable();
    void queueIncoming(const QByteArray& bytes, TimePoint now);
    void releaseIncoming(TimePoint now);
    void writeDue(TimePoint now);
    bool writeSome(Outgoing& front, qsizetype upTo);
    void serviceDeadlines();
    void armTimer(TimePoint now);

    Clock::duration m_byteTime{0};
    int m_descriptor = -1;
    int m_timer = -1;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    std::unique_ptr<QSocketNotifier> m_timerFired;
    std::deque<Incoming> m_incoming;
    std::deque<Outgoing> m_outgoing;
    TimePoint m_incomingFree;
    TimePoint m_outgoingFree;
};

} // namespace vanto::simulator
