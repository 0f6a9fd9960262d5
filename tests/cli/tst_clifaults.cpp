#include "clitest.h"
#include "testmain.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vanto
{

namespace
{
/// How a fault shows in the exit status of a command.
enum class CommandKind {
    Read,  ///< it only reads
    Write, ///< its first request writes
    Set,   ///< it reads, writes and reads back
    Scan
};

struct FaultedCommand {
    CommandKind kind;
    const char* words; ///< %1: the folder of the test
    int skip = 0;      ///< requests before a fault in the middle; 0: most of an undisturbed run
    const char* input = "";
};

/// Those that a line of batch can contain.
constexpr FaultedCommand batchRows[] = {
    {CommandKind::Read, "get current 2"},
    {CommandKind::Read, "get currentLimit 2"},
    {CommandKind::Read, "info"},
    {CommandKind::Set, "set currentLimit 2 300"},
    {CommandKind::Set, "set gains 1 1 2 3 4"},
    {CommandKind::Write, "move 1 2000"},
    {CommandKind::Write, "pose 9 9 9 9 9 9"},
    {CommandKind::Write, "beep"},
    {CommandKind::Write, "init"},
    {CommandKind::Write, "reset"},
    {CommandKind::Write, "set-id 9"},
};

constexpr FaultedCommand otherRows[] = {
    {CommandKind::Write, "play %1/step.json", 3},
    {CommandKind::Read, "monitor --rate 1 --for 0.2 --fields current,position"},
    {CommandKind::Read, "backup %1/new.json"},
    {CommandKind::Read, "restore %1/hand.json"},
    {CommandKind::Read, "diff %1/hand.json"},
    {CommandKind::Write, "calibrate --yes --no-backup --key-file %1/key"},
    {CommandKind::Scan, "scan --nodes 2"},
};

/// Tested only with a fault in the middle.
constexpr FaultedCommand middleRows[] = {
    {CommandKind::Write, "move 1 60000 --speed 9 --wait", 5},
    {CommandKind::Write, "pose 9 9 60000 9 9 9 --speeds 9 --wait", 5},
    {CommandKind::Write, "halt", 3},
    {CommandKind::Write, "continue", 3},
    {CommandKind::Read, "report %1/report.json"},
    {CommandKind::Write, "batch", 0, "2 get current 0\n2 beep\n2 set currentLimit 2 300\n2 info\n"},
};

struct FaultRow {
    const char* fault;
    const char* serialCtrl; ///< exit status of a read, a write, a set and a scan
    const char* modbus;
    int subError = 0;
};

// A damaged reply to a write still confirms it if only its payload is wrong. Over Modbus a refusal
// and an invalid reply look the same.
constexpr FaultRow faultRows[] = {
    {"hang", "3333", "3333"},
    {"drop", "3333", "3333"},
    {"late ms=60000", "3333", "3333"},
    {"garble", "3333", "3333"},
    {"truncate", "3333", "3333"},
    {"wrong-node", "3333", "3333"},
    {"wrong-command", "3333", "3333"},
    {"over-long", "3013", "1333"},
    {"short", "3013", "1333"},
    {"noise", "0000", "3333"},
    {"garbage", "3333", "3333"},
    {"refuse error=0x21", "1113", "1113", 0x21},
    {"refuse-bare error=0", "1113", "3333"},
    {"wrong-finger", "3010", "3033"},
    {"wrong-host", "3333", ""}, // Modbus frames contain no host
};

/// The tables wait for many time-outs, so CTest runs parts of them side by side.
bool isIncluded(bool modbus)
{
    return qEnvironmentVariable("VANTO_FAULTS_OVER") != (modbus ? "SerialCtrl" : "Modbus");
}

constexpr const char* Step =
    R"({"version":1,"position_type":"position","sequences":[{"delay":1,"position":[900],"speed":[255]},
       {"delay":1,"position":[0],"speed":[255]}]})";
} // namespace

/// Every fault of a hand or of the line, for every command that talks to a hand.
class TestCliFaults : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void faults_data();
    void faults();
    void haltFaults();
    void middle_data();
    void middle();

private:
    void startHand(bool modbus);
    void arm(const QString& fault);
    QString words(const FaultedCommand& row, bool modbus) const;
    bool repeatsWrite(bool modbus) const;
    void checkFailure(const FaultedCommand& row, bool modbus,
                      const CliProcess::Result& result) const;
    void checkBatch(const FaultRow& row, bool modbus, int patience);
};

/// A hand whose current limits differ from those in its file.
void TestCliFaults::startHand(bool modbus)
{
    start({"--node", modbus ? "2:modbus" : "2", "--speed", "50"});
    writeFile(path("key"), "1A2B");
    writeFile(path("step.json"), Step);
    if (!QFile::exists(path("hand.json")))
        QCOMPARE(CliProcess(*m_hand)
                     .run(words({CommandKind::Read, "backup %1/hand.json"}, modbus))
                     .status,
                 0);
    m_hand->command("set 2 reboot-time 0");
    for (int finger = 0; finger < 6; ++finger)
        m_hand->command(QString("set 2 current-limit %1 77").arg(finger));
    m_hand->clearTrace();
}

