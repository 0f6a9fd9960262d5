#pragma once

#include "bootrequest.h"
#include "framecodec.h"
#include "modbusframe.h"
#include "protocol.h"
#include "timepoint.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <list>
#include <optional>

namespace vanto::simulator
{

struct FaultKind;

/// An armed fault and the requests that it applies to.
struct Fault {
    const FaultKind* kind = nullptr;
    std::optional<std::uint8_t> node;
    std::optional<std::uint8_t> command;  ///< SerialCtrl command or Modbus function
    std::optional<std::uint16_t> address; ///< first register of a Modbus request
    std::optional<BootStage> stage;       ///< unset: the fault does not apply to the boot loader
    int skip = 0;
    int count = 1; ///< 0: no limit
    std::chrono::milliseconds delay{80};
    std::uint8_t error = 0x21;
    std::optional<qsizetype> bytes;
};

/// How a reply is sent.
struct Delivery {
    QByteArray bytes; ///< empty: no reply
    std::chrono::milliseconds delay{0};
};

struct FaultKind {
    const char* name;
    bool refuses; ///< the hand does not execute the request
    /// Null if the protocol does not support the fault.
    Delivery (*deliver)(const Frame& reply, const Fault& fault);
    Delivery (*deliverModbus)(const ModbusFrame& reply, const Fault& fault);
    Delivery (*deliverBoot)(const BootReply& reply, const Fault& fault) = nullptr;
    bool ignores = false; ///< the hand answers as if it had executed the request
};

/// The properties of a request that a fault is matched against.
struct FaultTarget {
    Peer peer;
    std::uint8_t command = 0;
    std::optional<std::uint16_t> address;
    std::optional<BootStage> stage = {};
};

class FaultList
{
public:
    /// `words` are the name of the fault and its parameters. Returns an error, or an empty string.
    QString arm(const QStringList& words);
    void clear() { m_armed.clear(); }

    /// Returns the fault that applies to this request and updates its counts.
    std::optional<Fault> take(const FaultTarget& target);

private:
    std::list<Fault> m_armed;
};

/// The names of all faults, for the help text.
QString faultHelp();

} // namespace vanto::simulator
