#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace vanto
{

/// Reads lines from standard input without blocking.
class StandardInput : public QObject
{
    Q_OBJECT

public:
    explicit StandardInput(QObject* parent = nullptr);

signals:
    void lineRead(const QString& text);
    void closed();

private:
    void readAvailable();
    void emitLines();

    QSocketNotifier m_readable;
    QByteArray m_pending;
};

/// Reports SIGINT, SIGTERM and SIGHUP as a Qt signal. Must be created before any other thread.
class TerminationWatch : public QObject
{
    Q_OBJECT

public:
    explicit TerminationWatch(QObject* parent = nullptr);
    ~TerminationWatch() override;

signals:
    void requested();

private:
    int m_descriptor;
    QSocketNotifier m_readable;
};

} // namespace vanto
