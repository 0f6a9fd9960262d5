#include "chatter.h"

namespace vanto::simulator
{
namespace
{
using namespace std::chrono_literals;

constexpr auto Interval = 1ms;
constexpr qsizetype BlockSize = 1024; ///< bytes; with the interval at most 1 MB/s
constexpr char Filler = 0x5A;         ///< starts no frame
} // namespace

Chatter::Chatter(Wire& wire, QObject* parent) : QObject(parent), m_wire(wire)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(Interval);
    connect(&m_timer, &QTimer::timeout, this, &Chatter::send);
}

void Chatter::start()
{
    m_sent = 0;
    m_timer.start();
}

void Chatter::stop()
{
    m_timer.stop();
}

void Chatter::send()
{
    if (m_wire.isSending())
        return;
    m_wire.send(QByteArray(BlockSize, Filler), [this] { m_sent += BlockSize; });
}

} // namespace vanto::simulator
