#include "conversation.h"

namespace vanto
{

namespace
{
int s_depth = 0;
bool s_background = false;
bool s_exchanging = false;
bool s_abandoned = false;
} // namespace

Conversation::Conversation()
{
    ++s_depth;
}

Conversation::~Conversation()
{
    if (--s_depth > 0)
        return;
    s_background = false;
    emit ConversationMonitor::instance().sig_idle();
}

bool Conversation::isBackground()
{
    return s_background;
}

void Conversation::setBackground()
{
    s_background = true;
}

bool Conversation::isActive()
{
    return s_depth > 0;
}

ConversationMonitor& ConversationMonitor::instance()
{
    static ConversationMonitor monitor;
    return monitor;
}

Exchange::Exchange()
{
    Q_ASSERT_X(Conversation::isActive(), "Exchange", "no conversation holds the line");
    Q_ASSERT_X(!s_exchanging, "Exchange", "another exchange is under way");
    s_exchanging = true;
    s_abandoned = false;
}

Exchange::~Exchange()
{
    s_exchanging = false;
    s_abandoned = false;
}

bool Exchange::active()
{
    return s_exchanging;
}

void Exchange::abandon()
{
    s_abandoned = s_exchanging;
}

bool Exchange::abandoned()
{
    return s_abandoned;
}

} // namespace vanto
