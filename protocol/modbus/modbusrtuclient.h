#pragma once

#include <QList>

#include <cstdint>
#include <memory>

namespace vanto
{

/// The master of a Modbus RTU line: reads and writes blocks of holding registers of one slave.
///
/// Every request processes events until it is answered or has failed. For use on the user-interface
/// thread only.
class ModBusRTUClient
{
public:
    /// The values are those of QModbusDevice::Error.
    enum Error : unsigned {
        NoError,
        ReadError, ///< also: wrong number of registers in the reply
        WriteError,
        ConnectionError,
        ConfigurationError,
        TimeoutError,
        ProtocolError, ///< the slave returned an exception
        ReplyAbortedError,
        UnknownError,
    };

    ModBusRTUClient() = default;
    virtual ~ModBusRTUClient();
    ModBusRTUClient(const ModBusRTUClient&) = delete;
    ModBusRTUClient& operator=(const ModBusRTUClient&) = delete;

    /// Opens the named port (UTF-8). Returns true if it is open.
    virtual bool connect(const char* portName, std::uint32_t baudRate) = 0;
    virtual void disconnect() = 0;

    /// On success `values` holds `count` values; otherwise its content is undefined. Once the
    /// exchange has been abandoned, nothing more is read or written.
    virtual Error readRegisters(std::uint8_t slave, std::uint16_t start, std::uint16_t count,
                                QList<std::uint16_t>& values) = 0;
    virtual Error writeRegisters(std::uint8_t slave, std::uint16_t start,
                                 const QList<std::uint16_t>& values) = 0;

    /// Creates the client named `name`, which must be "qtmodbus". Any other name, including the
    /// reserved "libmodbus", returns a null pointer.
    static std::shared_ptr<ModBusRTUClient> create(const char* name);
};

} // namespace vanto
