#include "bootloader.h"

#include <utility>

namespace vanto::simulator
{
namespace
{
using namespace std::chrono_literals;

/// Silence is counted in ticks rather than read from the clock, so that a delay of this process is
/// not mistaken for a pause on the line while bytes wait to be read.
constexpr auto TickInterval = 10ms;
constexpr int PauseTicks = 3;
constexpr int BrokenRecordTicks = 20;
constexpr int SilenceTicks = 200;
constexpr Clock::duration PauseLimit = 20ms; ///< between two bytes

constexpr qsizetype LengthSize = 2;
constexpr qsizetype HardwareSize = 2;
constexpr qsizetype CrcSize = 2;

constexpr char HardwareMatches = 'Y';
constexpr char HardwareDiffers = 'N';
constexpr char RecordAccepted = 0x11;
constexpr char RecordRejected = 0x12;

unsigned bigEndian(QByteArrayView bytes)
{
    return static_cast<std::uint8_t>(bytes[0]) * 0x100U + static_cast<std::uint8_t>(bytes[1]);
}

unsigned crc16(QByteArrayView bytes)
{
    constexpr unsigned polynomial = 0x1021;
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned>(static_cast<std::uint8_t>(byte)) << 8U;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000U) != 0 ? crc << 1U ^ polynomial : crc << 1U;
    }
    return crc & 0xFFFFU;
}

bool isApplicationRequest(const QByteArray& message, TimePoint now)
{
    FrameReceiver receiver(Clock::duration::max());
    std::optional<ReceivedFrame> last;
    for (const char byte : message)
        last = receiver.feed(byte, now);
    return last && last->checksumValid && last->bytes == message;
}
} // namespace

BootLoader::BootLoader(const BootOptions& options, QObject* parent)
    : QObject(parent),
      m_options(options),
      m_listensUntil(Clock::now() + options.window.value_or(0ms))
{
    m_ticks.setInterval(TickInterval);
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &BootLoader::tick);
}

bool BootLoader::isListening() const
{
    return isRunning() || !m_options.window || Clock::now() < m_listensUntil;
}

bool BootLoader::feed(char byte, TimePoint now)
{
    if (isRunning() && now - m_lastByte > PauseLimit) {
        endMessage();
        m_pauseOffset = m_message.size();
    }
    if (!isRunning())
        return false;
    if (m_message.isEmpty())
        m_startTime = now;
    m_lastByte = now;
    m_idleTicks = 0;
    m_message.append(byte);
    if (m_message.size() < LengthSize)
        return true;
    const auto length = static_cast<qsizetype>(bigEndian(m_message));
    const bool mayBeHardware = m_expectsHardware && length == 0;
    if (m_message.size() == LengthSize + length && !mayBeHardware)
        emitRequest(BootStage::Record);
    return true;
}

void BootLoader::tick()
{
    ++m_idleTicks;
    if (m_idleTicks == PauseTicks)
        endMessage();
    else if (m_idleTicks == BrokenRecordTicks)
        discardMessage();
    else if (m_idleTicks == SilenceTicks)
        startApplication();
}

/// Evaluates the message received before a pause. Bytes of a record that the tool has abandoned can
/// precede its next attempt.
void BootLoader::endMessage()
{
    const QByteArray last = m_message.sliced(m_pauseOffset);
    if (last == bootProbe()) {
        m_statistics.stray += static_cast<std::uint64_t>(m_pauseOffset);
        m_message = last;
        emitRequest(BootStage::Probe);
    } else if (m_expectsHardware && m_message.size() == HardwareSize) {
        emitRequest(BootStage::Hardware);
    } else if (isApplicationRequest(last, m_lastByte)) {
        discardMessage();
        startApplication();
    }
}

void BootLoader::clearMessage()
{
    m_message.clear();
    m_pauseOffset = 0;
}

void BootLoader::discardMessage()
{
    m_statistics.stray += static_cast<std::uint64_t>(m_message.size());
    clearMessage();
}

void BootLoader::emitRequest(BootStage stage)
{
    ReceivedFrame request;
    request.bytes = m_message;
    clearMessage();
    request.request = BootRequest{stage, request.bytes};
    request.peer.protocol = Protocol::Boot;
    request.checksumValid = true; // the reply reports a wrong CRC of a record
    request.startTime = m_startTime;
    m_expectsHardware = false;
    emit received(request);
}

BootReply BootLoader::replyTo(const Hand& hand, const BootRequest& request) const
{
    switch (request.stage) {
    case BootStage::Probe:
        break;
    case BootStage::Hardware: {
        const unsigned own = hand.traits.hardwareType * 0x100U + hand.traits.hardwareVersion;
        return {QByteArray(1, bigEndian(request.bytes) == own ? HardwareMatches : HardwareDiffers)};
    }
    case BootStage::Record:
        return {QByteArray(1, isGoodRecord(request.bytes) ? RecordAccepted : RecordRejected)};
    }
    return {QByteArrayLiteral("\x55\xAA")};
}

bool BootLoader::isGoodRecord(QByteArrayView record) const
{
    const QByteArrayView body = record.sliced(LengthSize);
    if (!m_options.checksRecords)
        return true;
    return body.size() >= CrcSize && crc16(body.chopped(CrcSize)) == bigEndian(body.last(CrcSize));
}

void BootLoader::execute(Hand& hand, const BootRequest& request, bool allowed)
{
    if (request.stage == BootStage::Probe) {
        ++m_statistics.probes;
        if (allowed)
            enter(hand);
    }
    if (request.stage != BootStage::Record)
        return;
    m_applicationComplete = allowed && isGoodRecord(request.bytes);
    ++(m_applicationComplete ? m_statistics.records : m_statistics.rejected);
    if (!m_applicationComplete)
        return;
    m_image.append(request.bytes);
    m_updated = true;
}

void BootLoader::enter(Hand& hand)
{
    m_hand = &hand;
    m_expectsHardware = true;
    clearMessage();
    m_image.clear();
    m_idleTicks = 0;
    m_ticks.start();
}

void BootLoader::startApplication()
{
    if (!isRunning() || !m_applicationComplete)
        return;
    m_ticks.stop();
    Hand* const hand = std::exchange(m_hand, nullptr);
    if (std::exchange(m_updated, false))
        ++hand->traits.firmware.revision;
}

void BootLoader::powerOn(const Hand& hand)
{
    m_listensUntil = Clock::now() + m_options.window.value_or(0ms);
    if (m_hand != &hand)
        return;
    clearMessage();
    startApplication();
}

void BootLoader::handleDisconnect()
{
    discardMessage();
    if (isRunning() && m_updated)
        m_applicationComplete = false;
}

void BootLoader::enterWithoutApplication(Hand& hand)
{
    m_applicationComplete = false;
    enter(hand);
}

void BootLoader::forceApplicationStart()
{
    m_applicationComplete = true;
    startApplication();
}

} // namespace vanto::simulator
