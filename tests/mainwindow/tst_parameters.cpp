#include "parametertest.h"
#include "testmain.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QTimer>

#include <sys/stat.h>

namespace vanto
{

namespace
{
constexpr int WriteCalibration = 0x44;
constexpr int WriteCurrentLimit = 0x46;

bool save(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The visible rows with a result that begins like this.
int countResults(const QTableWidget* table, const QString& beginning)
{
    int count = 0;
    for (int row = 0; row < table->rowCount(); ++row)
        count += !table->isRowHidden(row) && table->item(row, 4)->text().startsWith(beginning);
    return count;
}

void pressSpace(QTableWidget* table, int row)
{
    table->setCurrentCell(row, 2);
    QTest::keyClick(table, Qt::Key_Space);
}
} // namespace

/// Saving, comparing and restoring parameters in the window.
class TestParameters : public ParameterTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void roundTrip_data() { addBoolRows("modbus", "Modbus", "SerialCtrl"); }
    void roundTrip();
    void calibration_data();
    void calibration();
    void interrupted_data();
    void interrupted();
    void calibrationCutShort_data();
    void calibrationCutShort();
    void copiedGains();
    void badFiles_data();
    void badFiles();
    void otherHardware_data() { addBoolRows("accepted", "accepted", "refused"); }
    void otherHardware();
    void anyNode();
};

void TestParameters::roundTrip()
{
    QFETCH(bool, modbus);
    open({"--node", modbus ? "2:modbus" : "2"});
    saveTo("before.json");
    changeAll();
    clearRecords();
    compare("before.json", [&](ParametersDialog* dialog) {
        QTableWidget* table = tableOf(dialog);
        const int limits = rowOf(table, "Position limits", "Index");
        QCOMPARE(limits >= 0, !modbus);
        const int calibration = rowOf(table, "Calibration");
        QVERIFY(isTicked(table, rowOf(table, "P", "Little")));
        QVERIFY(!isTicked(table, rowOf(table, "Self-test level")));
        QVERIFY(!isTicked(table, calibration));
        QVERIFY(modbus || !isTicked(table, limits));
        // A finger's box leaves out its position limits.
        auto* finger = dialog->findChild<QCheckBox*>("checkBox_Finger1");
        QCOMPARE(finger->checkState(), Qt::Checked);
        finger->click();
        QVERIFY(!isTicked(table, rowOf(table, "P", "Index")));
        finger->click();
        QVERIFY(isTicked(table, rowOf(table, "P", "Index")));
        for (const char* kind : {"SelfTestLevel", "PositionLimits"})
            dialog->findChild<QCheckBox*>(QString("checkBox_") + kind)->click();
        QVERIFY(modbus || isTicked(table, limits));
        pressSpace(table, calibration);
        QVERIFY(isTicked(table, calibration));
        QCOMPARE(frames(writeCommands()) + writes(), QStringList());
        restore(dialog);
        QCOMPARE(countResults(table, "written"), 24 + 6 + 5 + (modbus ? 0 : 6) + 2 + 1);
        QCOMPARE(stateOf(dialog), QString("Written: %1.").arg(countResults(table, "written")));
    });
    QCOMPARE(m_boxes.size(), modbus ? 2 : 1); // a Modbus hand has no UID
    const auto requests = m_hand->requests();
    for (int i = 0; i < requests.size() && !modbus; ++i) {
        const int written = ReadOfWrite.value(requests[i].bytes[4], -1);
        if (written < 0)
            continue;
        QVERIFY(i + 1 < requests.size());
        QCOMPARE(int(requests[i + 1].bytes[4]), written);
        if (written > 0x03 && written < 0x20) // the finger
            QCOMPARE(requests[i + 1].bytes[6], requests[i].bytes[6]);
    }
    saveTo("after.json");
    QJsonObject before = contentOf("before.json");
    QJsonObject after = contentOf("after.json");
    for (QJsonObject* content : {&before, &after})
        content->remove("time");
    QCOMPARE(after, before);
    QVERIFY(!before.isEmpty());

    command("set 2 current-limit 3 111");
    clearRecords();
    compare("before.json", [&](ParametersDialog* dialog) { restore(dialog); });
    QCOMPARE(modbus ? writes().size() : frames(writeCommands()).size(), 1);
    QVERIFY(modbus ? writes()[0].startsWith("1098:")
                   : frames(writeCommands())[0].startsWith("46 03"));
}

void TestParameters::calibration_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("uid"); ///< in the file; empty: none
    QTest::addColumn<int>("accepted");
    QTest::addColumn<int>("questions");
    QTest::newRow("not ticked") << "2"
                                << "same" << -1 << 0;
    QTest::newRow("refused") << "2"
                             << "same" << 0 << 1;
    QTest::newRow("ticked") << "2"
                            << "same" << 1 << 1;
    QTest::newRow("other hand") << "2"
                                << "00112233445566778899AABB" << 1 << 0;
    QTest::newRow("no UID, refused") << "2"
                                     << "" << 1 << 2;
    QTest::newRow("no UID, ticked") << "2"
                                    << "" << 2 << 2;
    QTest::newRow("Modbus, refused") << "2:modbus"
                                     << "" << 1 << 2;
}

