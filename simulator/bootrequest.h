#pragma once

#include <QByteArray>

namespace vanto::simulator
{

enum class BootStage { Probe, Hardware, Record };

/// A request to the boot loader: the probe, the hardware type and version of the update, or a
/// record.
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
