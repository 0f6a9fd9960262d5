#pragma once

#include <QByteArray>

namespace vanto::simulator
{

enum class BootStage { Probe, Hardware, Record };

// What a tool sends to the boot loader: the wake-up probe; the hardware type and version that its
// update is for; a record.
struct BootRequest {
    BootStage stage = BootStage::Probe;
    QByteArray bytes;
};

struct BootReply {
    QByteArray bytes;
};

inline QByteArray encode(const BootReply& reply)
{
    return reply.bytes;
}

inline QByteArray bootProbe()
{
    return QByteArrayLiteral("\x00\xFF\xAA\x55");
}

} // namespace vanto::simulator
