#include "handtest.h"
#include "parametersdialog.h"
#include "testmain.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTimer>

#include <sys/stat.h>

namespace vanto
{

namespace
{
/// The command that reads what a command of SerialCtrl writes.
const QMap<int, int> ReadOfWrite{{0x44, 0x03}, {0x45, 0x04}, {0x46, 0x05}, {0x47, 0x07},
                                 {0x48, 0x09}, {0x60, 0x20}, {0x61, 0x21}};
constexpr int WriteCalibration = 0x44;
constexpr int WriteCurrentLimit = 0x46;

QList<int> writeCommands()
{
    return ReadOfWrite.keys();
}

QJsonObject contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                      : QJsonObject();
}

bool save(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
}

QString stateOf(const ParametersDialog* dialog)
{
    return dialog->findChild<QLabel*>("label_RestoreState")->text();
}

QTableWidget* tableOf(const ParametersDialog* dialog)
{
    return dialog->findChild<QTableWidget*>("tableWidget_Parameters");
}

/// The row of a parameter, -1 if there is none.
int rowOf(const QTableWidget* table, const QString& name, const QString& finger = {})
{
    for (int row = 0; row < table->rowCount(); ++row)
        if (table->item(row, 0)->text() == name && table->item(row, 1)->text() == finger)
            return row;
    return -1;
}

/// The visible rows with a result that begins like this.
int countResults(const QTableWidget* table, const QString& beginning)
{
    int count = 0;
    for (int row = 0; row < table->rowCount(); ++row)
        count += !table->isRowHidden(row) && table->item(row, 4)->text().startsWith(beginning);
    return count;
}

bool isTicked(const QTableWidget* table, int row)
{
    return table->item(row, 0)->checkState() == Qt::Checked;
}

void pressSpace(QTableWidget* table, int row)
{
    table->setCurrentCell(row, 2);
    QTest::keyClick(table, Qt::Key_Space);
}

QStringList backups()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                      "/parameters");
    QStringList files;
    for (const QString& name : folder.entryList(QDir::Files))
        files.append(folder.filePath(name));
    return files;
}
} // namespace

/// Saving, comparing and restoring parameters, and the information about a hand, in the window.
class TestParameters : public HandTest
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
    void copiedGains();
    void badFiles_data();
    void badFiles();
    void enabled();
    void anyNode();
    void information();
    void backupBeforeCalibration();
    void comparisonAfterUpdate();

private:
    using Act = std::function<void(ParametersDialog*)>;

    void changeAll() const;
    void saveTo(const QString& path);
    void compare(const QString& path, Act act);
    void restore(ParametersDialog* dialog) const;
    void trigger(const QString& action, const QString& path, Act act = {});
    bool areEnabled() const;

    QStringList m_boxes;      ///< texts of the message boxes
    int m_acceptedBoxes = 10; ///< the others are answered with No
};

/// Gives every parameter another value.
void TestParameters::changeAll() const
{
    for (int finger = 0; finger < 6; ++finger) {
        for (const char* gain : {"pid-p", "pid-i", "pid-d", "pid-g"})
            command(QString("set 2 %1 %2 %3.25").arg(gain).arg(finger).arg(11 + finger));
        command(QString("set 2 current-limit %1 %2").arg(finger).arg(301 + finger));
        if (finger < 5)
            command(QString("set 2 force-limit %1 %2").arg(finger).arg(401 + finger));
        command(QString("set 2 start %1 %2").arg(finger).arg(501 + finger));
        command(QString("set 2 end %1 %2").arg(finger).arg(3001 + finger));
    }
    command("set 2 selftest 0");
    command("set 2 beepswitch 0");
}

void TestParameters::trigger(const QString& action, const QString& path, Act act)
{
    m_boxes.clear();
    const QString file = QDir::current().absoluteFilePath(path);
    DialogAnswer<QFileDialog> files([&](QFileDialog* dialog) { chooseFile(*dialog, file); });
    DialogAnswer<QMessageBox> boxes([&](QMessageBox* box) {
        m_boxes.append((box->text() + ' ' + box->informativeText()).trimmed());
        const bool accepts = m_boxes.size() <= m_acceptedBoxes;
        auto* yes = box->button(accepts ? QMessageBox::Yes : QMessageBox::No);
        (yes ? yes : box->button(QMessageBox::Ok))->click();
    });
    DialogAnswer<ParametersDialog> dialogs([&](ParametersDialog* dialog) {
        QVERIFY(!Conversation::isActive());
        act(dialog);
        dialog->reject();
    });
    m_tool->trigger(action);
    QCOMPARE(dialogs.count(), act ? 1 : 0);
}

