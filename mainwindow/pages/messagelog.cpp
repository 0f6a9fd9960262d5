#include "messagelog.h"

#include <algorithm>

namespace vanto
{

namespace
{
/// A page that reads six fingers in turn can repeat up to six errors.
constexpr int ErrorsInTurn = 6;

QString timeText(const QTime& time)
{
    return time.toString(QStringLiteral("HH:mm:ss.zzz"));
}

/// The boot loader's own texts can contain any characters.
QString onSingleLine(QString text)
{
    for (QChar& c : text)
        if (c.isSpace() || !(c.isPrint() || c.isSurrogate()))
            c = QLatin1Char(' ');
    return text;
}
} // namespace

QString MessageLog::Entry::line() const
{
    QString once = timeText(first) + QLatin1String(kind == Kind::Error ? " ! " : "   ") + text;
    if (count == 1)
        return once;
    return once + QLatin1Char(' ') +
           tr("(x %1), last %2").arg(QString::number(count), timeText(last));
}

void MessageLog::add(Kind kind, const QString& text)
{
    const QString single = onSingleLine(text);
    const QTime now = QTime::currentTime();
    if (const int index = findRepeated(kind, single); index >= 0) {
        Entry& entry = m_entries[index];
        ++entry.count;
        entry.last = now;
        emit sig_repeated(index, entry.line());
        return;
    }
    if (m_entries.size() == Capacity)
        m_entries.removeFirst();
    m_entries.append({kind, single, now, now});
    emit sig_added(m_entries.constLast().line());
}

/// An error repeats one of the last errors if no other message has come since; otherwise an error
/// after a success would appear before it. Returns -1 if there is no such line.
int MessageLog::findRepeated(Kind kind, const QString& text) const
{
    const int end = static_cast<int>(m_entries.size());
    const int first = std::max(0, end - (kind == Kind::Error ? ErrorsInTurn : 1));
    for (int i = end - 1; i >= first && m_entries[i].kind == kind; --i)
        if (m_entries[i].text == text)
            return i;
    return -1;
}

QStringList MessageLog::lines() const
{
    QStringList lines;
    lines.reserve(m_entries.size());
    for (const Entry& entry : m_entries)
        lines.append(entry.line());
    return lines;
}

} // namespace vanto
