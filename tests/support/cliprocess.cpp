#include "cliprocess.h"

#include "handprocess.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>

namespace vanto
{

namespace
{
constexpr int EndMs = 60'000; ///< generous, as sanitizers are slow on a busy machine
}

CliProcess::CliProcess(const HandProcess& hand, int patience)
{
    m_process.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    setVariable("VANTO_PORT", hand.portName());
    setVariable("VANTO_NODE", "2");
    setVariable("VANTO_PATIENCE", QString::number(patience));
    static const QTemporaryDir data; // of all tests of the process, for automatic backups
    setVariable("XDG_DATA_HOME", data.path());
}

CliProcess::~CliProcess()
{
    m_process.kill();
    m_process.waitForFinished(EndMs);
}

void CliProcess::setVariable(const QString& name, const QString& value)
{
    auto environment = m_process.processEnvironment();
    environment.insert(name, value);
    m_process.setProcessEnvironment(environment);
}

void CliProcess::start(const QString& words, const QByteArray& input)
{
    m_process.start(QCoreApplication::applicationDirPath() + "/vantoctl",
                    words.split(' ', Qt::SkipEmptyParts));
    m_process.waitForStarted(EndMs);
    if (!input.isEmpty()) {
        m_process.write(input);
        m_process.closeWriteChannel();
    }
}

void CliProcess::sendSignal(int number) const
{
    if (m_process.processId() > 0) // 0 would be the test and what it has started
        ::kill(static_cast<pid_t>(m_process.processId()), number);
}

bool CliProcess::hasPendingSignal() const
{
    QFile status(QString("/proc/%1/status").arg(m_process.processId()));
    static const QRegularExpression pending("ShdPnd:\\s*0*[1-9a-f]");
    return status.open(QIODevice::ReadOnly) &&
           QString::fromLatin1(status.readAll()).contains(pending);
}

CliProcess::Result CliProcess::finish()
{
    const bool ended =
        m_process.state() == QProcess::NotRunning || m_process.waitForFinished(EndMs);
    const bool exited = ended && m_process.exitStatus() == QProcess::NormalExit;
    return {exited ? m_process.exitCode() : -1,
            QString::fromUtf8(m_process.readAllStandardOutput()),
            QString::fromUtf8(m_process.readAllStandardError())};
}

CliProcess::Result CliProcess::run(const QString& words, const QByteArray& input)
{
    start(words, input);
    m_process.closeWriteChannel();
    return finish();
}

} // namespace vanto
