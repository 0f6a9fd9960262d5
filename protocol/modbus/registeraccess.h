#pragma once

#include "conversation.h"
#include "modbusrtuclient.h"

#include <algorithm>
#include <memory>
#include <utility>

/// The requests of one adapter operation, in a row. The first one that fails decides the result;
/// those after it are not sent, and their outputs stay as they are. Outputs may be null: what was
/// read is then dropped.
///
/// Keeps the client alive, so that the adapter may be disconnected in the middle.
class RegisterAccess
{
public:
    RegisterAccess(std::shared_ptr<ModBusRTUClient> client, std::uint8_t node)
        : m_client(std::move(client)), m_node(node)
    {
    }

    template<class T>
    RegisterAccess& read(int address, T* value)
    {
        return readAll(address, value, 1);
    }

    template<class T>
    RegisterAccess& readAll(int address, T* values, std::uint16_t count)
    {
        const QList<std::uint16_t> received = fetch(address, count);
        for (std::uint16_t i = 0; values && good() && i < count; ++i)
            values[i] = static_cast<T>(received[i]);
        return *this;
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

    /// The speed of the fingers goes first: the target sets them in motion.
    template<class T>
    RegisterAccess& move(std::uint8_t firstFinger, int targetAddress, const T* targets,
                         const std::uint8_t* speeds, std::uint8_t count)
    {
        sendSpeeds(firstFinger, speeds, count);
        return writeAll(targetAddress + firstFinger, targets, count);
    }

    bool good() const;
    std::uint8_t result() const { return m_result; }

private:
    /// Whether the next request is to be sent.
    bool goesOn();
    /// Empty once a request has failed.
    QList<std::uint16_t> fetch(int address, std::uint16_t count);
    void send(int address, const QList<std::uint16_t>& values);
    void sendSpeeds(std::uint8_t firstFinger, const std::uint8_t* speeds, std::uint8_t count);

    Exchange m_onlyOne;
    std::shared_ptr<ModBusRTUClient> m_client;
    std::uint8_t m_node;
    std::uint8_t m_result = 0;
};
