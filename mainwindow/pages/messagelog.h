#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QTime>

namespace vanto
{

/// The latest messages of the status bar, which shows each for two seconds only. A repeated message
/// is counted in the line of the first one.
class MessageLog : public QObject
{
    Q_OBJECT
public:
    static constexpr int Capacity = 1000;
    enum class Kind { Message, Error };

    explicit MessageLog(QObject* parent) : QObject(parent) {}

    void add(Kind kind, const QString& text);
    /// Oldest first: the time, a mark for an error and the text; after a repetition also the number
    /// and the time of the last one.
    QStringList lines() const;

signals:
    void sig_added(const QString& line);
    /// The line at `index` has changed.
    void sig_repeated(int index, const QString& line);

private:
    struct Entry {
        Kind kind;
        QString text; ///< on a single line
        QTime first;
        QTime last;
        int count = 1;

        QString line() const;
    };

    int findRepeated(Kind kind, const QString& text) const;

    QList<Entry> m_entries;
};

} // namespace vanto
