#include "sequencedraft.h"
#include "sequencemanager.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vanto
{

/// Files and drafts of sequences when something goes wrong.
class TestFiles : public QObject
{
    Q_OBJECT
private slots:
    void notRegular();
    void tooLarge();
    void fullDisk_data();
    void fullDisk();
    void fullDiskAndDraft();
    void readOnlyFolder();
    void killedWriter();
    void severalDrafts();

private:
    static SequenceData sequenceOf(int steps);
    static QByteArray contentOf(const QString& name);
    /// Writing more than this fails as on a full disk.
    static void setLargestFile(rlim_t bytes);

    QTemporaryDir m_folder;
};

SequenceData TestFiles::sequenceOf(int steps)
{
    SequenceData data;
    data.sequences.fill({{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}, steps % 65536}, steps);
    return data;
}

QByteArray TestFiles::contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void TestFiles::notRegular()
{
    const QString pipe = m_folder.filePath("pipe");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    SequenceManager manager;
    for (const QString& name : {pipe, QString("/dev/zero")}) {
        QTest::ignoreMessage(QtDebugMsg, "can't open error!");
        QFile file(name);
        QVERIFY(!manager.loadSequenceData(file));
        QVERIFY(!manager.fileError().isEmpty());
    }
    // A pipe can be written.
    const int reader = ::open(qPrintable(pipe), O_RDONLY | O_NONBLOCK);
    QFile file(pipe);
    QVERIFY(manager.saveSequenceData(file));
    QCOMPARE(manager.fileError(), QString());
    QByteArray read(1000, 0);
    read.resize(::read(reader, read.data(), 1000));
    ::close(reader);
    QCOMPARE(read, manager.sequenceData().toJSON());
    QFile full("/dev/full");
    QVERIFY(manager.saveSequenceData(full)); // it could be opened
    QVERIFY(manager.mayHaveDamaged());
    QVERIFY(!manager.fileError().isEmpty());
}

void TestFiles::tooLarge()
{
    QFile file(m_folder.filePath("large.json"));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(SequenceData().toJSON());
    QVERIFY(file.resize(SequenceManager::MaxFileBytes + 1));
    file.close();
    SequenceManager manager;
    QVERIFY(!manager.loadSequenceData(file));
    QVERIFY(manager.fileError().contains("64 MiB"));
}

void TestFiles::setLargestFile(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, RLIM_INFINITY};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

void TestFiles::fullDisk_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("room"); ///< bytes that can be written
    QTest::newRow("one step") << 1 << 64;
    QTest::newRow("many steps") << 100 << 4096;
}