void TestCliFaults::arm(const QString& fault)
{
    m_hand->command("clear");
    const QString answer = m_hand->command(fault == "hang" ? fault : "fault " + fault);
    QVERIFY2(answer == "ok", qPrintable(answer));
    m_hand->clearTrace();
}

QString TestCliFaults::words(const FaultedCommand& row, bool modbus) const
{
    return QString(row.words).replace("%1", m_folder.path()) + " --quiet --protocol " +
           (modbus ? "modbus" : "serialctrl");
}

/// Over Modbus a request is sent again once if no reply comes.
bool TestCliFaults::repeatsWrite(bool modbus) const
{
    const QStringList frames = modbus ? m_hand->modbusWrites() : writes();
    return std::ranges::any_of(
        frames, [&](const QString& frame) { return frames.count(frame) > (modbus ? 2 : 1); });
}

void TestCliFaults::checkFailure(const FaultedCommand& row, bool modbus,
                                 const CliProcess::Result& result) const
{
    const QByteArray text = row.words + QByteArray(": ") + QByteArray::number(result.status) + ' ' +
                            result.errors.toUtf8() + m_hand->frames().join('|').toUtf8();
    QVERIFY2(result.status == 3, text.constData());
    QVERIFY2(result.errors.startsWith("vantoctl: ") && result.errors.count('\n') == 1,
             text.constData());
    const bool halts = row.words == QString("halt") || row.words == QString("continue");
    QVERIFY2(halts || !repeatsWrite(modbus), text.constData());
}

void TestCliFaults::faults_data()
{
    QTest::addColumn<const FaultRow*>("row");
    QTest::addColumn<bool>("modbus");
    for (const FaultRow& row : faultRows)
        for (const bool modbus : {false, true})
            if (isIncluded(modbus) && *(modbus ? row.modbus : row.serialCtrl) != 0)
                QTest::addRow("%s %s", row.fault, modbus ? "modbus" : "serialctrl")
                    << &row << modbus;
}

void TestCliFaults::faults()
{
    QFETCH(const FaultRow*, row);
    QFETCH(bool, modbus);
    startHand(modbus);
    const QString statuses = modbus ? row->modbus : row->serialCtrl;
    // Where the hand answers, a busy machine must not look like silence.
    const int patience = statuses == "3333" ? 1 : modbus && statuses.count('3') > 1 ? 3 : 40;
    arm(QString(row->fault) + (row->fault == QString("hang") ? "" : " count=0"));
    for (const FaultedCommand& each : otherRows) {
        const int status = statuses[static_cast<int>(each.kind)].digitValue();
        if (each.kind == CommandKind::Write && status == 0)
            continue; // the fault has no effect on it
        m_hand->clearTrace();
        const auto result = CliProcess(*m_hand, patience).run(words(each, modbus));
        if (status == 3)
            checkFailure(each, modbus, result);
        QVERIFY2(result.status == status, qPrintable(each.words + (": " + result.errors)));
        QCOMPARE(result.errors.count('\n'), status == 0 ? 0 : 1);
        QVERIFY(status == 0 || each.kind == CommandKind::Write ||
                (writes() + m_hand->modbusWrites()).isEmpty());
    }
    QCOMPARE(QFile::remove(path("new.json")), statuses[0] == '0');
    checkBatch(*row, modbus, patience);
}

