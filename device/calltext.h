#pragma once

#include "handcall.h"

#include <QString>

namespace vanto
{

/// The texts for operations that have failed.
namespace CallText
{
QString timeout(const HandTarget& target);
QString failure(const HandTarget& target, std::string_view operation, std::uint8_t result,
                std::uint8_t subError);
/// For a motion that is refused after a halt.
QString halted();
QString portLost();
QString noHand(unsigned node);
QString portNotOpened(const QString& port, PROTOCOL_TYPE protocol);

/// Hexadecimal, lower case, at least two digits.
QString hex(unsigned number);
} // namespace CallText

} // namespace vanto