void TestParameters::saveTo(const QString& path)
{
    trigger("action_Save_Parameters", path);
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_boxes, QStringList());
}

void TestParameters::compare(const QString& path, Act act)
{
    trigger("action_Restore_Parameters", path, std::move(act));
}

void TestParameters::restore(ParametersDialog* dialog) const
{
    const auto* close = dialog->findChild<QPushButton*>("pushButton_ParametersClose");
    dialog->findChild<QPushButton*>("pushButton_Restore")->click();
    QCOMPARE(close->text(), "Cancel");
    QTRY_COMPARE_WITH_TIMEOUT(close->text(), "Close", 60'000);
}

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
        restore(dialog);
    });
    QCOMPARE(m_boxes.size(), questions);
    QCOMPARE(ticked, questions > 0 && accepted >= questions);
    QCOMPARE(frames({WriteCalibration}).size(), ticked);
    QCOMPARE(m_hand->command("get 2 raw 0").startsWith("ok"), true);
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
    if (fault.contains("drop") || act == "unplug")
        expectTimeouts(500);
    open();
    saveTo("before.json");
    for (int finger = 0; finger < 6; ++finger)
        command(QString("set 2 current-limit %1 %2").arg(finger).arg(301 + finger));
    command(fault);
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

void TestParameters::copiedGains()
{
    open();
    saveTo("before.json");
    clearRecords();
    compare("before.json", [&](ParametersDialog* dialog) {
        command("set 2 pid-p 1 77.5");
        command("set 2 pid-g 3 1.5");
        QCOMPARE(countResults(tableOf(dialog), "written"), 0);
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
    });
    QCOMPARE(frames(writeCommands()), QStringList());
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
    QVERIFY(m_tool->window()->isEnabled() && areEnabled());
}

bool TestParameters::areEnabled() const
{
    int count = 0;
    for (const char* name :
         {"action_Save_Parameters", "action_Restore_Parameters", "action_Hand_Information"})
        count += m_tool->find<QAction>(name)->isEnabled();
    if (count != 0 && count != 3)
        qWarning("the actions differ");
    return count == 3;
}

void TestParameters::enabled()
{
    expectTimeouts(300);
    {
        TestWindow closed;
        QVERIFY(!closed.find<QAction>("action_Save_Parameters")->isEnabled());
    }
    open();
    QVERIFY(areEnabled());
    m_tool->showPage(SequenceTab);
    m_tool->click("pushButton_SeqInsert");
    auto* run = m_tool->find<QPushButton>("pushButton_SeqRun");
    QTRY_VERIFY(run->isEnabled());
    QTRY_VERIFY(areEnabled());
    m_tool->setField("lineEdit_SeqDelay", "5000");
    emit m_tool->find<QLineEdit>("lineEdit_SeqDelay")->editingFinished();
    m_tool->click("pushButton_SeqInsert");
    QTRY_VERIFY(run->isEnabled());
    m_tool->find<QTableWidget>("tableWidget_Seq")->setCurrentCell(0, 0);
    QTRY_VERIFY(run->isEnabled());
    m_tool->click("pushButton_SeqRun");
    QVERIFY(!areEnabled());
    m_tool->click("pushButton_SeqStop");
    QTRY_VERIFY(areEnabled());
    m_tool->click("pushButton_Halt");
    QVERIFY(!areEnabled());
    QTRY_COMPARE(m_tool->find<QPushButton>("pushButton_Halt")->text(), "Continue");
    QVERIFY(!areEnabled());
    QTest::qWait(800); // an earlier click halts once more
    m_tool->click("pushButton_Halt");
    QTRY_VERIFY(areEnabled());
    DialogAnswer<QMessageBox> calibration([&](QMessageBox* box) {
        QVERIFY(!areEnabled());
        box->reject();
    });
    m_tool->showPage(BasicTab);
    m_tool->click("pushButton_BasicRecalibrate");
    QCOMPARE(calibration.count(), 1);
    QVERIFY(areEnabled());
    command("hang");
    for (int i = 0; i < 3; ++i)
        m_tool->click("pushButton_BasicBeep");
    QTRY_VERIFY(!areEnabled());
    command("hang off");
    QTRY_VERIFY(areEnabled());
    command("unplug");
    QTRY_VERIFY(!areEnabled());
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
        QVERIFY(stateOf(dialog).startsWith("Node 0xff is every hand on the bus."));
    });
    QCOMPARE(frames(writeCommands()), QStringList());
}

