#include "clitest.h"
#include "testmain.h"

#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vanto
{

/// A reader of an output of vantoctl that stops reading must not keep fingers moving.
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
    const QByteArray pipe = path(QTest::currentDataTag()).toLatin1();
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
    QTest::newRow("watchdog") << "batch --watchdog 300" << false << true;
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
    QTRY_VERIFY_WITH_TIMEOUT(isPipeFull(), 20'000);
    if (isError) { // the currents are still read
        const auto polls = m_hand->frames({0x06}).size();
        QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({0x06}).size() > polls + 50, 20'000);
    }
    if (haltsAlone)
        QTRY_COMPARE_WITH_TIMEOUT(m_hand->command("get 2 moving 1"), "ok 0", 20'000);
    cli.sendSignal(SIGTERM);
    QCOMPARE(cli.finish().status, 130);
    QCOMPARE(m_hand->frames({0x4A}), QStringList{"4a 3f"});
    QCOMPARE(m_hand->command("get 2 moving 1"), "ok 0");
}

VANTO_TEST(TestCliPipes)

} // namespace vanto

#include "tst_clipipes.moc"
