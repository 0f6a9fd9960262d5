#include "calltext.h"

#include <QCoreApplication>

namespace vanto
{

namespace
{
// The contexts of the texts are the classes of the window that show them.
struct StatusText {
    Q_DECLARE_TR_FUNCTIONS(vanto::StatusReporter)
};
struct ConnectionText {
    Q_DECLARE_TR_FUNCTIONS(vanto::ConnectionView)
};
struct BarText {
    Q_DECLARE_TR_FUNCTIONS(vanto::DeviceBar)
};
struct ScanText {
    Q_DECLARE_TR_FUNCTIONS(vanto::ScanRunner)
};
} // namespace

QString CallText::timeout(const HandTarget& target)
{
    return StatusText::tr("Timeout for %1 node '0x%2'...")
        .arg(QLatin1String(target.adapter->protocolName()), hex(target.node));
}

QString CallText::failure(const HandTarget& target, std::string_view operation, std::uint8_t result,
                          std::uint8_t subError)
{
    const QLatin1String name(operation.data(), static_cast<qsizetype>(operation.size()));
    return StatusText::tr("%1(0x%2, ...) returned 0x%3 (sub err %4)")
        .arg(name, hex(target.node), hex(result), hex(subError));
}

QString CallText::halted()
{
    return StatusText::tr("Halted. Press Continue.");
}

QString CallText::portLost()
{
    return ConnectionText::tr("The port has been lost. Check the cable.");
}

QString CallText::noHand(unsigned node)
{
    return BarText::tr("No hand answers at node %1.").arg(node);
}

QString CallText::portNotOpened(const QString& port, PROTOCOL_TYPE protocol)
{
    return ScanText::tr("Open port '%1' failed, protocol=%2, baudrate=%3")
        .arg(port, QString::number(protocol), QString::number(BaudRate));
}

QString CallText::hex(unsigned number)
{
    return QStringLiteral("%1").arg(number, 2, 16, QLatin1Char('0'));
}

} // namespace vanto
