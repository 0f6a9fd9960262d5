#pragma once

#include "vantoserialapi.h"

#include <QByteArray>

#include <memory>

namespace vanto
{

/// A serial link in memory, with a clock that only delays advance.
struct FakeLink {
    explicit FakeLink(std::uint32_t mode = HAND_MODE_SYNC)
        : owner(HAND_CreateContext(this, mode, 1, send, poll), HAND_FreeContext),
          context(owner.get())
    {
        HAND_SetTimerFunction([] { return now; }, [](std::uint32_t ms) { now += ms * stride; });
    }

    static int send(std::uint8_t, const std::uint8_t* data, std::uint32_t length, HAND_Context* c)
    {
        auto& link = *static_cast<FakeLink*>(c->user);
        link.sent.append(reinterpret_cast<const char*>(data), qsizetype(length));
        link.sentAt = now;
        return 0;
    }

    static int poll(HAND_Context* c)
    {
        auto& link = *static_cast<FakeLink*>(c->user);
        if (now - link.sentAt < link.arrival)
            return 0;
        for (const char byte : std::exchange(link.incoming, {}))
            HAND_OnData(c, static_cast<std::uint8_t>(byte));
        return 0;
    }

    std::unique_ptr<HAND_Context, void (*)(HAND_Context*)> owner;
    HAND_Context* context;
    QByteArray sent;
    QByteArray incoming;       ///< received by the first poll at or after the arrival
    std::uint32_t arrival = 0; ///< ms after the request
    std::uint32_t sentAt = 0;
    static inline std::uint32_t now = 0;
    static inline std::uint32_t stride = 1; ///< ms by which a delay of 1 ms advances the clock
};

} // namespace vanto
