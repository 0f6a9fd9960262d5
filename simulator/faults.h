#pragma once

#include "bootrequest.h"
#include "framecodec.h"
#include "modbusframe.h"
#include "moment.h"
#include "protocol.h"

#include <QString>
#include <QStringList>

#include <list>
#include <optional>

namespace vanto::simulator
{

struct FaultKind;

// A fault that waits for its requests.
struct Fault {
    const FaultKind* kind = nullptr;
    std::optional<quint8> node;
    std::optional<quint8> command;  // SerialCtrl command or Modbus function
    std::optional<quint16> address; // first register of a Modbus request
    std::optional<BootStage> stage; // none: not for the boot loader
    int skip = 0;
    int count = 1; // 0 is without end
    std::chrono::milliseconds delay{80};
    quint8 error = 0x21;
    std::optional<qsizetype> bytes;
};

// What becomes of a reply on its way.
struct Delivery {
    QByteArray bytes; // empty: nothing is sent
    std::chrono::milliseconds delay{0};
};

struct FaultKind {
    const char* name;
    bool refuses; // the hand does not carry the request out
    // Null where there is no such fault.
    Delivery (*deliver)(const Frame& reply, const Fault& fault);
    Delivery (*deliverModbus)(const ModbusFrame& reply, const Fault& fault);
    Delivery (*deliverBoot)(const BootReply& reply, const Fault& fault) = nullptr;
};

// What a fault looks at to decide whether it is meant.
struct FaultTarget {
    Peer peer;
    quint8 command = 0;
    std::optional<quint16> address;
    std::optional<BootStage> stage = {};
};

class FaultList
{
public:
    // `words` are the fault's name and its parameters. Returns the reason of a failure.
    QString arm(const QStringList& words);
    void clear() { m_armed.clear(); }

    // The fault that hits this request; it is used up accordingly.
    std::optional<Fault> take(const FaultTarget& target);

private:
    std::list<Fault> m_armed;
};

// One line per fault for the user.
QString faultHelp();

} // namespace vanto::simulator
