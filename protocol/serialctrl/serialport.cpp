#include "serialport.h"

#include "serialportqt.h"

#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vanto
{

namespace
{
std::mutex s_portsMutex;

std::map<std::string, std::shared_ptr<SerialPort>, std::less<>>& ports()
{
    static std::map<std::string, std::shared_ptr<SerialPort>, std::less<>> _ports;
    return _ports;
}
} // namespace

SerialPort::~SerialPort() = default;

std::shared_ptr<SerialPort> SerialPort::get(const char* type, const char* name)
{
    const std::lock_guard lock(s_portsMutex);
    if (!name)
        throw std::logic_error("basic_string: construction from null is not valid");
    auto& _ports = ports();
    if (const auto known = _ports.find(name); known != _ports.end())
        return known->second;
    if (!type || std::string_view(type) != "qtserial")
        return {};
    return _ports.emplace(name, std::make_shared<SerialPortQT>()).first->second;
}

} // namespace vanto
