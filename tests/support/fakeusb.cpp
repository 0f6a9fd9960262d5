#include "fakeusb.h"

#include <QDir>
#include <QFile>

namespace vanto
{

namespace
{
constexpr int UsbSerialMajor = 188; ///< of the device numbers

QString deviceFolder(const QString& name)
{
    return QStringLiteral("/sys/devices/fake/") + name;
}

QString classLink(const QString& name)
{
    return QStringLiteral("/sys/class/tty/") + name;
}

QString node(const QString& name)
{
    return QStringLiteral("/dev/") + name;
}

int minorNumber(const QString& name)
{
    return name.mid(QStringLiteral("ttyUSB").size()).toInt();
}

QString databaseFile(const QString& name)
{
    return QStringLiteral("/run/udev/data/c%1:%2").arg(UsbSerialMajor).arg(minorNumber(name));
}

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

void link(const QString& target, const QString& path)
{
    if (!QFile::link(target, path))
        qFatal("cannot link %s", qPrintable(path));
}

QString databaseText(const FakeAdapter& adapter)
{
    QString text = QStringLiteral("E:ID_BUS=usb\n"
                                  "E:ID_VENDOR=Example_Works\n"
                                  "E:ID_MODEL=Serial_Adapter\n"
                                  "E:ID_VENDOR_ID=%1\n"
                                  "E:ID_MODEL_ID=%2\n")
                       .arg(adapter.vendor, 4, 16, QLatin1Char('0'))
                       .arg(adapter.product, 4, 16, QLatin1Char('0'));
    if (!adapter.serialNumber.isEmpty())
        text += QStringLiteral("E:ID_SERIAL_SHORT=%1\n").arg(adapter.serialNumber);
    return text;
}
} // namespace

FakeUsb::~FakeUsb()
{
    for (const QString& name : QStringList(m_names)) // unplug() changes it
        unplug(name);
}

bool FakeUsb::isAvailable()
{
    return qEnvironmentVariableIsSet("VANTO_FAKE_USB");
}

void FakeUsb::plugIn(const FakeAdapter& adapter)
{
    if (!isAvailable())
        qFatal("only fakeusb.sh can run tests with adapters");
    m_names.append(adapter.name);
    const QString device = deviceFolder(adapter.name);
    const QString tty = device + QStringLiteral("/tty/") + adapter.name;
    QDir().mkpath(tty);
    write(device + QStringLiteral("/uevent"), QStringLiteral("DRIVER=fake\n"));
    link(QStringLiteral("/sys/bus/usb-serial"), device + QStringLiteral("/subsystem"));
    link(QStringLiteral("/sys/bus/usb-serial/drivers/fake"), device + QStringLiteral("/driver"));
    write(tty + QStringLiteral("/uevent"), QStringLiteral("MAJOR=%1\nMINOR=%2\nDEVNAME=%3\n")
                                               .arg(UsbSerialMajor)
                                               .arg(minorNumber(adapter.name))
                                               .arg(adapter.name));
    link(QStringLiteral("/sys/class/tty"), tty + QStringLiteral("/subsystem"));
    write(databaseFile(adapter.name), databaseText(adapter));
    if (!adapter.port.isEmpty())
        link(adapter.port, node(adapter.name));
    // The list of ports starts with this link. Another thread may be reading it.
    link(tty, classLink(adapter.name));
}

void FakeUsb::unplug(const QString& name)
{
    m_names.removeOne(name);
    for (const QString& path : {classLink(name), node(name), databaseFile(name)})
        QFile::remove(path);
    QDir(deviceFolder(name)).removeRecursively();
}

} // namespace vanto