void TestFiles::fullDisk()
{
    QFETCH(int, steps);
    QFETCH(int, room);
    SequenceManager manager;
    QFile file(m_folder.filePath("kept.json"));
    QVERIFY(manager.saveSequenceData(file));
    QVERIFY(QFile::setPermissions(file.fileName(), QFile::ReadOwner | QFile::WriteOwner));
    const QByteArray before = contentOf(file.fileName());
    for (int i = 0; i < steps; ++i)
        manager.insertSequenceDataItem(i, sequenceOf(1).sequences.constFirst());
    setLargestFile(static_cast<rlim_t>(room));
    const bool opened = manager.saveSequenceData(file);
    setLargestFile(RLIM_INFINITY);
    QVERIFY(opened);
    QVERIFY(!manager.fileError().isEmpty());
    QVERIFY(!manager.mayHaveDamaged());
    QCOMPARE(contentOf(file.fileName()), before);
    QCOMPARE(QDir(m_folder.path()).entryList({"kept*"}).size(), 1);
    QVERIFY(manager.saveSequenceData(file));
    QCOMPARE(manager.fileError(), QString());
    QCOMPARE(contentOf(file.fileName()), manager.sequenceData().toJSON());
    QCOMPARE(QFile::permissions(file.fileName()) & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
}

/// Neither the draft of this process nor one that it takes over is lost.
void TestFiles::fullDiskAndDraft()
{
    const QString folder = m_folder.filePath("full");
    {
        SequenceDraft ended(folder);
        ended.write(sequenceOf(1), {});
    }
    auto left = SequenceDraft::findAbandoned(folder);
    QCOMPARE(left.size(), 1U);
    {
        SequenceDraft own(folder);
        own.write(sequenceOf(2), {});
        QTRY_COMPARE(QDir(folder).entryList({"*.json"}).size(), 2);
        QSignalSpy failed(&own, &SequenceDraft::sig_failed);
        setLargestFile(64);
        own.write(sequenceOf(3), {});
        own.take(std::move(left.front()));
        QTRY_COMPARE(failed.size(), 2);
        setLargestFile(RLIM_INFINITY);
        left.clear();
    }
    QList<SequenceData> found;
    for (const auto& draft : SequenceDraft::findAbandoned(folder))
        found.append(draft.data);
    QCOMPARE(found.size(), 2);
    QVERIFY(found.contains(sequenceOf(1)) && found.contains(sequenceOf(2)));
}

/// An unprivileged user cannot create a file beside the old one.
void TestFiles::readOnlyFolder()
{
    const QString folder = m_folder.filePath("closed");
    QVERIFY(QDir().mkdir(folder));
    QFile file(folder + "/open.json");
    SequenceManager manager;
    QVERIFY(manager.saveSequenceData(file));
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    manager.insertSequenceDataItem(0, sequenceOf(1).sequences.constFirst());
    QVERIFY(manager.saveSequenceData(file));
    QCOMPARE(manager.fileError(), QString());
    QCOMPARE(contentOf(file.fileName()), manager.sequenceData().toJSON());
    QFile other(folder + "/other.json");
    if (geteuid() != 0) {
        QTest::ignoreMessage(QtDebugMsg, "can't open error!");
        QVERIFY(!manager.saveSequenceData(other));
    }
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

/// A process that writes its draft again and again is killed at random moments.
void TestFiles::killedWriter()
{
    const QString folder = m_folder.filePath("drafts");
    int found = 0;
    for (int i = 0; i < 20; ++i) {
        const pid_t writer = fork();
        QVERIFY(writer >= 0);
        if (writer == 0) {
            SequenceDraft draft(folder);
            for (int steps = 1;; steps = steps % 500 + 1) {
                draft.write(sequenceOf(steps), "/a/wave.json");
                usleep(1000);
            }
        }
        QTRY_VERIFY(!QDir(folder).entryList({"*.json"}).isEmpty());
        QTest::qWait(QRandomGenerator::global()->bounded(30)); // a random moment
        QVERIFY(SequenceDraft::findAbandoned(folder).empty());
        ::kill(writer, SIGKILL);
        QCOMPARE(waitpid(writer, nullptr, 0), writer);
        for (auto& draft : SequenceDraft::findAbandoned(folder)) {
            ++found;
            QCOMPARE(draft.file, "/a/wave.json");
            QCOMPARE(draft.data, sequenceOf(static_cast<int>(draft.data.sequences.size())));
            SequenceDraft::discard(std::move(draft));
        }
        const QStringList left = QDir(folder).entryList(QDir::Files);
        QCOMPARE(left, QStringList());
    }
    QCOMPARE(found, 20);
}

void TestFiles::severalDrafts()
{
    const QString folder = m_folder.filePath("several");
    for (int steps : {1, 2}) {
        SequenceDraft draft(folder);
        draft.write(sequenceOf(steps), {});
    }
    {
        SequenceDraft saved(folder);
        saved.write(sequenceOf(3), {});
        saved.remove();
    }
    QFile damaged(folder + "/damaged.json");
    QVERIFY(damaged.open(QFile::WriteOnly));
    QVERIFY(
        QFile::copy(QDir(folder).entryInfoList({"*-*.json"})[0].filePath(), folder + "/cut.json"));
    QFile emptyLock(folder + "/cut.lock"); // as after a power cut
    QVERIFY(emptyLock.open(QFile::WriteOnly));
    QStringList names;
    QCOMPARE(SequenceDraft::findAbandoned(folder, &names).size(), 2U); // the lock may be a new one
    QCOMPARE(names, QStringList(folder + "/discarded/damaged.json"));
    QVERIFY(QFile::exists(names[0]));
    QVERIFY(emptyLock.setFileTime(QDateTime::currentDateTime().addSecs(-60),
                                  QFile::FileModificationTime));
    auto drafts = SequenceDraft::findAbandoned(folder);
    QCOMPARE(drafts.size(), 3U);
    for (int i = 0; i < 12; ++i) { // newer than the draft, but discarded earlier
        QFile other(folder + QString("/discarded/%1.json").arg(i));
        QVERIFY(other.open(QFile::WriteOnly));
        QVERIFY(other.setFileTime(QDateTime::currentDateTime().addSecs(-1),
                                  QFile::FileModificationTime));
    }
    QFile oldest(drafts.back().path);
    QVERIFY(oldest.open(QFile::ReadWrite));
    QVERIFY(
        oldest.setFileTime(QDateTime::currentDateTime().addDays(-30), QFile::FileModificationTime));
    SequenceDraft::discard(std::move(drafts.back()));
    drafts.pop_back();
    QCOMPARE(QDir(folder + "/discarded").entryList(QDir::Files).size(), 10);
    QVERIFY(QFile::exists(folder + "/discarded/" + QFileInfo(oldest).fileName()));
    QVERIFY(SequenceDraft::findAbandoned(folder).empty()); // offered by one process only
    {
        SequenceDraft own(folder);
        own.take(std::move(drafts.front()));
        drafts.clear();
    }
    QCOMPARE(SequenceDraft::findAbandoned(folder).size(), 2U);
}

VANTO_TEST(TestFiles)

} // namespace vanto

#include "tst_files.moc"
