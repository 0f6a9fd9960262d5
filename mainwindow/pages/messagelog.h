#pragma once

#include <QObject>
#include <QStringList>
#include <QTime>

namespace vanto
{

/// The latest messages of the status bar, which shows each for two seconds only.
class MessageLog : public QObject
{
    Q_OBJECT
public:
    static constexpr int Capacity = 200;
    enum class Kind { Message, Error };

    explicit MessageLog(QObject* parent) : QObject(parent) {}

    void add(Kind kind, const QString& text);
    /// A line for each message, oldest first: the time, a mark for an error, and the text.
    const QStringList& lines() const { return m_lines; }

signals:
    void sig_added(const QString& line);

private:
    QStringList m_lines;
};

} // namespace vanto
