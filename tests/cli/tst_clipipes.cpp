#include "calibration.h"
#include "clitest.h"
#include "testmain.h"

#include <array>
#include <csignal>

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vanto
{

/// The streams of vantoctl: a reader that stops reading, and a terminal.
class TestCliPipes : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup()
    {
        ::close(m_reader);
        close();
    }
    void blocked_data();
    void blocked();
    void blockedMonitor();
    void typedAhead();

private:
    static constexpr int PipeSize = 4096; ///< bytes, the smallest one

    /// Creates a pipe that nothing reads and returns its path.
    QString createPipe();
    bool isPipeFull() const
    {
        constexpr int longestLine = 200;
        int bytes = 0;
        return ioctl(m_reader, FIONREAD, &bytes) == 0 && bytes > PipeSize - longestLine;
    }

    int m_reader = -1;
};

QString TestCliPipes::createPipe()
{
    const QByteArray name = QByteArray(QTest::currentTestFunction()) + QTest::currentDataTag();
    const QByteArray pipe = path(name.constData()).toLatin1();
    mkfifo(pipe.constData(), S_IRUSR | S_IWUSR);
    m_reader = open(pipe.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    fcntl(m_reader, F_SETPIPE_SZ, PipeSize);
    return QString::fromLatin1(pipe);
}

void TestCliPipes::blocked_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("isError");
    QTest::addColumn<bool>("haltsAlone");
    QTest::newRow("move") << "move 1 60000 --speed 3 --wait --verbose" << true << false;
    QTest::newRow("play") << "play " EXAMPLES "/wave.json --repeat 99 --verbose" << true << false;
    QTest::newRow("batch") << "batch" << false << false;
    QTest::newRow("watchdog") << "batch --watchdog 2000" << false << true;
    QTest::newRow("end") << "batch" << false << true;
}

void TestCliPipes::blocked()
{
    QFETCH(QString, words);
    QFETCH(bool, isError);
    QFETCH(bool, haltsAlone);
    start();
    CliProcess cli(*m_hand);
    const QString pipe = createPipe();
    QVERIFY(m_reader >= 0);
    if (isError)
        cli.process().setStandardErrorFile(pipe);
    else
        cli.process().setStandardOutputFile(pipe);
    cli.start(words + " --protocol serialctrl");
    if (!isError)
        cli.process().write("2 move 1 60000 --speed 3\n" +
                            QByteArray("2 get current 1\n").repeated(200));
    if (qstrcmp(QTest::currentDataTag(), "end") == 0)
        cli.process().closeWriteChannel();
    QTRY_VERIFY_WITH_TIMEOUT(isPipeFull(), 20'000);
    if (isError) { // the currents are still read
        const auto polls = m_hand->frames({0x06}).size();
        QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({0x06}).size() > polls + 50, 20'000);
    }
    if (haltsAlone)
        QVERIFY(comesToRest());
    cli.sendSignal(SIGTERM);
    QCOMPARE(cli.finish().status, 130);
    QCOMPARE(m_hand->frames({0x4A}), QStringList{"4a 3f"});
    QVERIFY(comesToRest());
}

/// The samples for which there was no time are counted, however long the reader has stopped.
void TestCliPipes::blockedMonitor()
{
    start();
    CliProcess cli(*m_hand);
    const QString pipe = createPipe();
    QVERIFY(m_reader >= 0);
    QFile writer(pipe); // leaves room for two lines
    QVERIFY(writer.open(QFile::WriteOnly | QFile::Unbuffered));
    QCOMPARE(writer.write(QByteArray(PipeSize - 500, ' ')), qint64{PipeSize - 500});
    cli.process().setStandardOutputFile(pipe);
    const auto result = cli.run("monitor --rate 100 --for 3 --format jsonl "
                                "--fields current,position,angle,force");
    QCOMPARE(result.status, 0);
    QVERIFY(isPipeFull());
    const QStringList words = result.errors.split(' '); // "9 samples in 3.000 s, 291 late"
    const double samples = words.value(0).toDouble() + words.value(5).toDouble();
    QVERIFY2(samples > 100 * 3 - 20, qPrintable(result.errors));
}

/// Keys that were typed before a question do not answer it.
void TestCliPipes::typedAhead()
{
    start();
    writeFile(path("key"), "1234\n");
    int terminal = -1;
    std::array<char, 256> name{};
    QCOMPARE(openpty(&m_reader, &terminal, name.data(), nullptr, nullptr), 0);
    const auto type = [this](QByteArrayView keys) {
        return ::write(m_reader, keys.data(), static_cast<std::size_t>(keys.size())) == keys.size();
    };
    QVERIFY(type("\n\n"));
    CliProcess cli(*m_hand);
    cli.process().setStandardInputFile(QString::fromLatin1(name.data()));
    cli.start("calibrate --no-backup --protocol serialctrl --key-file " + path("key"));
    QByteArray prompts;
    const auto shows = [&](const QString& prompt) {
        prompts += cli.process().readAllStandardError();
        return prompts.contains(prompt.toUtf8());
    };
    QTRY_VERIFY_WITH_TIMEOUT(shows(Calibration::promptText(Calibration::Prompt::Prepare)), 20'000);
    QVERIFY(type("\n\n\n"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(Calibration::promptText(Calibration::Prompt::BeforeReboot)),
                             20'000);
    QVERIFY(type("\x04")); // the end of the input
    QCOMPARE(cli.finish().status, 2);
    ::close(terminal);
    QVERIFY(writes().isEmpty());
}

VANTO_TEST(TestCliPipes)

} // namespace vanto

#include "tst_clipipes.moc"
