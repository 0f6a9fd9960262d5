#include "vantoprotocol.h"

VantoProtocol::~VantoProtocol() = default;
