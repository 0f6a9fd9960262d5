// One exchange by the adapter, as a whole process: what vantoctl is compared with.
// usage: bench_bare_exchange PORT NODE

#include "handcall.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    using namespace vanto; // NOLINT(google-build-using-namespace): the whole program
    const QCoreApplication application(argc, argv);
    if (argc < 3)
        return 2;
    const auto adapter =
        VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, SerialCtrlMajorVersion, 0);
    if (!adapter->connect(argv[1], BaudRate))
        return 4;
    std::uint16_t current = 0;
    const LineHold line;
    const auto node = static_cast<std::uint8_t>(std::atoi(argv[2]));
    const std::uint8_t result = adapter->getFingerCurrent(node, 0, &current);
    adapter->disconnect();
    std::printf("%d\n", current);
    return result == ResultCode::Success ? 0 : 3;
}
