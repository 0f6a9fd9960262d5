#include "messagelog.h"
#include "pageindex.h"
#include "sequencedraft.h"
#include "sequencetest.h"

#include <QDir>
#include <QMenu>

namespace vanto
{

/// The file of a sequence, and its unsaved steps.
class TestSequenceFiles : public SequenceTest
{
    Q_OBJECT
private slots:
    void fileAndState();
    void drafts();

private:
    QStringList messages() const { return m_tool->window()->findChild<MessageLog*>()->lines(); }
};

void TestSequenceFiles::fileAndState()
{
    const auto* name = m_tool->find<QLabel>("label_SeqFile");
    QCOMPARE(name->text(), "given.json");
    select(0);
    m_tool->trigger("action_Duplicate_Step");
    QCOMPARE(name->text(), "given.json (not saved)");
    m_tool->trigger("action_Undo");
    QCOMPARE(name->text(), "given.json");
    m_tool->trigger("action_Redo");
    QVERIFY(QFile::link("/dev/full", "full.json")); // can be opened, but not written
    choose("pushButton_SeqSave", "full.json");
    QCOMPARE(name->text(), "given.json (not saved)");
    QVERIFY(messages().constLast().contains("full.json is not saved: "));
    choose("pushButton_SeqSave", "b.json");
    QCOMPARE(name->text(), "b.json");
    const QByteArray saved = json();
    load("{}", "bad.json");
    QVERIFY(messages().constLast().contains("bad.json cannot be loaded: "));
    QCOMPARE(json(), saved);
    QCOMPARE(shown(), QStringList());
    m_tool->trigger("action_Undo");
    QCOMPARE(name->text(), "b.json (not saved)");
    m_tool->trigger("action_Undo"); // of Load
    QCOMPARE(name->text(), "No file");
    auto* recent = m_tool->find<QMenu>("menu_Recent_Sequences");
    emit recent->aboutToShow();
    QCOMPARE(recent->actions().size(), 2);
    recent->actions().constFirst()->trigger();
    QCOMPARE(name->text(), "b.json");
    QCOMPARE(json(), saved);
    choose("pushButton_SeqLoad", "b.json"); // again
    choose("pushButton_SeqSave", "c.json");
    m_tool->trigger("action_Undo");
    QCOMPARE(name->text(), "b.json");
    load(ThreeSteps);
    QVERIFY(QFile::link("b.json", "link.json"));
    choose("pushButton_SeqSave", "link.json");
    m_tool->trigger("action_Undo");
    QCOMPARE(name->text(), "b.json (not saved)"); // it has the three steps now
    choose("pushButton_SeqSave", "d.json");
    QVERIFY(QFile::remove("d.json") && QFile::link("/dev/full", "d.json"));
    choose("pushButton_SeqSave", "d.json");
    QCOMPARE(name->text(), "d.json (not saved)"); // its content may be lost
    QCOMPARE(frames(), QStringList());
}

/// The second window finds the draft of the first one, which was closed with unsaved work.
void TestSequenceFiles::drafts()
{
    const QString program = QCoreApplication::applicationName();
    const auto folder = [&] { return QDir(QDir::currentPath() + '/' + program + "/drafts"); };
    QVERIFY(!m_tool->find<QWidget>("widget_SeqDraft")->isVisible());
    table()->selectAll();
    m_tool->trigger("action_Duplicate_Step");
    QTRY_COMPARE_WITH_TIMEOUT(folder().entryList({"*.json"}).size(), 1, DraftMs);
    choose("pushButton_SeqSave", "given2.json");
    QTRY_COMPARE_WITH_TIMEOUT(folder().entryList({"*.json"}).size(), 0, DraftMs);
    m_tool->trigger("action_Duplicate_Step");
    const QByteArray unsaved = json();
    const QDir written = folder();
    close();

    open({"--node", "2", "--speed", "50"});
    QVERIFY(QDir().mkpath(folder().path()));
    for (const QString& file : written.entryList(QDir::Files))
        QVERIFY(QFile::copy(written.filePath(file), folder().filePath(file)));
    QCOMPARE(folder().entryList({"*.json"}).size(), 1);
    m_tool->showPage(SequenceTab);
    QVERIFY(m_tool->find<QWidget>("widget_SeqDraft")->isVisible());
    QVERIFY(m_tool->find<QLabel>("label_SeqDraft")->text().contains("given2.json, 9 steps"));
    clearRecords();
    m_tool->click("pushButton_SeqRestoreDraft");
    QCOMPARE(json(), unsaved);
    QCOMPARE(m_tool->find<QLabel>("label_SeqFile")->text(), "given2.json (not saved)");
    QVERIFY(!m_tool->find<QWidget>("widget_SeqDraft")->isVisible());
    const auto drafts = [&] { return SequenceDraft::findAbandoned(folder().path()).size(); };
    const auto files = [&] { return folder().entryList({"*.json"}).size(); };
    m_tool->trigger("action_Undo");
    QCOMPARE(table()->rowCount(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(files(), 1, DraftMs); // the work is nowhere else
    m_tool->trigger("action_Redo");
    load(ThreeSteps, "other.json"); // replaces the unsaved work
    QTRY_COMPARE_WITH_TIMEOUT(files(), 1, DraftMs);
    m_tool->trigger("action_Undo");
    choose("pushButton_SeqSave", "given3.json");
    QTRY_COMPARE_WITH_TIMEOUT(files(), 0, DraftMs);
    QCOMPARE(drafts(), 0U);
    QCOMPARE(frames(), QStringList());
}

VANTO_TEST(TestSequenceFiles)

} // namespace vanto

#include "tst_sequencefiles.moc"
