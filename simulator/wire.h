#pragma once

#include "moment.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <memory>

namespace vanto::simulator
{

// Carries bytes over a descriptor in both directions: at once, or no faster than a serial wire.
class Wire : public QObject
{
    Q_OBJECT

public:
    // A baud rate of 0 is a wire without delay.
    explicit Wire(quint32 baud, QObject* parent = nullptr);
    ~Wire() override;

    // The descriptor is non-blocking and stays the caller's.
    void attach(int descriptor);
    void detach();

    // `beforeLastByte` is called when the last byte is due, just before it is written.
    // False if the bytes are lost because the line is down or hopelessly behind.
    bool send(const QByteArray& bytes, std::function<void()> beforeLastByte);

    Clock::duration byteTime() const { return m_byteTime; }

signals:
    void aboutToRead();
    void written();
    // `began` is when the first of the bytes started on the wire.
    void received(const QByteArray& bytes, vanto::simulator::Moment began);

private:
    struct Incoming {
        char byte;
        Moment due;
    };
    struct Outgoing {
        QByteArray bytes;
        std::function<void()> beforeLastByte;
        Moment start;
        qsizetype written = 0;
    };

    void readAvailable();
    void queueIncoming(const QByteArray& bytes, Moment now);
    void releaseIncoming(Moment now);
    void writeDue(Moment now);
    bool writeSome(Outgoing& front, qsizetype upTo);
    void serviceDeadlines();
    void armTimer(Moment now);

    Clock::duration m_byteTime{0};
    int m_descriptor = -1;
    int m_timer = -1;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    std::unique_ptr<QSocketNotifier> m_timerFired;
    std::deque<Incoming> m_incoming;
    std::deque<Outgoing> m_outgoing;
    Moment m_incomingFree;
    Moment m_outgoingFree;
};

} // namespace vanto::simulator
