#pragma once

#include "framereceiver.h"
#include "hand.h"

#include <QTimer>

#include <chrono>

namespace vanto::simulator
{

struct BootOptions {
    // For how long after power-on a probe is heard; nothing: whenever the hand is idle.
    std::optional<std::chrono::milliseconds> window;
    bool checksRecords = true;
};

struct BootStatistics {
    quint64 probes = 0;
    quint64 records = 0;  // accepted
    quint64 rejected = 0; // or not answered, because of a fault
    quint64 stray = 0;    // bytes that belonged to no whole request
};

// The boot loader of a hand. From the probe on it has the line for itself, until it starts the
// application.
//
//   tool                              boot loader
//   00 FF AA 55, the probe            55 AA
//   hardware type, version (or not)   59 ("Y"), or 4E if they are not the hand's
//   record                            11 accepted, 12 rejected
//
//   record: | length L, 2 bytes, big-endian | L - 2 bytes of program | CRC, 2 bytes, big-endian |
//
// The CRC is CRC-16/CCITT (polynomial 1021, initial FFFF) of the bytes between length and CRC.
//
// Requests carry no mark of their kind and the last record none of being the last, so silence
// decides: two bytes and a pause, right after the probe, are the hardware; four bytes and a pause
// can be another probe; a whole request of the application's protocols starts the application. A
// record that stops half-way is forgotten. After a long silence the application is started,
// unless the last record was not accepted or the line was lost: then there is no whole
// application any more, and the boot loader waits for another update.
class BootLoader : public QObject
{
    Q_OBJECT

public:
    explicit BootLoader(const BootOptions& options, QObject* parent = nullptr);

    bool isRunning() const { return m_hand != nullptr; }
    bool listens() const;
    QByteArray image() const { return m_image; }
    const BootStatistics& statistics() const { return m_statistics; }

    // False if the byte is not the boot loader's but the application's.
    bool feed(char byte, Moment now);
    BootReply verdict(const Hand& hand, const BootRequest& request) const;
    // `obeys` is false where a fault keeps the hand from doing what the verdict says.
    void carryOut(Hand& hand, const BootRequest& request, bool obeys);

    void powerOn(const Hand& hand);
    // A request of the application's has been heard: no probe will be, until the next power-on.
    void closeWindow() { m_listensUntil = Moment::min(); }
    void lineLost();
    void enterWithoutApplication(Hand& hand);
    void startApplicationAnyway();

signals:
    void received(const vanto::simulator::ReceivedFrame& request);

private:
    void enter(Hand& hand);
    void tick();
    void endMessage();
    void clearMessage();
    void forgetMessage();
    void pass(BootStage stage);
    bool isGoodRecord(QByteArrayView record) const;
    void startApplication();

    BootOptions m_options;
    Moment m_listensUntil;
    Hand* m_hand = nullptr; // that runs its boot loader
    bool m_applicationWhole = true;
    bool m_updated = false;         // a record has been stored since the application ran
    bool m_hardwareMayCome = false; // nothing but the probe has been received yet
    QByteArray m_message;           // of which the end has not been seen
    QByteArray m_image;             // all accepted records since the last probe
    qsizetype m_afterPause = 0;     // where in the message the bytes since its last pause start
    Moment m_began;                 // of the message
    Moment m_lastByte;
    int m_quietTicks = 0;
    QTimer m_ticks;
    BootStatistics m_statistics;
};

} // namespace vanto::simulator