void TestParameters::information()
{
    open();
    trigger("action_Hand_Information", {});
    auto* dialog = m_tool->window()->findChild<QDialog*>("handInformation");
    QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
    dialog->findChild<QPushButton*>("pushButton_InformationCopy")->click();
    const QString text = QApplication::clipboard()->text();
    for (const char* part : {"1.4.7", "1B01"})
        QVERIFY2(text.contains(part), qPrintable(text));
    QCOMPARE(text.count('\n') >= dialog->findChild<QTableWidget*>()->rowCount() - 1, true);

    dialog->findChild<QPushButton*>("pushButton_SaveReport")->click();
    auto* files = dialog->findChild<QFileDialog*>();
    QVERIFY(files && !files->isModal());
    const QString path = QDir::current().absoluteFilePath("report.json");
    chooseFile(*files, path);
    QTRY_VERIFY(QFile::exists(path));
    const QByteArray report = QJsonDocument(contentOf(path)).toJson();
    for (const char* part : {"Basic info loaded", "currentLimit", "55 aa"})
        QVERIFY2(report.contains(part), part);
}

void TestParameters::backupBeforeCalibration()
{
    open();
    clearRecords();
    QStringList labels;
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        labels.append(dialog->findChild<QLabel*>()->text());
        if (auto* box = qobject_cast<QMessageBox*>(dialog))
            return box->button(QMessageBox::Ok)->click();
        QCOMPARE(backups().size(), 1); // before the key is entered
        dialog->reject();
    });
    m_tool->click("pushButton_BasicRecalibrate");
    QCOMPARE(answer.count(), 2);
    for (const QString& frame : frames())
        QVERIFY2(frame.left(2).toInt(nullptr, 16) < 0x40, qPrintable(frame)); // reads only
    QVERIFY(contentOf(backups().value(0)).contains("calibration"));
    QVERIFY2(backups()[0].contains("1B01-"), qPrintable(backups()[0]));
}

/// The comparison with the backup is offered once.
void TestParameters::comparisonAfterUpdate()
{
    open();
    {
        DialogAnswer<QDialog> answer([&](QDialog* dialog) {
            auto* input = qobject_cast<QInputDialog*>(dialog);
            if (input)
                input->setTextValue("local");
            if (qobject_cast<QFileDialog*>(dialog))
                chooseFile(*dialog, SAMPLE);
            else if (input || qobject_cast<QMessageBox*>(dialog))
                dialog->accept();
        });
        m_tool->click("pushButton_BasicUpdateFirmware");
    }
    QCOMPARE(backups().size(), 1);
    const auto* notice = m_tool->find<QWidget>("noticeBar");
    QVERIFY(!notice->isVisible());
    command("set 2 pid-p 4 9.5");
    listAgain();
    QTRY_VERIFY(notice->isVisible());
    clearRecords();
    compare(backups()[0], [](ParametersDialog*) {}); // the notice does not disturb
    DialogAnswer<ParametersDialog> dialogs([&](ParametersDialog* dialog) {
        QTableWidget* table = tableOf(dialog);
        QVERIFY(isTicked(table, rowOf(table, "P", "Little")));
        restore(dialog);
        dialog->reject();
    });
    m_tool->click("pushButton_Notice");
    QCOMPARE(dialogs.count(), 1);
    QVERIFY(!notice->isVisible());
    QCOMPARE(frames(writeCommands()).size(), 1);
    m_tool->devices()->setCurrentIndex(-1);
    m_tool->devices()->setCurrentIndex(0);
    QTest::qWait(0);
    QVERIFY(!notice->isVisible());
}

VANTO_TEST(TestParameters)

} // namespace vanto

#include "tst_parameters.moc"
