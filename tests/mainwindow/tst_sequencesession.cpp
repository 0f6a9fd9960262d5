#include "pageindex.h"
#include "sequencetest.h"

#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QHelpEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSlider>
#include <QSpinBox>
#include <QToolTip>

namespace vanto
{

namespace
{
const QString Recorded = QStringLiteral(SESSIONS "/%1.txt");

/// The motions that the hand received, in order. The reads between two of them are given as the
/// kinds of reads, as polls repeat them.
QString summary(const QList<TracedFrame>& requests)
{
    QStringList parts;
    QStringList reads;
    const auto endReads = [&] {
        reads.sort();
        if (!reads.isEmpty())
            parts.append('<' + reads.join(' ') + '>');
        reads.clear();
    };
    for (const TracedFrame& request : requests) {
        const bool modbus = request.protocol == "modbus";
        // Command and payload, or function, register and values: without node and checksum.
        const QByteArray content = modbus
                                       ? request.bytes.mid(1).chopped(2)
                                       : request.bytes.mid(4, 1) + request.bytes.mid(6).chopped(1);
        const auto code = static_cast<std::uint8_t>(content[0]);
        const bool isRead = modbus ? code == 3 : code < 0x40;
        if (!isRead) {
            endReads();
            parts.append(content.toHex());
        } else if (const QString kind = content.left(modbus ? 3 : 1).toHex();
                   !reads.contains(kind)) {
            reads.append(kind);
        }
    }
    endReads();
    return parts.join(' ');
}
} // namespace

/// A whole session on the Sequence page. Its frames are compared with recorded ones, which a run
/// with VANTO_RECORD_SESSIONS in its environment writes.
class TestSequenceSession : public SequenceTest
{
    Q_OBJECT
private slots:
    void frames_data()
    {
        addTextRows({"protocol", "unit"}, {{"serialctrl", "position"},
                                           {"serialctrl", "angle"},
                                           {"modbus", "position"},
                                           {"modbus", "angle"}});
    }
    void init() {}
    void frames();
    void peaks();

private:
    QString toolTip(int row) const;
    /// The numbers of the steps that Copy Peaks as JSON gives.
    QString copiedSteps() const;
    void loadIn(const QString& unit) const;
    void type(const QString& field, const QString& text) const;
    void drag(const QString& slider, int value) const;
    void doubleClick(int row) const;
    void act(const char* name, const std::function<void()>& action);
    void compareWithRecord(const QString& fileName) const;

    QStringList m_session;
};

void TestSequenceSession::loadIn(const QString& unit) const
{
    load(QString(R"({"version":1,"position_type":"%1","sequences":[
 {"delay":0,"position":[15000,12000,13000,14000,11000,2000],"speed":[255,254,253,252,251,250]},
 {"delay":40,"position":[14500,12600,13700,14800,11900,2100],"speed":[255,200,255,255,255,255]},
 {"delay":120,"position":[14000,12700],"speed":[255,255,255]}]})")
             .arg(unit)
             .toUtf8());
}

void TestSequenceSession::type(const QString& field, const QString& text) const
{
    auto* edit = m_tool->find<QLineEdit>(field);
    edit->setFocus();
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
}

void TestSequenceSession::drag(const QString& slider, int value) const
{
    auto* dragged = m_tool->find<QSlider>(slider);
    dragged->setSliderDown(true);
    dragged->setSliderPosition(value);
    dragged->setSliderDown(false);
}

void TestSequenceSession::doubleClick(int row) const
{
    const QPoint cell = table()->visualItemRect(table()->item(row, 2)).center();
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell);
}

/// Waits until a run that the action has started is over, and adds the frames to the session.
void TestSequenceSession::act(const char* name, const std::function<void()>& action)
{
    action();
    QTRY_VERIFY(!m_tool->enabled("pushButton_SeqStop") && idle());
    m_session.append(QString("%1: %2").arg(name, summary(m_hand->requests())).trimmed());
    m_hand->clearTrace();
}

