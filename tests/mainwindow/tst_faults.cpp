#include "conversation.h"
#include "pageindex.h"
#include "parametertest.h"
#include "resultcode.h"
#include "testmain.h"

#include <QSlider>
#include <QTableWidget>
#include <QtEndian>

namespace vanto
{

namespace
{
constexpr int WritePid = 0x45;
/// Time-out of a reply; that of a write of gains is three times as long.
constexpr int LimitMs = 350;

/// Result codes of an operation that reads a register or value, and of one that writes it.
struct Results {
    int read;
    int write;
};

struct FaultRow {
    const char* fault;
    Results serialCtrl;
    Results modbus;
    const char* subError = "00";
};

// Over Modbus a request is repeated once, and a late reply still counts. A reply with a wrong value
// but a correct checksum cannot be detected.
constexpr FaultRow faultRows[] = {
    {"drop", {3, 3}, {3, 3}},
    {"hang", {3, 3}, {3, 3}}, // affects every request
    {"late ms=500", {3, 3}, {0, 0}},
    {"late ms=1100", {3, 3}, {3, 3}},
    {"garble", {1, 1}, {3, 3}},
    {"truncate", {3, 3}, {3, 3}},
    {"wrong-node", {5, 5}, {3, 3}},
    {"wrong-command", {6, 6}, {3, 3}},
    {"over-long", {4, 0}, {255, 3}},
    {"short", {8, 0}, {16, 3}},
    {"noise", {0, 0}, {3, 3}},
    {"garbage", {3, 3}, {3, 3}},
    {"refuse error=0x21", {255, 255}, {16, 16}, "21"},
    {"refuse-bare error=0", {255, 255}, {3, 3}},
    {"wrong-finger", {8, 0}, {3, 0}},
    {"wrong-host", {3, 3}, {0, 0}},
};

constexpr int SerialCtrlOnly = 0;

/// A user action on a page, and the request of it to which the fault applies.
struct UserAction {
    int page;
    const char* control;
    const char* operation;
    int command; ///< of SerialCtrl
    int reg;     ///< of Modbus
    bool isRead = false;
    const char* timeout = nullptr; ///< the text of a time-out, if it differs from other failures
};

// How a page handles a result does not depend on the protocol. Time-outs take long over Modbus, so
// one action of each kind is enough there.
constexpr UserAction actions[] = {
    {BasicTab, "pushButton_BasicBeep", "beep", 0x62, 1010, false, "Timeout for %1 node '0x02'..."},
    {SettingTab, "pushButton_SettingReadCurrentLimit2", "getFingerCurrentLimit", 0x05, 1097, true},
    {SettingTab, "pushButton_SettingWritePID2", "setFingerPID", WritePid, SerialCtrlOnly},
    {RunTab, "pushButton_RunSetPos2", "setFingerPos", 0x4C, SerialCtrlOnly},
    {SequenceTab, "verticalSlider_SeqPos2", "setFingerPos", 0x4C, SerialCtrlOnly},
    {SequenceTab, "pushButton_SeqRun", "setFingerPos", 0x4C, 1137, false, "TIME OUT"},
};
} // namespace

/// Applies every fault to the main actions of the pages over both protocols. Checks the error text,
/// and that the same action succeeds afterwards.
class TestFaults : public ParameterTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void faults_data();
    void faults();
    void restoring_data() { faults_data(); }
    void restoring();

private:
    void goTo(const UserAction& action) const;
    void act(const UserAction& action) const;
    bool isRequested(const UserAction& action) const;
    bool areAllAnswered() const;
    QStringList failures() const;

    bool m_hangs = false; ///< the hand; earlier requests of the action fail as well
};

void TestFaults::faults_data()
{
    QTest::addColumn<const FaultRow*>("row");
    QTest::addColumn<bool>("modbus");
    // The table waits for many time-outs, so CTest runs its two halves side by side.
    const QString only = qEnvironmentVariable("VANTO_FAULTS_OVER");
    for (const FaultRow& row : faultRows)
        for (const bool modbus : {false, true})
            if ((!modbus || row.fault != QString("wrong-host")) && // Modbus frames contain no host
                only != (modbus ? "SerialCtrl" : "Modbus"))
                QTest::addRow("%s %s", row.fault, modbus ? "Modbus" : "SerialCtrl")
                    << &row << modbus;
}

void TestFaults::goTo(const UserAction& action) const
{
    m_tool->showPage(action.page);
    if (action.page != SequenceTab)
        return;
    auto* table = m_tool->find<QTableWidget>("tableWidget_Seq");
    if (table->rowCount() == 0)
        m_tool->click("pushButton_SeqInsert");
    else
        table->setCurrentCell(0, 0);
    QTRY_VERIFY(m_tool->enabled("verticalSlider_SeqPos2")); // once the hand has taken the pose
}

void TestFaults::act(const UserAction& action) const
{
    m_tool->clearShownTexts();
    m_hand->clearTrace();
    if (auto* slider = qobject_cast<QSlider*>(m_tool->find<QWidget>(action.control))) {
        slider->setSliderDown(true);
        slider->setSliderDown(false);
    } else {
        m_tool->click(action.control);
    }
    // On the Run page the request may follow an exchange of the timer.
    QTRY_VERIFY(isRequested(action) || m_hangs);
    QTRY_VERIFY(idle());
}

