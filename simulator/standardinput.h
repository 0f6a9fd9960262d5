#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace vanto
{

// Lines of standard input as signals, without blocking.
class StandardInput : public QObject
{
    Q_OBJECT

public:
    explicit StandardInput(QObject* parent = nullptr);

signals:
    void line(const QString& text);
    void ended();

private:
    void readAvailable();
    void emitLines();

    QSocketNotifier m_readable;
    QByteArray m_pending;
};

// SIGINT, SIGTERM and SIGHUP as a signal of the event loop; made before any other thread.
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
