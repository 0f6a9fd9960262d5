#pragma once

#include <cstdint>
#include <memory>

namespace vanto
{

/// A byte stream over a serial line. No operation waits: `read` and `write` do what can be done
/// at once and return the number of bytes, which may be short, or a negative number on error.
class SerialPort
{
public:
    SerialPort() = default;
    virtual ~SerialPort();
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;

    virtual std::int64_t bytesAvailable() = 0;
    virtual std::int64_t read(std::uint8_t* buffer, std::uint32_t length) = 0;
    virtual std::int64_t write(const std::uint8_t* buffer, std::uint32_t length) = 0;
    /// `name` is UTF-8, `baudRate` in bits per second. True when the port is open.
    virtual bool open(const char* name, std::uint32_t baudRate) = 0;
    virtual void close() = 0;
    /// Drops everything not yet read and everything not yet sent.
    virtual void clear() = 0;

    /// The process-wide port object for a name, created on first use and kept until the process
    /// ends. `type` is "qtserial" ("libserial" is reserved); it is looked at only when the name is
    /// new. Empty when the type yields no port. Throws std::logic_error for a null name. Safe to
    /// call from any thread.
    static std::shared_ptr<SerialPort> get(const char* type, const char* name);
};

} // namespace vanto
