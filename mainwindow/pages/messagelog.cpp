#include "messagelog.h"

namespace vanto
{

void MessageLog::add(Kind kind, const QString& text)
{
    if (m_lines.size() == Capacity)
        m_lines.removeFirst();
    m_lines.append(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")) +
                   QLatin1String(kind == Kind::Error ? " ! " : "   ") + text);
    emit sig_added(m_lines.constLast());
}

} // namespace vanto