/// The calibration is written with its own tick only.
void TestParameters::calibration()
{
    QFETCH(QString, node);
    QFETCH(QString, uid);
    QFETCH(int, accepted);
    QFETCH(int, questions);
    open({"--node", node});
    saveTo("before.json");
    if (uid != "same") {
        QJsonObject content = contentOf("before.json");
        QJsonObject hand = content["hand"].toObject();
        hand.remove("uid");
        if (!uid.isEmpty())
            hand["uid"] = uid;
        content["hand"] = hand;
        QVERIFY(save("before.json", QJsonDocument(content).toJson()));
    }
    changeAll();
    clearRecords();
    m_acceptedBoxes = accepted;
    bool ticked = false;
    compare("before.json", [&](ParametersDialog* dialog) {
        QTableWidget* table = tableOf(dialog);
        const int row = rowOf(table, "Calibration");
        for (QCheckBox* box : dialog->findChildren<QCheckBox*>())
            if (!box->objectName().endsWith("PositionLimits")) // which are a part of it
                box->click();                                  // no other box ticks it
        QVERIFY(!isTicked(table, row));
        if (accepted >= 0)
            pressSpace(table, row);
        ticked = isTicked(table, row);
        if (uid != "same" && (ticked || questions == 0)) { // the same rule, and no other question
            dialog->findChild<QCheckBox*>("checkBox_PositionLimits")->click();
            QCOMPARE(isTicked(table, rowOf(table, "Position limits", "Thumb")), ticked);
        }
        restore(dialog);
        const int limits = rowOf(table, "Position limits", "Thumb"); // which it has replaced
        if (node == "2" && ticked)
            QCOMPARE(table->item(limits, 2)->text(), table->item(limits, 3)->text());
    });
    QCOMPARE(m_boxes.size(), questions);
    QCOMPARE(ticked, questions > 0 && accepted >= questions);
    QCOMPARE(frames({WriteCalibration}).size(), ticked);
    QCOMPARE(contentOf("before.json")["calibration"].toObject()["start"].toArray()[0].toInt() ==
                 m_hand->command("get 2 start 0").section(' ', 1).toInt(),
             ticked);
    m_acceptedBoxes = 10;
}

void TestParameters::interrupted_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("act");
    QTest::addColumn<QString>("state"); ///< a part of what the dialog shows
    QTest::addColumn<int>("writes");    ///< of current limits; -1: as many as before the act
    QTest::newRow("value refused") << "fault refuse command=0x46 skip=2 error=0x21"
                                   << ""
                                   << "Refused: 1" << 6;
    QTest::newRow("reply lost") << "fault drop command=0x46 skip=2"
                                << ""
                                << "Written: 6." << 6;
    QTest::newRow("hand dies") << "fault drop command=0x46 skip=2"
                               << "hang"
                               << "Not tried: 3" << 3;
    QTest::newRow("hand swapped") << "fault drop command=0x46 skip=2"
                                  << "swap"
                                  << "Not tried: 3" << 3;
    QTest::newRow("port lost") << "fault late command=0x46 skip=2 ms=300"
                               << "unplug"
                               << "Not tried: 3" << 3;
    QTest::newRow("cancelled") << "fault late command=0x46 skip=2 ms=300"
                               << "cancel"
                               << "Not tried: 3" << 3;
    QTest::newRow("halted") << "fault late command=0x46 skip=2 ms=300"
                            << "halt"
                            << "Not tried: 3" << 3;
    QTest::newRow("closed") << "fault late command=0x46 skip=2 ms=300"
                            << "close"
                            << "" << 3;
}

