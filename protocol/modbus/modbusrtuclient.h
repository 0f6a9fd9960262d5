#pragma once

#include <QList>

#include <cstdint>
#include <memory>

namespace vanto
{

/// The master of a Modbus RTU line: reads and writes blocks of holding registers of one slave.
///
/// Every request blocks until the reply has come or the request has failed, while events are
/// processed. To be used on the user-interface thread only.
class ModBusRTUClient
{
public:
    /// The values are those of QModbusDevice::Error.
    enum Error : unsigned {
        NoError,
        ReadError, ///< also: the reply held another number of registers than asked for
        WriteError,
        ConnectionError,
        ConfigurationError,
        TimeoutError,
        ProtocolError, ///< the slave answered with an exception
        ReplyAbortedError,
        UnknownError,
    };

    ModBusRTUClient() = default;
    virtual ~ModBusRTUClient();
    ModBusRTUClient(const ModBusRTUClient&) = delete;
    ModBusRTUClient& operator=(const ModBusRTUClient&) = delete;

    /// Opens the named port (UTF-8); true when it is open.
    virtual bool connect(const char* portName, std::uint32_t baudRate) = 0;
    virtual void disconnect() = 0;

    /// On success `values` holds `count` values, otherwise it may be anything.
    virtual Error readRegisters(std::uint8_t slave, std::uint16_t start, std::uint16_t count,
                                QList<std::uint16_t>& values) = 0;
    virtual Error writeRegisters(std::uint8_t slave, std::uint16_t start,
                                 const QList<std::uint16_t>& values) = 0;

    /// A client by the name of its implementation, which is "qtmodbus". "libmodbus" is reserved:
    /// like every other name it yields an empty pointer.
    static std::shared_ptr<ModBusRTUClient> create(const char* name);
};

} // namespace vanto
