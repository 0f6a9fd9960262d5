#pragma once

#include "framereceiver.h"
#include "hand.h"

#include <QTimer>

#include <chrono>
#include <cstdint>

namespace vanto::simulator
{

struct BootOptions {
    /// Time after power-on in which a probe is accepted; unset: whenever the hand is idle.
    std::optional<std::chrono::milliseconds> window;
    bool checksRecords = true;
};

struct BootStatistics {
    std::uint64_t probes = 0;
    std::uint64_t records = 0;  ///< accepted
    std::uint64_t rejected = 0; ///< or not answered because of a fault
    std::uint64_t stray = 0;    ///< bytes outside complete requests
};

/// The boot loader of a hand. It receives all bytes from the probe until it starts the application.
///
///   tool                              boot loader
///   00 FF AA 55, the probe            55 AA
///   hardware type, version (optional) 59 ("Y"), or 4E if they do not match the hand
///   record                            11 accepted, 12 rejected
///
///   record: | length L, 2 bytes, big-endian | L - 2 bytes of program | CRC, 2 bytes, big-endian |
///
/// The CRC is CRC-16/CCITT (polynomial 1021, initial FFFF) of the bytes between length and CRC.
///
/// Neither the type of a request nor the last record is marked, so pauses distinguish them: two
/// bytes and a pause directly after the probe are the hardware; four bytes and a pause can be
/// another probe; a complete request of the application's protocols starts the application. An
/// incomplete record is discarded. A long silence starts the application, unless the last record
/// was not accepted or the port was unplugged: the application is then incomplete, and the boot
/// loader waits for another update.
class BootLoader : public QObject
{
    Q_OBJECT

public:
    explicit BootLoader(const BootOptions& options, QObject* parent = nullptr);

    bool isRunning() const { return m_hand != nullptr; }
    bool isListening() const;
    QByteArray image() const { return m_image; }
    const BootStatistics& statistics() const { return m_statistics; }

    /// Returns false if the byte is for the application.
    bool feed(char byte, TimePoint now);
    BootReply replyTo(const Hand& hand, const BootRequest& request) const;
    /// `allowed` is false if a fault prevents the hand from executing the request.
    void execute(Hand& hand, const BootRequest& request, bool allowed);

    void powerOn(const Hand& hand);
    /// Ignores probes until the next power-on, because the application has received a request.
    void closeWindow() { m_listensUntil = TimePoint::min(); }
    void handleDisconnect();
    void enterWithoutApplication(Hand& hand);
    void forceApplicationStart();

signals:
    void received(const vanto::simulator::ReceivedFrame& request);

private:
    void enter(Hand& hand);
    void tick();
    void endMessage();
    void clearMessage();
    void discardMessage();
    void emitRequest(BootStage stage);
    bool isGoodRecord(QByteArrayView record) const;
    void startApplication();

    BootOptions m_options;
    TimePoint m_listensUntil;
    Hand* m_hand = nullptr; ///< the hand that runs its boot loader
    bool m_applicationComplete = true;
    bool m_updated = false;         ///< a record was stored since the application last ran
    bool m_expectsHardware = false; ///< only the probe has been received
    QByteArray m_message;           ///< not yet complete
    QByteArray m_image;             ///< all accepted records since the last probe
    qsizetype m_pauseOffset = 0;    ///< offset of the bytes after the last pause
    TimePoint m_startTime;          ///< of m_message
    TimePoint m_lastByte;
    int m_idleTicks = 0;
    QTimer m_ticks;
    BootStatistics m_statistics;
};

} // namespace vanto::simulator