void TestParameters::interrupted()
{
    QFETCH(QString, fault);
    QFETCH(QString, act);
    QFETCH(QString, state);
    QFETCH(int, writes);
    open();
    saveTo("before.json");
    for (int finger = 0; finger < 6; ++finger)
        command(QString("set 2 current-limit %1 %2").arg(finger).arg(301 + finger));
    command(fault);
    if (fault.contains("drop") || act == "unplug")
        expectTimeouts(500);
    clearRecords();
    const auto interfere = [&](ParametersDialog* dialog) {
        if (act == "hang" || act == "unplug")
            command(act);
        else if (act == "swap")
            command("set 2 start 0 999");
        else if (act == "cancel")
            dialog->reject();
        else if (act == "halt")
            QTest::keyClick(dialog, Qt::Key_Pause);
        else if (act == "close")
            m_tool->window()->close();
    };
    QString shownState;
    QTimer::singleShot(0, m_tool->window(), [&] {
        compare("before.json", [&](ParametersDialog* dialog) {
            QTimer poll;
            connect(&poll, &QTimer::timeout, dialog, [&] {
                if (!Exchange::active() || frames({WriteCurrentLimit}).size() < 3)
                    return;
                poll.stop();
                interfere(dialog);
            });
            poll.start(1);
            dialog->findChild<QPushButton*>("pushButton_Restore")->click();
            if (act == "close") {
                QTRY_VERIFY(!poll.isActive());
                return;
            }
            const auto* close = dialog->findChild<QPushButton*>("pushButton_ParametersClose");
            QTRY_COMPARE_WITH_TIMEOUT(close->text(), "Close", 60'000);
            shownState = stateOf(dialog);
            QVERIFY2(shownState.contains(state), qPrintable(shownState));
            QTableWidget* table = tableOf(dialog);
            QVERIFY(table->item(rowOf(table, "Current limit", "Thumb"), 4)->text() == "written");
            const bool isCurrent = act.isEmpty() || act == "cancel";
            if (!isCurrent && act != "swap" && act != "hang")
                QTRY_VERIFY(!dialog->findChild<QPushButton*>("pushButton_Restore")->isEnabled());
            dialog->findChild<QPushButton*>("pushButton_ParametersCopy")->click();
            QVERIFY(QApplication::clipboard()->text().contains("Current limit\tThumb\t"));
            QVERIFY(QApplication::clipboard()->text().contains(shownState));
        });
        if (act != "close")
            QApplication::exit();
    });
    QApplication::exec();
    if (act == "hang")
        command("hang off");
    QCOMPARE(frames({WriteCurrentLimit}).size(), writes);
    QCOMPARE(frames(writeCommands()).size(), writes);
}

void TestParameters::calibrationCutShort_data()
{
    QTest::addColumn<QString>("key");  ///< none: the hand is silent for a while
    QTest::addColumn<QString>("swap"); ///< command that makes it another hand
    QTest::newRow("halt") << "Pause"
                          << "";
    QTest::newRow("silence") << ""
                             << "";
    QTest::newRow("swapped") << ""
                             << "set 2 start 3 1";
}

/// The hand has taken a part of the calibration. What it has is shown as soon as it can be read,
/// and without a UID nothing more is written to it.
void TestParameters::calibrationCutShort()
{
    QFETCH(QString, key);
    QFETCH(QString, swap);
    const bool halts = !key.isEmpty();
    open({"--node", "2:modbus"});
    saveTo("before.json");
    changeAll();
    clearRecords();
    const auto inHand = [this](const char* value) {
        return m_hand->command(QString("get 2 %1 0").arg(value)).section(' ', 1);
    };
    compare("before.json", [&](ParametersDialog* dialog) {
        QTableWidget* table = tableOf(dialog);
        const int row = rowOf(table, "Calibration");
        for (QCheckBox* box : dialog->findChildren<QCheckBox*>()) // the gains and the fingers
            if (box->isEnabled() && box->checkState() == Qt::Checked)
                box->click();
        pressSpace(table, row);
        QTimer poll; // the ends are written first
        connect(&poll, &QTimer::timeout, dialog, [&] {
            if (!Exchange::active() || !writes().join(' ').contains("1020:"))
                return;
            poll.stop();
            if (halts)
                QTest::keyClick(dialog, Qt::Key_Pause);
            else
                command("hang");
        });
        poll.start(1);
        command("fault late register=1020 skip=1 ms=100"); // not the check of the hand
        if (!halts)
            expectTimeouts(400);
        restore(dialog);
        if (!swap.isEmpty())
            command(swap);
        const QString before = table->item(row, 2)->text();
        clearRecords();
        command("hang off");
        const QString expected = swap.isEmpty() ? "The calibration of the hand was read again."
                                                : "Another hand may have answered.";
        QTRY_VERIFY2(stateOf(dialog).contains(expected),
                     qPrintable(stateOf(dialog) + writes().join(' ')));
        pressSpace(table, row);
        QVERIFY(!dialog->findChild<QPushButton*>("pushButton_Restore")->isEnabled());
        if (!swap.isEmpty()) {
            QCOMPARE(table->item(row, 2)->text(), before);
            QCOMPARE(writes(), QStringList());
            return;
        }
        QVERIFY(inHand("end") != "3001"); // that of the file
        QCOMPARE(inHand("start"), "501");
        const QString shownText = table->item(row, 2)->text();
        QVERIFY2(shownText.contains(inHand("end")) && shownText.contains("501"),
                 qPrintable(shownText));
        QVERIFY(table->item(row, 4)->text().startsWith("no answer"));
    });
}

void TestParameters::copiedGains()
{
    open();
    for (int finger = 0; finger < 6; ++finger)
        command(QString("set 2 pid-p %1 %2").arg(finger).arg(20 + finger));
    saveTo("before.json");
    clearRecords();
    compare("before.json", [&](ParametersDialog* dialog) {
        QTimer::singleShot(
            0, dialog, [&] { dialog->findChild<QPushButton*>("pushButton_CopyGains")->click(); });
        DialogAnswer<QDialog> copy([](QDialog* open) {
            auto* source = open->findChild<QComboBox*>("comboBox_GainsOf");
            if (!source)
                return;
            source->setCurrentIndex(2);
            QVERIFY(!open->findChild<QCheckBox*>("checkBox_CopyTo2")->isEnabled());
            open->findChild<QCheckBox*>("checkBox_CopyTo5")->click();
            open->accept();
        });
        QTRY_COMPARE(copy.count(), 1);
        QTableWidget* table = tableOf(dialog);
        for (const char* gain : {"P", "I", "D", "G"})
            QTRY_COMPARE(table->item(rowOf(table, gain, "Thumb root"), 3)->text(),
                         table->item(rowOf(table, gain, "Middle"), 3)->text());
        QCOMPARE(frames(writeCommands()), QStringList());
        restore(dialog);
    });
    QCOMPARE(frames(writeCommands()).size(), 1);
    for (int finger = 0; finger < 6; ++finger)
        QCOMPARE(m_hand->command(QString("get 2 pid-p %1").arg(finger)).section(' ', 1).toInt(),
                 finger == 5 ? 22 : 20 + finger);
}

void TestParameters::badFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << QByteArray("{\"format\":");
    QTest::newRow("a sequence") << QByteArray(R"({"version":1,"sequences":[]})");
    QTest::newRow("array") << QByteArray("[1]");
    QTest::newRow("FIFO") << QByteArray("fifo");
}

