#include "bootloader.h"

#include <utility>

namespace vanto::simulator
{
namespace
{
using namespace std::chrono_literals;

// Quiet is counted in ticks, not read from the clock, so that bytes which wait to be read while
// this process is held up are not taken for a pause.
constexpr auto tickInterval = 10ms;
constexpr int pauseTicks = 3;
constexpr int brokenRecordTicks = 20;
constexpr int silenceTicks = 200;
constexpr Clock::duration pause = 20ms; // between two bytes

constexpr qsizetype lengthSize = 2;
constexpr qsizetype hardwareSize = 2;
constexpr qsizetype crcSize = 2;

constexpr char hardwareMatches = 'Y';
constexpr char hardwareDiffers = 'N';
constexpr char recordAccepted = 0x11;
constexpr char recordRejected = 0x12;

unsigned bigEndian(QByteArrayView bytes)
{
    return static_cast<quint8>(bytes[0]) * 0x100U + static_cast<quint8>(bytes[1]);
}

unsigned crc16(QByteArrayView bytes)
{
    constexpr unsigned polynomial = 0x1021;
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned>(static_cast<quint8>(byte)) << 8U;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000U) != 0 ? crc << 1U ^ polynomial : crc << 1U;
    }
    return crc & 0xFFFFU;
}

bool isApplicationRequest(const QByteArray& message, Moment now)
{
    FrameReceiver receiver(Clock::duration::max());
    std::optional<ReceivedFrame> last;
    for (const char byte : message)
        last = receiver.feed(byte, now);
    return last && last->checksumGood && last->bytes == message;
}
} // namespace

BootLoader::BootLoader(const BootOptions& options, QObject* parent)
    : QObject(parent),
      m_options(options),
      m_listensUntil(Clock::now() + options.window.value_or(0ms))
{
    m_ticks.setInterval(tickInterval);
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &BootLoader::tick);
}

bool BootLoader::listens() const
{
    return isRunning() || !m_options.window || Clock::now() < m_listensUntil;
}

bool BootLoader::feed(char byte, Moment now)
{
    if (isRunning() && now - m_lastByte > pause) {
        endMessage();
        m_afterPause = m_message.size();
    }
    if (!isRunning())
        return false;
    if (m_message.isEmpty())
        m_began = now;
    m_lastByte = now;
    m_quietTicks = 0;
    m_message.append(byte);
    if (m_message.size() < lengthSize)
        return true;
    const auto length = static_cast<qsizetype>(bigEndian(m_message));
    const bool mayBeHardware = m_hardwareMayCome && length == 0;
    if (m_message.size() == lengthSize + length && !mayBeHardware)
        pass(BootStage::Record);
    return true;
}

void BootLoader::tick()
{
    ++m_quietTicks;
    if (m_quietTicks == pauseTicks)
        endMessage();
    else if (m_quietTicks == brokenRecordTicks)
        forgetMessage();
    else if (m_quietTicks == silenceTicks)
        startApplication();
}

// Nothing follows for now what has come so far. Before a tool's next attempt there can be the
// beginning of a record that it gave up.
void BootLoader::endMessage()
{
    const QByteArray last = m_message.sliced(m_afterPause);
    if (last == bootProbe()) {
        m_statistics.stray += static_cast<quint64>(m_afterPause);
        m_message = last;
        pass(BootStage::Probe);
    } else if (m_hardwareMayCome && m_message.size() == hardwareSize) {
        pass(BootStage::Hardware);
    } else if (isApplicationRequest(last, m_lastByte)) {
        forgetMessage();
        startApplication();
    }
}

void BootLoader::clearMessage()
{
    m_message.clear();
    m_afterPause = 0;
}

void BootLoader::forgetMessage()
{
    m_statistics.stray += static_cast<quint64>(m_message.size());
    clearMessage();
}

void BootLoader::pass(BootStage stage)
{
    ReceivedFrame request;
    request.bytes = m_message;
    clearMessage();
    request.request = BootRequest{stage, request.bytes};
    request.peer.protocol = Protocol::Boot;
    request.checksumGood = true; // the verdict on a record is a reply
    request.began = m_began;
    m_hardwareMayCome = false;
    emit received(request);
}

BootReply BootLoader::verdict(const Hand& hand, const BootRequest& request) const
{
    switch (request.stage) {
    case BootStage::Probe:
        break;
    case BootStage::Hardware: {
        const unsigned own = hand.traits.hardwareType * 0x100U + hand.traits.hardwareVersion;
        return {QByteArray(1, bigEndian(request.bytes) == own ? hardwareMatches : hardwareDiffers)};
    }
    case BootStage::Record:
        return {QByteArray(1, isGoodRecord(request.bytes) ? recordAccepted : recordRejected)};
    }
    return {QByteArrayLiteral("\x55\xAA")};
}

bool BootLoader::isGoodRecord(QByteArrayView record) const
{
    const QByteArrayView body = record.sliced(lengthSize);
    if (!m_options.checksRecords)
        return true;
    return body.size() >= crcSize && crc16(body.chopped(crcSize)) == bigEndian(body.last(crcSize));
}

void BootLoader::carryOut(Hand& hand, const BootRequest& request, bool obeys)
{
    if (request.stage == BootStage::Probe) {
        ++m_statistics.probes;
        if (obeys)
            enter(hand);
    }
    if (request.stage != BootStage::Record)
        return;
    m_applicationWhole = obeys && isGoodRecord(request.bytes);
    ++(m_applicationWhole ? m_statistics.records : m_statistics.rejected);
    if (!m_applicationWhole)
        return;
    m_image.append(request.bytes);
    m_updated = true;
}

void BootLoader::enter(Hand& hand)
{
    m_hand = &hand;
    m_hardwareMayCome = true;
    clearMessage();
    m_image.clear();
    m_quietTicks = 0;
    m_ticks.start();
}

void BootLoader::startApplication()
{
    if (!isRunning() || !m_applicationWhole)
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

void BootLoader::lineLost()
{
    forgetMessage();
    if (isRunning() && m_updated)
        m_applicationWhole = false;
}

void BootLoader::enterWithoutApplication(Hand& hand)
{
    m_applicationWhole = false;
    enter(hand);
}

void BootLoader::startApplicationAnyway()
{
    m_applicationWhole = true;
    startApplication();
}

} // namespace vanto::simulator
