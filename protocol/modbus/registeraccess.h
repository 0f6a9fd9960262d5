#pragma once

#include "conversation.h"
#include "modbusrtuclient.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vanto
{

/// Sends the requests of one adapter operation in sequence. The first failure determines the
/// result; after it no further request is sent.
///
/// Keeps the client alive, so that the adapter can be disconnected during the operation.
class RegisterAccess
{
public:
    RegisterAccess(std::shared_ptr<ModBusRTUClient> client, std::uint8_t node)
        : m_client(std::move(client)), m_node(node)
    {
    }

    /// Reads registers that the operation itself needs; `values` are written at once.
    template<class T>
    RegisterAccess& read(int address, T* values, std::uint16_t count = 1)
    {
        const QList<std::uint16_t> received = fetch(address, count);
        for (std::uint16_t i = 0; succeeded() && i < count; ++i)
            values[i] = static_cast<T>(received[i]);
        return *this;
    }

    /// Reads an output of the operation, which result() writes if all requests have succeeded.
    /// `values` may be null. `convert` takes the index and the content of a register.
    template<class T, class Convert>
    RegisterAccess& output(int address, T* values, std::uint16_t count, Convert convert)
    {
        const QList<std::uint16_t> received = fetch(address, count);
        if (values)
            m_outputs.push_back([values, received, convert] {
                for (qsizetype i = 0; i < received.size(); ++i)
                    values[i] = convert(i, received[i]);
            });
        return *this;
    }
    template<class T>
    RegisterAccess& output(int address, T* values, std::uint16_t count = 1)
    {
        return output(address, values, count,
                      [](qsizetype, std::uint16_t value) { return static_cast<T>(value); });
    }

    RegisterAccess& write(int address, std::uint16_t value) { return writeAll(address, &value, 1); }

    template<class T>
    RegisterAccess& writeAll(int address, const T* values, std::uint16_t count)
    {
        QList<std::uint16_t> sent(count);
        std::transform(values, values + count, sent.begin(),
                       [](T value) { return static_cast<std::uint16_t>(value); });
        send(address, sent);
        return *this;
    }

    /// Writes the speeds first: writing the targets starts the motion.
    template<class T>
    RegisterAccess& move(std::uint8_t firstFinger, int targetAddress, const T* targets,
                         const std::uint8_t* speeds, std::uint8_t count)
    {
        sendSpeeds(firstFinger, speeds, count);
        return writeAll(targetAddress + firstFinger, targets, count);
    }

    bool succeeded() const;
    /// Writes the outputs if all requests have succeeded.
    std::uint8_t result() const;

private:
    /// Empty once a request has failed.
    QList<std::uint16_t> fetch(int address, std::uint16_t count);
    void send(int address, const QList<std::uint16_t>& values);
    void sendSpeeds(std::uint8_t firstFinger, const std::uint8_t* speeds, std::uint8_t count);

    Exchange m_exchange;
    std::vector<std::function<void()>> m_outputs;
    std::shared_ptr<ModBusRTUClient> m_client;
    std::uint8_t m_node;
    std::uint8_t m_result = 0;
};

} // namespace vanto
