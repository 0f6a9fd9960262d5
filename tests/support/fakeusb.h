#pragma once

#include <QStringList>

#include <cstdint>

namespace vanto
{

/// A USB serial adapter as the system describes it.
struct FakeAdapter {
    QString name = {}; ///< "ttyUSB0"
    QString serialNumber = {};
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0005;
    /// The pseudo-terminal that opens in its place, or a link to it; none if it is never opened.
    QString port = {};
};

/// Plugs in USB serial adapters by adding what the kernel and udev write about them. Works only in
/// tests that fakeusb.sh runs; adapters of the computer do not exist there. The destructor unplugs
/// all.
class FakeUsb
{
public:
    FakeUsb() = default;
    ~FakeUsb();
    FakeUsb(const FakeUsb&) = delete;
    FakeUsb& operator=(const FakeUsb&) = delete;

    /// Whether fakeusb.sh runs this program. Adapters are plugged in only then.
    static bool isAvailable();
    void plugIn(const FakeAdapter& adapter);
    void unplug(const QString& name);

private:
    QStringList m_names;
};

} // namespace vanto
