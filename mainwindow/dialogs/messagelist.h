#pragma once

class QWidget;

namespace vanto
{

class MessageLog;

namespace MessageList
{
/// Opens the list of the latest messages, or raises it. The window stays usable beside it.
void show(const MessageLog* log, QWidget* window);
} // namespace MessageList

} // namespace vanto
