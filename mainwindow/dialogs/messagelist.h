#pragma once

class QWidget;

namespace vanto
{

class MessageLog;

namespace MessageList
{
/// Opens the modeless dialog that lists the latest messages, or raises it if it is open.
void show(const MessageLog* log, QWidget* window);
} // namespace MessageList

} // namespace vanto