void TestCliFaults::checkBatch(const FaultRow& row, bool modbus, int patience)
{
    const bool hangs = row.fault == QString("hang");
    CliProcess batch(*m_hand, patience);
    batch.start(words({CommandKind::Read, "batch"}, modbus));
    bool isSilent = false;
    for (const FaultedCommand& each : batchRows) {
        const int status =
            QString(modbus ? row.modbus : row.serialCtrl)[static_cast<int>(each.kind)].digitValue();
        isSilent = isSilent || status == 3;
        // The hand must answer under its new id. Over Modbus a request is sent twice.
        const QString count = each.words != QString("set-id 9") ? "0" : modbus ? "2" : "1";
        arm(row.fault + (hangs ? QString() : " count=" + count));
        batch.process().write(QByteArray("2 ") + each.words + '\n');
        QTRY_VERIFY_WITH_TIMEOUT(
            (batch.process().waitForReadyRead(1), batch.process().canReadLine()), 60'000);
        const QByteArray line = batch.process().readLine();
        const auto answer = QJsonDocument::fromJson(line).object();
        const QByteArray text = each.words + QByteArray(": ") + line;
        QVERIFY2(answer["status"].toInt(-1) == status, text.constData());
        QVERIFY2(answer["error"].toString().isEmpty() == (status == 0), text.constData());
        QVERIFY2(row.subError == 0 || modbus || each.words == QString("info") ||
                     answer["subError"].toInt() == row.subError,
                 text.constData());
        QVERIFY2(!repeatsWrite(modbus), text.constData());
    }
    m_hand->command(hangs ? "hang off" : "clear");
    batch.process().closeWriteChannel();
    QCOMPARE(batch.finish().status, isSilent ? 3 : 0);
}

/// A halt is repeated until it is confirmed or given up, so all of them run at the same time.
void TestCliFaults::haltFaults()
{
    struct Run {
        QByteArray name;
        std::unique_ptr<HandProcess> hand = std::make_unique<HandProcess>();
        std::unique_ptr<CliProcess> cli;
        int status = 0;
    };
    std::vector<Run> runs;
    for (const FaultRow& row : faultRows) {
        // A halt that fails polls for 3 s, so one fault of each kind has to do.
        if (!QStringList({"hang", "garble", "refuse error=0x21", "noise"}).contains(row.fault))
            continue;
        for (const FaultedCommand& each :
             {FaultedCommand{CommandKind::Write, "halt"}, {CommandKind::Write, "continue"}})
            for (const bool modbus : {false, true}) {
                const char* statuses = modbus ? row.modbus : row.serialCtrl;
                if (!isIncluded(modbus) || (modbus && each.words != QString("halt")))
                    continue; // over Modbus there is nothing to continue
                Run& run = runs.emplace_back();
                run.status = *statuses == '0' ? 0 : 3;
                run.name =
                    row.fault + QByteArray(modbus ? " modbus " : " serialctrl ") + each.words;
                QVERIFY(run.hand->start({"--node", modbus ? "2:modbus" : "2"}));
                run.hand->command(row.fault == QString("hang")
                                      ? "hang"
                                      : QString("fault %1 count=0").arg(row.fault));
                run.cli = std::make_unique<CliProcess>(*run.hand, run.status == 0 ? 40 : 1);
                run.cli->start(words(each, modbus));
            }
    }
    for (Run& run : runs) {
        const auto result = run.cli->finish();
        const QByteArray text = run.name + ": " + result.errors.toUtf8();
        QVERIFY2(result.status == run.status, text.constData());
        QVERIFY2(
            result.errors ==
                (run.status == 0 ? "" : "vantoctl: Halt not confirmed. Switch the power off.\n"),
            text.constData());
        QVERIFY2(run.hand->frames({0x49}).isEmpty() == (run.status != 0 || !run.name.endsWith("e")),
                 text.constData());
    }
}

void TestCliFaults::middle_data()
{
    QTest::addColumn<const FaultedCommand*>("row");
    QTest::addColumn<bool>("modbus");
    const auto add = [](const auto& table) {
        for (const FaultedCommand& row : table)
            for (const bool modbus : {false, true})
                // A calibration waits for the reboot of the hand, many times longer here.
                if (isIncluded(modbus) && !QByteArray(row.words).startsWith("calibrate") &&
                    (!modbus || row.words != QString("continue")))
                    QTest::addRow("%s %s", row.words, modbus ? "modbus" : "serialctrl")
                        << &row << modbus;
    };
    add(batchRows);
    add(otherRows);
    add(middleRows);
}

/// A reply that does not come in time, and a lost cable, after part of the requests of a command.
void TestCliFaults::middle()
{
    QFETCH(const FaultedCommand*, row);
    QFETCH(bool, modbus);
    int skip = row->skip;
    if (skip == 0) {
        startHand(modbus);
        QVERIFY(CliProcess(*m_hand).run(words(*row, modbus), row->input).status < 2);
        skip = static_cast<int>(3 * m_hand->requests().size() / 4);
        close();
    }
    const bool halts = row->words == QString("halt") || row->words == QString("continue");
    startHand(modbus);
    arm(QString("late ms=60000 count=0 skip=%1").arg(skip));
    if (skip > 0) { // otherwise it is the first request
        // A new node is waited for as for a halt: many times longer than for a reply.
        const bool sets = QByteArray(row->words).startsWith("set-id");
        const int patience = halts ? 1 : sets ? 4 : 15;
        checkFailure(*row, modbus,
                     CliProcess(*m_hand, patience).run(words(*row, modbus), row->input));
        QVERIFY(m_hand->requests().size() > skip);
        close();
        startHand(modbus);
        arm(QString("late ms=60000 count=0 skip=%1").arg(skip));
    }
    CliProcess cli(*m_hand, 8); // the exchange in progress ends with its time-out
    cli.start(words(*row, modbus), row->input);
    cli.process().closeWriteChannel();
    QTRY_VERIFY_WITH_TIMEOUT(m_hand->requests().size() > skip, 20'000);
    m_hand->command("unplug");
    const auto result = cli.finish();
    checkFailure(*row, modbus, result);
    QVERIFY2(result.errors.contains(halts ? "Switch the power off." : "The port has been lost."),
             qPrintable(result.errors));
}

VANTO_TEST(TestCliFaults)

} // namespace vanto

#include "tst_clifaults.moc"