bool TestFaults::isRequested(const UserAction& action) const
{
    const auto requests = m_hand->requests();
    return std::any_of(requests.begin(), requests.end(), [&](const TracedFrame& request) {
        return request.protocol == "modbus"
                   ? qFromBigEndian<std::uint16_t>(request.bytes.constData() + 2) == action.reg
                   : request.bytes[4] == action.command;
    });
}

/// Whether no late reply is outstanding, which the next request could receive.
bool TestFaults::areAllAnswered() const
{
    return m_hand->trace().size() == 2 * m_hand->requests().size();
}

QStringList TestFaults::failures() const
{
    QStringList texts = shown();
    // After three time-outs; tst_connection is about these two.
    for (const char* other :
         {"Beep succeeded", "The hand does not answer. Check its power.", "The hand answers again"})
        texts.removeAll(other);
    texts.removeIf([](const QString& text) { return text.startsWith("getFingerCurrent("); });
    texts.removeDuplicates(); // the player reports every finger
    return texts;
}

void TestFaults::faults()
{
    QFETCH(const FaultRow*, row);
    QFETCH(bool, modbus);
    const Results& results = modbus ? row->modbus : row->serialCtrl;
    if (results.read == ResultCode::Timeout || results.write == ResultCode::Timeout)
        expectTimeouts(LimitMs);
    open({"--node", modbus ? "2:modbus" : "2", "--speed", "50"});
    for (const UserAction& action : actions) {
        if (modbus && action.reg == SerialCtrlOnly)
            continue;
        goTo(action);
        const bool late = QString(row->fault).startsWith("late");
        if (late && !modbus && action.page == SequenceTab)
            continue; // a late reply matches an equal next request
        m_hangs = row->fault == QString("hang");
        command(m_hangs ? "hang"
                        : QString("fault %1 count=0 ").arg(row->fault) +
                              (modbus ? QString("command=%1 register=%2")
                                            .arg(action.isRead ? 3 : 6)
                                            .arg(action.reg)
                                      : QString("command=%1").arg(action.command)));
        act(action);
        int result = action.isRead ? results.read : results.write;
        if (late && !modbus && action.command == WritePid && !QString(row->fault).endsWith("1100"))
            result = 0; // its time-out is longer
        QString text = QString("%1(0x02, ...) returned 0x%2 (sub err %3)")
                           .arg(action.operation)
                           .arg(result, 2, 16, QChar('0'))
                           .arg(m_hangs && modbus ? "ff" : row->subError);
        if (result == 3 && action.timeout)
            text = QString(action.timeout).replace("%1", modbus ? "ModBus-RTU" : "SerialCtrl");
        QTRY_COMPARE(failures().join("|"), result == 0 ? QString() : text);

        command(m_hangs ? "hang off" : "clear");
        m_hangs = false;
        if (const QString fault = row->fault; fault != "hang" && fault != "drop")
            QTRY_VERIFY(areAllAnswered());
        goTo(action);
        act(action);
        QCOMPARE(failures(), QStringList());
    }
}

/// A fault of a write while parameters are restored: its row is marked as it is, nothing else is
/// written, and the value can be restored afterwards.
void TestFaults::restoring()
{
    QFETCH(const FaultRow*, row);
    QFETCH(bool, modbus);
    const int code = (modbus ? row->modbus : row->serialCtrl).write;
    const QString fault = row->fault;
    const bool hangs = fault == "hang";
    const bool unchanged = fault.startsWith("refuse");
    const bool refused = unchanged && code >= 0x10; // a damaged reply is no refusal
    open({"--node", modbus ? "2:modbus" : "2"});
    saveTo("hand.json");
    const auto value = [this] { return m_hand->command("get 2 current-limit 2"); };
    const QString before = value();
    command("set 2 current-limit 2 321");
    command("set 2 start 0 499"); // of the calibration, which stays
    clearRecords();
    compare("hand.json", [&](ParametersDialog* dialog) {
        const QTableWidget* table = tableOf(dialog);
        const auto mark = [table] {
            return table->item(rowOf(table, "Current limit", "Middle"), 4)->text();
        };
        command(hangs ? "hang"
                      : QString("fault %1 count=0 command=%2").arg(fault).arg(modbus ? 6 : 0x46));
        expectTimeouts(LimitMs);
        restore(dialog);
        const QString refusal = QString("refused (result 0x%1, sub error 0x%2)")
                                    .arg(code, 2, 16, QChar('0'))
                                    .arg(row->subError);
        QCOMPARE(mark(), hangs ? "" : refused ? refusal : unchanged ? "not kept (321)" : "written");
        QCOMPARE(value() == before, !hangs && !unchanged);
        command(hangs ? "hang off" : "clear");
        if (dialog->findChild<QPushButton*>("pushButton_Restore")->isEnabled()) {
            restore(dialog);
            QCOMPARE(mark(), "written");
        }
    });
    QCOMPARE(value(), before);
    QStringList written = modbus ? writes() : frames(writeCommands());
    for (QString& request : written)
        request = request.left(request.indexOf(' '));
    written.removeDuplicates();
    QCOMPARE(written.join(' '), modbus ? "1097:" : "46");
    QCOMPARE(m_hand->command("get 2 start 0"), "ok 499");
}

VANTO_TEST(TestFaults)

} // namespace vanto

#include "tst_faults.moc"
