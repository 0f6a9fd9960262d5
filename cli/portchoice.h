#pragma once

#include "answer.h"
#include "portlist.h"

namespace vanto
{

struct PortChoice {
    QString name;  ///< for opening the port
    QString error; ///< for the user; then there is no name
    ExitStatus status = ExitStatus::Done;
};

/// The port that is meant by a name, a path or "usb:SERIAL"; if nothing is given, the only port.
PortChoice choosePort(const QString& given);

/// Why a port cannot be opened, on one line; empty if the reason is unknown.
QString describePortProblem(const QString& port);

} // namespace vanto
