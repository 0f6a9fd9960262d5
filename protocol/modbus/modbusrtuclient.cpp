#include "modbusrtuclient.h"

#include "modbusrtuclientqt.h"

#include <string_view>

namespace vanto
{

ModBusRTUClient::~ModBusRTUClient() = default;

std::shared_ptr<ModBusRTUClient> ModBusRTUClient::create(const char* name)
{
    if (!name || std::string_view(name) != "qtmodbus")
        return {};
    return std::make_shared<ModBusRTUClientQT>();
}

} // namespace vanto
