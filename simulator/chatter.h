#pragma once

#include "wire.h"

#include <QTimer>

namespace vanto::simulator
{

/// Sends bytes without a request, as fast as the line takes them.
class Chatter : public QObject
{
    Q_OBJECT

public:
    explicit Chatter(Wire& wire, QObject* parent = nullptr);

    void start();
    void stop();
    /// Bytes that the line has taken since start().
    std::uint64_t sent() const { return m_sent; }

private:
    void send();

    Wire& m_wire;
    QTimer m_timer;
    std::uint64_t m_sent = 0;
};

} // namespace vanto::simulator
