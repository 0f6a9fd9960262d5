#include "alternatetest.h"

#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <array>
#include <cstdio>

namespace vanto
{

namespace
{
constexpr int ProgramTimeoutMs = 60'000;
constexpr int KillOneIn = 8;
constexpr int LongestUseMs = 600; ///< until a program is killed; a window needs about so long
constexpr int NodeOfHand = 1;
constexpr std::array ProgramNames{"vantoctl", "window"};

/// The lock files of a port, in the folder that QSerialPort uses.
QStringList lockFiles(const QString& port)
{
    const QString target = QFileInfo(port).canonicalFilePath();
    QStringList found;
    for (const QString& name : QDir(QStringLiteral("/var/lock"))
                                   .entryList({QStringLiteral("LCK*")}, QDir::Files | QDir::Hidden))
        for (QString path : {port, target}) {
            path.remove(QStringLiteral("/dev/"));
            if (name == QStringLiteral("LCK..") + path.replace(QLatin1Char('/'), QLatin1Char('_')))
                found.append(name);
        }
    return found;
}

class Alternation
{
public:
    Alternation(std::uint32_t seed, QString protocol, QString patience)
        : m_random(seed), m_protocol(std::move(protocol)), m_patience(std::move(patience))
    {
    }

    bool start()
    {
        return m_hand.start(
            {QStringLiteral("--node"), QStringLiteral("%1:%2").arg(NodeOfHand).arg(m_protocol)});
    }
    void useOnce(int program);
    int printSummary(int count, std::uint32_t seed) const;

private:
    void startProgram(QProcess& child, int program) const;
    void addFinding(int program, const QString& what);
    void checkEnd(QProcess& child, int program);

    QRandomGenerator m_random;
    QString m_protocol;
    QString m_patience;
    HandProcess m_hand;
    std::array<int, ProgramNames.size()> m_ended{};
    std::array<int, ProgramNames.size()> m_killed{};
    int m_locksOfKilled = 0;
    bool m_mayBeLocked = false; ///< the lock file of a killed program may still be there
    qint64 m_longestMs = 0;
    int m_findings = 0;
};

void Alternation::startProgram(QProcess& child, int program) const
{
    const QString port = m_hand.portName();
    if (program == 0)
        child.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vantoctl"),
                    {QStringLiteral("--port"), port, QStringLiteral("--node"),
                     QString::number(NodeOfHand), QStringLiteral("--protocol"), m_protocol,
                     QStringLiteral("--patience"), m_patience, QStringLiteral("info")});
    else
        child.start(
            QCoreApplication::applicationFilePath(),
            {QStringLiteral("--open-port"), port, QStringLiteral("--patience"), m_patience});
}

void Alternation::useOnce(int program)
{
    QProcess child;
    QElapsedTimer timer;
    timer.start();
    startProgram(child, program);
    if (m_random.bounded(KillOneIn) == 0) {
        child.waitForStarted(ProgramTimeoutMs);
        QThread::msleep(static_cast<unsigned long>(m_random.bounded(LongestUseMs)));
        const bool runs = child.state() == QProcess::Running;
        child.kill();
        child.waitForFinished(ProgramTimeoutMs);
        if (runs && child.exitStatus() == QProcess::CrashExit) {
            ++m_killed.at(static_cast<std::size_t>(program));
            m_mayBeLocked = !lockFiles(m_hand.portName()).isEmpty();
            m_locksOfKilled += m_mayBeLocked;
            return;
        }
    }
    checkEnd(child, program);
    m_longestMs = std::max(m_longestMs, timer.elapsed());
}

/// Also after a program was killed, the next one must open the port and remove the lock file.
void Alternation::checkEnd(QProcess& child, int program)
{
    const bool ended =
        child.state() == QProcess::NotRunning || child.waitForFinished(ProgramTimeoutMs);
    ++m_ended.at(static_cast<std::size_t>(program));
    if (!ended || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        addFinding(program, QStringLiteral("status %1: %2")
                                .arg(ended ? child.exitCode() : -1)
                                .arg(QString::fromUtf8(child.readAllStandardError()).trimmed()));
    const QStringList locks = lockFiles(m_hand.portName());
    if (!locks.isEmpty())
        addFinding(program, QStringLiteral("%1 was left behind").arg(locks.join(u' ')));
    m_mayBeLocked = false;
}

void Alternation::addFinding(int program, const QString& what)
{
    ++m_findings;
    std::printf("FINDING: %s%s: %s\n", ProgramNames.at(static_cast<std::size_t>(program)),
                m_mayBeLocked ? ", after a program was killed" : "", qPrintable(what));
}

int Alternation::printSummary(int count, std::uint32_t seed) const
{
    std::printf("%s, seed %u: port opened %d times, %d times by vantoctl and %d times by the "
                "window to their end, %d and %d were killed, %d of them with a lock file, longest "
                "use %lld ms, %d findings\n",
                qPrintable(m_protocol), seed, count, m_ended[0], m_ended[1], m_killed[0],
                m_killed[1], m_locksOfKilled, m_longestMs, m_findings);
    return m_findings == 0 ? 0 : 1;
}
} // namespace

int AlternateTest::run(int count, std::uint32_t seed, const QString& protocol,
                       const QString& patience)
{
    Alternation alternation(seed, protocol, patience);
    if (!alternation.start())
        return 2;
    for (int i = 0; i < count; ++i)
        alternation.useOnce(i % static_cast<int>(ProgramNames.size()));
    return alternation.printSummary(count, seed);
}

int AlternateTest::openOnce(const QString& port)
{
    const WindowDriver driver({port});
    const DialogWatch dialogs([](QDialog& dialog) {
        if (const auto* box = qobject_cast<QMessageBox*>(&dialog))
            std::fprintf(stderr, "%s\n", qPrintable(box->text()));
        dialog.reject();
    });
    driver.openHand(port);
    const QString state = driver.find<QLabel>(QStringLiteral("label_ConnectionState"))->text();
    const bool opened = state == QLatin1String("Connected");
    if (!opened)
        std::fprintf(stderr, "%s: %s\n", qPrintable(state), qPrintable(driver.errorText()));
    return opened ? 0 : 1;
}

} // namespace vanto
