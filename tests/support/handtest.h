#pragma once

#include "handprocess.h"
#include "windowdriver.h"

/// A test of the real window against simulated hands on a real serial device.
class HandTest : public QObject
{
    Q_OBJECT
protected:
    /// Starts the hands; scans until `hands` are found, if any, and opens the first.
    void open(const QStringList& options = {"--node", "2"}, int hands = 1);
    /// Forgets frames and texts until now.
    void forget();
    /// No two exchanges may have overlapped.
    void close();

    /// Gives the hands a command that they must accept.
    void tell(const QString& command) const;
    /// Command and payload of each request, e.g. "62 f401"; only those in `commands` if given.
    QStringList frames(const QList<int>& commands = {}) const;
    /// Register and values of each Modbus write, e.g. "1010: 01f4".
    QStringList writes() const;
    /// Node and command of each request, e.g. "02:62".
    QStringList addressed() const;
    QStringList shown() const { return m_tool->shownTexts(); }

    std::unique_ptr<HandProcess> m_hand;
    std::unique_ptr<WindowDriver> m_tool;
};
