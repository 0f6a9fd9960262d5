#pragma once

#include <cstdint>
#include <memory>

namespace vanto
{

/// A byte stream over a serial line. No operation blocks: `read` and `write` transfer what they can
/// at once and return the number of bytes, which may be fewer, or a negative number on error.
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
    /// `name` is UTF-8, `baudRate` in bits per second. Returns true if the port is open.
    virtual bool open(const char* name, std::uint32_t baudRate) = 0;
    virtual void close() = 0;
    /// Discards all unread and unsent data.
    virtual void clear() = 0;

    /// The process-wide port object for a name, created on first use and kept until the process
    /// ends. `type` is "qtserial" ("libserial" is reserved); it is checked only if the name is new.
    /// Returns null for any other type. Throws std::logic_error for a null name. Thread-safe.
    static std::shared_ptr<SerialPort> get(const char* type, const char* name);
};

} // namespace vanto