void TestSequenceSession::frames()
{
    QFETCH(QString, protocol);
    QFETCH(QString, unit);
    m_session.clear();
    open({"--node", protocol == "modbus" ? "2:modbus" : "2", "--speed", "50"});
    m_tool->showPage(SequenceTab);
    m_hand->clearTrace();
    const auto click = [&](const char* button) { m_tool->click(button); };
    act("load", [&] { loadIn(unit); });
    act("run without a row", [&] { click("pushButton_SeqRun"); });
    act("click on a row", [&] {
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                          table()->visualItemRect(table()->item(1, 1)).center());
    });
    act("key up", [&] { QTest::keyClick(table(), Qt::Key_Up); });
    act("double click", [&] { doubleClick(0); });
    act("double click on another row", [&] { doubleClick(1); });
    act("drag", [&] { drag("verticalSlider_SeqPos3", 14321); });
    act("speed", [&] { type("lineEdit_SeqSpeed3", "77"); });
    act("delay", [&] { type("lineEdit_SeqDelay", "60"); });
    act("drag with the new speed", [&] { drag("verticalSlider_SeqPos3", 12345); });
    act("row down", [&] { click("pushButton_SeqDown"); });
    act("row up", [&] { click("pushButton_SeqUp"); });
    for (int finger = 0; finger < 6; ++finger)
        command(QString("set 2 position %1 %2").arg(finger).arg(20000 + 1000 * finger));
    act("insert", [&] {
        const int rows = table()->rowCount();
        click("pushButton_SeqInsert");
        QTRY_COMPARE(table()->rowCount(), rows + 1);
        const int row = table()->currentRow();
        QTRY_VERIFY(table()->currentRow() != row);
    });
    act("run from a row", [&] { click("pushButton_SeqRun"); });
    act("run from the last row", [&] { click("pushButton_SeqRun"); });
    act("key down at the end", [&] { QTest::keyClick(table(), Qt::Key_Down); });
    act("delete the last row", [&] { click("pushButton_SeqDelete"); });
    act("save", [&] { choose("pushButton_SeqSave", "saved.json"); });
    QFile saved("saved.json");
    QVERIFY(saved.open(QFile::ReadOnly));
    m_session.append(saved.readAll().simplified());
    act("delete the first rows", [&] {
        table()->setCurrentCell(0, 0);
        QTRY_VERIFY(table()->isEnabled());
        click("pushButton_SeqDelete");
    });
    act("delete", [&] { click("pushButton_SeqDelete"); });
    act("run of one row", [&] { click("pushButton_SeqRun"); });
    act("leave and return", [&] {
        m_tool->showPage(BasicTab);
        m_tool->showPage(SequenceTab);
    });
    act("delete without a row", [&] { click("pushButton_SeqDelete"); });

    compareWithRecord(Recorded.arg(protocol + '-' + unit));
}

void TestSequenceSession::compareWithRecord(const QString& fileName) const
{
    const QString actual = m_session.join('\n') + '\n';
    QFile record(fileName);
    if (qEnvironmentVariableIsSet("VANTO_RECORD_SESSIONS")) {
        QVERIFY(record.open(QFile::WriteOnly));
        record.write(actual.toUtf8());
        return;
    }
    QVERIFY(record.open(QFile::ReadOnly));
    const QStringList expected = QString::fromUtf8(record.readAll()).split('\n');
    for (int line = 0; line < expected.size(); ++line)
        QCOMPARE(actual.split('\n').value(line), expected[line]);
}

QString TestSequenceSession::toolTip(int row) const
{
    QWidget* header = table()->verticalHeader()->viewport();
    const QPoint place(3, table()->verticalHeader()->sectionViewportPosition(row) + 3);
    QHelpEvent help(QEvent::ToolTip, place, header->mapToGlobal(place));
    QApplication::sendEvent(header, &help);
    return QToolTip::text();
}

QString TestSequenceSession::copiedSteps() const
{
    m_tool->trigger("action_Copy_Peaks_JSON");
    const QByteArray json = QApplication::clipboard()->text().toUtf8();
    QString steps;
    for (const QJsonValue step : QJsonDocument::fromJson(json).object()["steps"].toArray())
        steps += QString::number(step.toObject()["step"].toInt());
    return steps;
}

/// A run leaves the time and the highest currents of the steps as they were played.
void TestSequenceSession::peaks()
{
    open({"--node", "2", "--speed", "50"});
    m_tool->showPage(SequenceTab);
    loadIn("position");
    QVERIFY(!m_tool->find<QAction>("action_Copy_Peaks_Text")->isEnabled());
    QCOMPARE(toolTip(1), "Step 2: delay 40 ms, speeds 255 255 200 255 255 255");
    command("set 2 current 1 42");
    const auto run = [&] {
        m_tool->click("pushButton_SeqRun");
        QTRY_VERIFY(!m_tool->enabled("pushButton_SeqStop"));
    };
    run();
    const QString peaks = toolTip(2).section('\n', 1);
    QVERIFY2(peaks.startsWith("Last run: ") && peaks.contains("Index 42 mA"), qPrintable(peaks));
    QVERIFY(peaks.section(' ', 2, 2).toInt() >= 120); // its delay
    QCOMPARE(copiedSteps(), "123");
    table()->setCurrentCell(1, 0);
    QTRY_VERIFY(table()->isEnabled()); // to play a step for edit is no run
    QCOMPARE(copiedSteps(), "123");
    type("lineEdit_SeqDelay", "41");
    QCOMPARE(copiedSteps(), "13");
    m_tool->trigger("action_Undo");
    QCOMPARE(copiedSteps(), "123");
    m_tool->trigger("action_Copy_Peaks_Text");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QCOMPARE(lines.size(), 5); // the last one is empty
    QCOMPARE(lines[0].section('\t', 0, 2), "Step\tTime (ms)\tThumb (mA)");
    QCOMPARE(lines[2].section('\t', 3, 3), "42");
    m_tool->find<QSpinBox>("spinBox_SeqRepeat")->setValue(2);
    run(); // from the second step
    QCOMPARE(copiedSteps(), "23");
    QVERIFY(toolTip(1).contains("\nLast run, 2 rounds: at most "));
    loadIn("angle");
    QCOMPARE(copiedSteps(), "");
}

VANTO_TEST(TestSequenceSession)

} // namespace vanto

#include "tst_sequencesession.moc"
