#include "deviceentry.h"

#include "bytesource.h"
#include "fuzz.h"

namespace vanto
{

namespace
{
/// Parsing the text of an entry must return its values.
void checkRoundTrip(ByteSource source)
{
    const bool modbus = source.take() % 2 != 0;
    DeviceEntry entry;
    entry.protocolName = modbus ? QStringLiteral("ModBus-RTU") : QStringLiteral("SerialCtrl");
    entry.node = source.take();
    entry.firmwareMajor = source.take();
    entry.firmwareMinor = source.take();
    entry.firmwareRevision = static_cast<std::uint16_t>(source.take() * 0x101);
    entry.protocolMajor = source.take();
    entry.protocolMinor = source.take();
    DeviceAddress address;
    check(parseDeviceEntry(entry.text(), address) == EntryError::None, "own text rejected");
    check(address.type == (modbus ? PROTOCOL_TYPE_MODBUS_RTU : PROTOCOL_TYPE_SERIALCTRL) &&
              address.major == entry.protocolMajor && address.minor == entry.protocolMinor,
          "the parsed device differs from the entry");
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    checkRoundTrip(ByteSource(std::span(data, size)));
    const QString text = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));
    DeviceAddress address;
    const EntryError fault = parseDeviceEntry(text, address);
    const bool hasProtocolName = text.contains(QLatin1StringView("SerialCtrl")) ||
                                 text.contains(QLatin1StringView("ModBus-RTU"));
    check(hasProtocolName == (fault != EntryError::UnknownProtocolType), "wrong protocol name");
    check(fault != EntryError::None || text.contains(QLatin1StringView("Protocol V")),
          "a version is not in the text");
    return 0;
}

} // namespace vanto
