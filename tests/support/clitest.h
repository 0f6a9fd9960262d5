#pragma once

#include "cliprocess.h"
#include "handprocess.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace vanto
{

/// Base class of tests that run vantoctl against simulated hands.
class CliTest : public QObject
{
    Q_OBJECT
protected:
    void start(const QStringList& options = {"--node", "2"});
    /// Checks that no exchanges overlapped, then ends the hands.
    void close();

    /// The motions that have been sent to SerialCtrl hands.
    QStringList motions() const { return m_hand->frames({0x4C, 0x4D, 0x50, 0x51}); }
    /// The SerialCtrl frames that write.
    QStringList writes() const;
    /// Waits until finger 1 does not move. A halt lets it return slowly to where it was found, and
    /// may write a second target, so that it moves once more.
    bool comesToRest(int node = 2) const;
    /// For programs that find vantoctl by its name.
    QProcessEnvironment environment() const;
    static void writeFile(const QString& path, const QByteArray& content);
    QString path(const char* file) const { return m_folder.filePath(file); }

    std::unique_ptr<HandProcess> m_hand;
    QTemporaryDir m_folder;
};

} // namespace vanto
