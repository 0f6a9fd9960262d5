#pragma once

#include <QObject>
#include <QString>
#include <QTime>

#include <deque>

class QWidget;

/// The latest messages of the status bar, which shows each for two seconds only.
class MessageLog : public QObject
{
    Q_OBJECT
public:
    static constexpr int Capacity = 200;

    explicit MessageLog(QObject* parent) : QObject(parent) {}

    void add(const QString& text, bool isError);
    /// Opens the list: a line each, oldest first, with time and a mark if it is an error. The
    /// window stays usable beside it.
    void show(QWidget* window);

signals:
    void sig_added(const QString& line);

private:
    struct Message {
        QTime time;
        QString text;
        bool isError;
    };

    static QString lineOf(const Message& message);

    std::deque<Message> m_messages;
};
