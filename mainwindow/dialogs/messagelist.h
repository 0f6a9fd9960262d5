#pragma once

class QWidget;

namespace vanto
{

class MessageLog;

namespace MessageList
{
/// Opens the list of the latest messages, or raises it. The main window stays usable.
void show(const MessageLog* log, QWidget* window);
} // namespace MessageList

} // namespace vanto
