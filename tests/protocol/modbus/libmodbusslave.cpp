#include "libmodbusslave.h"

#include <array>
#include <numeric>

#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace
{
constexpr int BaudRate = 115200;             // a pseudo-terminal takes no notice of it
constexpr std::uint32_t PatienceUs = 20'000; // between looks at whether to end
} // namespace

LibModbusSlave::LibModbusSlave(int node, Manner manner) : m_manner(manner)
{
    std::array<char, 64> name{};
    termios raw{};
    cfmakeraw(&raw);
    ::openpty(&m_near, &m_far, name.data(), &raw, nullptr);
    m_portName = name.data();
    m_context.reset(modbus_new_rtu(name.data(), BaudRate, 'N', 8, 1));
    modbus_set_slave(m_context.get(), node);
    modbus_set_socket(m_context.get(), m_near);
    modbus_set_indication_timeout(m_context.get(), 0, PatienceUs);
    m_map.reset(modbus_mapping_new_start_address(0, 0, 0, 0, First, Count, 0, 0));
    std::iota(m_map->tab_registers, m_map->tab_registers + Count, std::uint16_t{First});
    m_thread = std::thread([this] { serve(); });
}

LibModbusSlave::~LibModbusSlave()
{
    m_ending = true;
    m_thread.join();
    ::close(m_far);
    ::close(m_near);
}

QList<std::uint16_t> LibModbusSlave::registers(int start, int count) const
{
    const auto* const first = m_map->tab_registers + (start - First);
    return {first, first + count};
}

void LibModbusSlave::serve()
{
    std::array<std::uint8_t, MODBUS_RTU_MAX_ADU_LENGTH> request{};
    while (!m_ending) {
        const int length = modbus_receive(m_context.get(), request.data());
        if (length <= 0)
            continue;
        ++m_requests;
        answer(request.data(), length);
    }
}

void LibModbusSlave::answer(const std::uint8_t* request, int length)
{
    switch (m_manner) {
    case Manner::Good:
        modbus_reply(m_context.get(), request, length, m_map.get());
        return;
    case Manner::Refusing:
        modbus_reply_exception(m_context.get(), request, MODBUS_EXCEPTION_SLAVE_OR_SERVER_BUSY);
        return;
    case Manner::Silent:
        return;
    case Manner::BrokenCrc: {
        const std::array<std::uint8_t, 7> reply{request[0], request[1], 2, 0, 1, 0, 0};
        [[maybe_unused]] const auto written = ::write(m_near, reply.data(), reply.size());
        return;
    }
    case Manner::TooFewRegisters: {
        const std::array<std::uint8_t, 5> reply{request[0], request[1], 2, 0, 1};
        modbus_send_raw_request(m_context.get(), reply.data(), reply.size());
        return;
    }
    }
}
