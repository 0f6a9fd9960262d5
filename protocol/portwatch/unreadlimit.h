#pragma once

#include <QSerialPort>

namespace vanto
{

/// Limits how much a port reads ahead. By default QSerialPort reads everything that arrives, so a
/// device that sends without being asked would fill the memory. Beyond the limit the system keeps
/// some more bytes and discards the rest.
///
/// A port whose buffer was full reads on when its buffer has been read completely, but not after
/// QSerialPort::clear(); then this must be called again.
inline void limitUnread(QSerialPort& port)
{
    constexpr qint64 MaxUnread = 4096; // bytes; many times the longest frame
    port.setReadBufferSize(MaxUnread);
}

} // namespace vanto
