#pragma once

#include <QObject>
#include <QStringList>
#include <QTime>

#include <deque>

class QWidget;

/// The latest messages of the status bar, which shows each for two seconds only.
class MessageLog : public QObject
{
    Q_OBJECT
public:
    static constexpr std::size_t Capacity = 200;

    explicit MessageLog(QObject* parent) : QObject(parent) {}

    void add(const QString& text, bool isError);
    /// One line each, oldest first: time, a mark if it is an error, text.
    QStringList lines() const;
    /// Opens the list. The window stays usable beside it.
    void show(QWidget* window);

signals:
    void sig_changed();

private:
    struct Message {
        QTime time;
        QString text;
        bool isError;
    };

    std::deque<Message> m_messages;
};
