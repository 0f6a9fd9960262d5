#include "vantoprotocol.h"

namespace vanto
{

VantoProtocol::~VantoProtocol() = default;

} // namespace vanto
