#pragma once

#include "bus.h"
#include "chatter.h"

namespace vanto::simulator
{

/// Executes the commands of a user or a test, one per line.
class Control : public QObject
{
    Q_OBJECT

public:
    Control(Bus& bus, Line& line, QObject* parent = nullptr);

    /// Returns the answer; its last line starts with "ok" or "error: ".
    QString execute(const QString& command);

    static QString help();

signals:
    void quitRequested();

private:
    struct Entry;
    static const Entry Entries[];

    QString fault(const QStringList& words);
    QString clear(const QStringList& words);
    QString hang(const QStringList& words);
    QString chatter(const QStringList& words);
    QString unplug(const QStringList& words);
    QString replug(const QStringList& words);
    QString powerCycle(const QStringList& words);
    QString set(const QStringList& words);
    QString get(const QStringList& words);
    QString stats(const QStringList& words);
    QString boot(const QStringList& words);
    QString image(const QStringList& words);
    QString showHelp(const QStringList& words);
    QString quit(const QStringList& words);

    Hand* findNode(const QString& word);

    Bus& m_bus;
    Line& m_line;
    Chatter m_chatter;
};

} // namespace vanto::simulator