void TestParameters::badFiles()
{
    QFETCH(QByteArray, content);
    open();
    clearRecords();
    const QString path = QDir::current().absoluteFilePath("bad.json");
    if (content == "fifo")
        QCOMPARE(::mkfifo(qPrintable(path), 0600), 0);
    else
        QVERIFY(save(path, content));
    trigger("action_Restore_Parameters", path);
    QCOMPARE(m_boxes.size(), 1);
    QVERIFY2(m_boxes[0].contains("bad.json") && m_boxes[0].size() > path.size() + 40,
             qPrintable(m_boxes[0]));
    QCOMPARE(frames(), QStringList()); // not even read
    QFile::remove(path);

    trigger("action_Save_Parameters", "/dev/full/none.json");
    QCOMPARE(m_boxes.size(), 1);
    QVERIFY2(m_boxes[0].startsWith("The parameters could not be saved in '/dev/full/none.json'. "),
             qPrintable(m_boxes[0]));
    QVERIFY(m_tool->find<QAction>("action_Save_Parameters")->isEnabled());
}

void TestParameters::otherHardware()
{
    QFETCH(bool, accepted);
    open();
    saveTo("before.json");
    QJsonObject content = contentOf("before.json");
    QJsonObject hand = content["hand"].toObject();
    QCOMPARE(hand["hardware"].toString(), "1B01");
    hand["hardware"] = "1C02";
    content["hand"] = hand;
    QVERIFY(save("before.json", QJsonDocument(content).toJson()));
    m_acceptedBoxes = accepted;
    const Act compares = [](ParametersDialog* dialog) {
        const QTableWidget* table = tableOf(dialog);
        QCOMPARE(countResults(table, "Never written"), 1);
    };
    trigger("action_Restore_Parameters", "before.json", accepted ? compares : Act());
    QCOMPARE(m_boxes.size(), 1);
    QVERIFY2(m_boxes[0].contains("1C02"), qPrintable(m_boxes[0]));
    m_acceptedBoxes = 10;
}

/// A write through this node would reach every hand on the bus.
void TestParameters::anyNode()
{
    open();
    saveTo("before.json");
    m_tool->list({"0xff (SerialCtrl V1.4.7, Protocol V3.0)"});
    m_tool->devices()->setCurrentIndex(1);
    changeAll();
    clearRecords();
    compare("before.json", [&](ParametersDialog* dialog) {
        QVERIFY(!dialog->findChild<QPushButton*>("pushButton_Restore")->isEnabled());
        QVERIFY(stateOf(dialog).startsWith("Node 255 is every hand on the bus."));
    });
    QCOMPARE(frames(writeCommands()), QStringList());
}

VANTO_TEST(TestParameters)

} // namespace vanto

#include "tst_parameters.moc"
