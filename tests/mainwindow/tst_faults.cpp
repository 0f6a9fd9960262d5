#include "conversation.h"
#include "handtest.h"
#include "pageindex.h"
#include "resultcode.h"
#include "testmain.h"

#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QtEndian>

namespace vanto
{

namespace
{
constexpr int WritePid = 0x45;
/// For each reply, where one does not come; for that to a write of gains three times as long.
constexpr int LimitMs = 350;

/// Results by what is asked: a register or command is read, or written.
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

// Over Modbus a request is repeated once, and an answer that only comes late still counts. What
// carries a right checksum but another value cannot be told from the truth.
constexpr FaultRow rows[] = {
    {"drop", {3, 3}, {3, 3}},
    {"hang", {3, 3}, {3, 3}}, // not this request alone
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

/// Something that a user does on a page, and the request of it that meets the fault.
struct UserAction {
    int page;
    const char* control;
    const char* operation;
    int command; ///< of SerialCtrl
    int reg;     ///< of Modbus
    bool isRead = false;
    const char* timeout = nullptr; ///< its text, if it has one of its own
};

// What a page makes of a result does not depend on the protocol, so over Modbus, where time-outs
// take long, one of each kind is enough.
constexpr UserAction actions[] = {
    {BasicTab, "pushButton_BasicBeep", "beep", 0x62, 1010, false, "Timeout for %1 node '0x02'..."},
    {SettingTab, "pushButton_SettingReadCurrentLimit2", "getFingerCurrentLimit", 0x05, 1097, true},
    {SettingTab, "pushButton_SettingWritePID2", "setFingerPID", WritePid, SerialCtrlOnly},
    {RunTab, "pushButton_RunSetPos2", "setFingerPos", 0x4C, SerialCtrlOnly},
    {SequenceTab, "verticalSlider_SeqPos2", "setFingerPos", 0x4C, SerialCtrlOnly},
    {SequenceTab, "pushButton_SeqRun", "setFingerPos", 0x4C, 1137, false, "TIME OUT"},
};
} // namespace

/// Replies that are spoilt in every way, under what is mainly done on the pages, over both
/// protocols: the text, and that the same works right afterwards.
class TestFaults : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void faults_data();
    void faults();

private:
    void goTo(const UserAction& action) const;
    void act(const UserAction& action) const;
    bool isAsked(const UserAction& action) const;
    bool isAnswered() const;
    QStringList failures() const;

    bool m_hangs = false; ///< the hand; requests before the one that is meant fail as well
};

void TestFaults::faults_data()
{
    QTest::addColumn<const FaultRow*>("row");
    QTest::addColumn<bool>("modbus");
    for (const FaultRow& row : rows)
        for (const bool modbus : {false, true})
            if (!modbus || row.fault != QString("wrong-host")) // there is no host in its frames
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
    QTRY_VERIFY(m_tool->enabled("verticalSlider_SeqPos2")); // the hand has taken the pose
}

void TestFaults::act(const UserAction& action) const
{
    m_tool->forgetShownTexts();
    m_hand->forgetTrace();
    if (auto* slider = qobject_cast<QSlider*>(m_tool->find<QWidget>(action.control))) {
        slider->setSliderDown(true);
        slider->setSliderDown(false);
    } else {
        m_tool->click(action.control);
    }
    QTRY_VERIFY(isAsked(action) ||
                m_hangs); // on the Run page it may come after an exchange of the timer
    QTRY_VERIFY(idle());
}

bool TestFaults::isAsked(const UserAction& action) const
{
    const auto requests = m_hand->requests();
    return std::any_of(requests.begin(), requests.end(), [&](const TracedFrame& request) {
        return request.protocol == "modbus"
                   ? qFromBigEndian<quint16>(request.bytes.constData() + 2) == action.reg
                   : request.bytes[4] == action.command;
    });
}

/// Whether no reply is outstanding that could meet the next request.
bool TestFaults::isAnswered() const
{
    return m_hand->trace().size() == 2 * m_hand->requests().size();
}

QStringList TestFaults::failures() const
{
    QStringList texts = shown();
    texts.removeAll("Beep succeeded");
    texts.removeIf([](const QString& text) { return text.startsWith("getFingerCurrent("); });
    texts.removeDuplicates(); // the player tells of every finger
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
            continue; // a late reply may pass for the answer to an equal next request
        m_hangs = row->fault == QString("hang");
        tell(m_hangs ? "hang"
                     : QString("fault %1 count=0 ").arg(row->fault) +
                           (modbus ? QString("command=%1 register=%2")
                                         .arg(action.isRead ? 3 : 6)
                                         .arg(action.reg)
                                   : QString("command=%1").arg(action.command)));
        act(action);
        int result = action.isRead ? results.read : results.write;
        if (late && !modbus && action.command == WritePid && !QString(row->fault).endsWith("1100"))
            result = 0; // the hand is given longer for it
        QString text = QString("%1(0x02, ...) returned 0x%2 (sub err %3)")
                           .arg(action.operation)
                           .arg(result, 2, 16, QChar('0'))
                           .arg(m_hangs && modbus ? "ff" : row->subError);
        if (result == 3 && action.timeout)
            text = QString(action.timeout).replace("%1", modbus ? "ModBus-RTU" : "SerialCtrl");
        QTRY_COMPARE(failures().join("|"), result == 0 ? QString() : text);

        tell(m_hangs ? "hang off" : "clear");
        m_hangs = false;
        if (late)
            QTRY_VERIFY(isAnswered());
        goTo(action);
        act(action);
        QCOMPARE(failures(), QStringList());
    }
}

VANTO_TEST(TestFaults)

} // namespace vanto

#include "tst_faults.moc"
