#include "parameterbackup.h"
#include "parametertest.h"
#include "testmain.h"

#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QInputDialog>
#include <QJsonDocument>
#include <QLabel>
#include <QStandardPaths>

namespace vanto
{

/// When parameters can be saved, the backups that the window makes by itself, and the information
/// about a hand.
class TestParameterBackups : public ParameterTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void enabled();
    void information();
    void backupBeforeCalibration();
    void comparisonAfterUpdate();
    void backupFails();

private:
    bool areEnabled() const;
    /// Until the key is asked for; `count` backups must exist then.
    void calibrate(int count) const;
    void updateFirmware() const;
};

namespace
{
constexpr int ReadUid = 0x23;

QStringList backups()
{
    const QDir folder(ParameterBackup::folder());
    QStringList files;
    for (const QString& name : folder.entryList(QDir::Files))
        files.append(folder.filePath(name));
    return files;
}
} // namespace

bool TestParameterBackups::areEnabled() const
{
    int count = 0;
    for (const char* name :
         {"action_Save_Parameters", "action_Restore_Parameters", "action_Hand_Information"})
        count += m_tool->find<QAction>(name)->isEnabled();
    count += m_tool->find<QPushButton>("pushButton_Notice")->isEnabled();
    if (count != 0 && count != 4)
        qWarning("the actions differ");
    return count == 4;
}

void TestParameterBackups::calibrate(int count) const
{
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(dialog))
            return box->button(QMessageBox::Ok)->click();
        QCOMPARE(backups().size(), count);
        dialog->reject();
    });
    m_tool->click("pushButton_BasicRecalibrate");
    QCOMPARE(answer.count(), 2);
}

void TestParameterBackups::updateFirmware() const
{
    DialogAnswer<QDialog> answer([](QDialog* dialog) {
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

void TestParameterBackups::enabled()
{
    expectTimeouts(300);
    {
        TestWindow closed;
        QVERIFY(!closed.find<QAction>("action_Save_Parameters")->isEnabled());
        QVERIFY(!closed.find<QPushButton>("pushButton_Notice")->isEnabled());
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
    QTRY_VERIFY(!areEnabled());
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

void TestParameterBackups::information()
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
    auto* types = files->findChild<QComboBox*>("fileTypeCombo");
    types->setFocus();
    QTest::keyClick(types, Qt::Key_Down);
    QCOMPARE(QFileInfo(files->selectedFiles().value(0)).fileName(), "report.json");
    const QString path = QDir::current().absoluteFilePath("report.json");
    chooseFile(*files, path);
    QTRY_VERIFY(QFile::exists(path));
    const QByteArray report = QJsonDocument(contentOf(path)).toJson();
    for (const char* part : {"Basic info loaded", "currentLimit", "55 aa"})
        QVERIFY2(report.contains(part), part);
}

void TestParameterBackups::backupBeforeCalibration()
{
    open();
    clearRecords();
    calibrate(1); // before the key is entered
    for (const QString& frame : frames())
        QVERIFY2(frame.left(2).toInt(nullptr, 16) < 0x40, qPrintable(frame)); // reads only
    QVERIFY(contentOf(backups().value(0)).contains("calibration"));
    QVERIFY2(backups()[0].contains("1B01-"), qPrintable(backups()[0]));
}

/// The comparison with the backup is offered once.
void TestParameterBackups::comparisonAfterUpdate()
{
    open({"--node", "2", "--node", "3"}, 2);
    updateFirmware();
    QCOMPARE(backups().size(), 1);
    const auto* notice = m_tool->find<QWidget>("noticeBar");
    QVERIFY(!notice->isVisible());
    command("set 2 pid-p 4 9.5");
    clearRecords();
    m_tool->list({m_listed[1], m_listed[0]}); // another hand is only asked who it is
    QTRY_COMPARE(addressed().count("03:23"), 1);
    saveTo("other.json"); // takes longer than a comparison
    QCOMPARE(addressed().count("03:05"), 6 + 6);
    QVERIFY(!notice->isVisible());
    m_tool->devices()->setCurrentIndex(1);
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
    command("set 2 pid-p 4 8.5");
    m_tool->devices()->setCurrentIndex(-1);
    clearRecords();
    m_tool->devices()->setCurrentIndex(1);
    QTRY_VERIFY(areEnabled());
    saveTo("again.json"); // takes longer than a comparison, which would have begun before
    QCOMPARE(frames({ReadUid}).size(), 1);
    QVERIFY(!notice->isVisible());
}

/// A failure is reported and blocks nothing. An older backup is not taken for that of an update.
void TestParameterBackups::backupFails()
{
    const QString failure = "The parameters were not backed up. The hand does not answer.";
    expectTimeouts(300);
    open();
    command("fault drop command=0x20");
    calibrate(0);
    QVERIFY(shown().contains(failure));
    command("fault refuse command=0x05 skip=2");
    calibrate(1);
    QVERIFY2(shown().join('|').contains("The backup is incomplete. Current limit, Middle"),
             qPrintable(shown().join('|')));
    clearRecords();
    command("fault drop command=0x20");
    updateFirmware();
    QVERIFY(shown().contains(failure));
    QCOMPARE(m_tool->devices()->count(), 0); // the update has closed the hand
    command("set 2 pid-p 4 9.5");
    listAgain();
    saveTo("after.json"); // takes longer than a comparison
    QVERIFY(!m_tool->find<QWidget>("noticeBar")->isVisible());
}

VANTO_TEST(TestParameterBackups)

} // namespace vanto

#include "tst_parameterbackups.moc"
