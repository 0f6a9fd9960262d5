#pragma once

#include <QList>

#include <atomic>
#include <cstdint>
#include <memory>
#include <thread>

#include <modbus/modbus.h>

/// A Modbus RTU slave made with libmodbus, at the near end of a pseudo-terminal and on a thread of
/// its own. It has the holding registers 1000..1349; each holds its own address until it is
/// written.
class LibModbusSlave
{
public:
    enum class Manner { Good, Refusing, Silent, BrokenCrc, TooFewRegisters };

    LibModbusSlave(int node, Manner manner);
    ~LibModbusSlave();
    LibModbusSlave(const LibModbusSlave&) = delete;
    LibModbusSlave& operator=(const LibModbusSlave&) = delete;

    const char* portName() const { return m_portName.c_str(); }
    int requests() const { return m_requests; }
    QList<std::uint16_t> registers(int start, int count) const;

private:
    void serve();
    void answer(const std::uint8_t* request, int length);

    static constexpr int First = 1000;
    static constexpr int Count = 350;

    const Manner m_manner;
    int m_near = -1;
    int m_far = -1;
    std::string m_portName;
    std::unique_ptr<modbus_t, void (*)(modbus_t*)> m_context{nullptr, modbus_free};
    std::unique_ptr<modbus_mapping_t, void (*)(modbus_mapping_t*)> m_map{nullptr,
                                                                         modbus_mapping_free};
    std::atomic<int> m_requests = 0;
    std::atomic<bool> m_ending = false;
    std::thread m_thread;
};
