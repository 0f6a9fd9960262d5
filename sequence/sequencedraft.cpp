#include "sequencedraft.h"

#include "wholefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>

#include <utility>

namespace vanto
{

namespace
{
constexpr QLatin1String FileKey("file");
constexpr QLatin1String DraftSuffix(".json");
constexpr QLatin1String LockSuffix(".lock");
constexpr qint64 NewLockSecs = 10;
constexpr int MaxDiscarded = 10;

QString lockPath(const QString& draft)
{
    return draft.chopped(DraftSuffix.size()) + LockSuffix;
}

QString newPath(const QString& folder)
{
    return folder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces) +
           DraftSuffix;
}

/// Nothing if the process that created the lock still runs.
std::unique_ptr<QLockFile> tryLock(const QString& path)
{
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0); // only the end of its process frees it
    if (lock->tryLock(0))
        return lock;
    // After a power cut it may be empty; a new one is empty only for a moment.
    const QFileInfo info(path);
    const bool isEmpty = info.exists() && info.size() == 0 &&
                         info.lastModified().secsTo(QDateTime::currentDateTime()) > NewLockSecs;
    return isEmpty && QFile::remove(path) && lock->tryLock(0) ? std::move(lock) : nullptr;
}

/// Removes what a process that was killed while it wrote the draft has left beside it.
void removeTemporaries(const QDir& dir, const QString& draft)
{
    for (const QString& name : dir.entryList({draft + QLatin1String(".*")}, QDir::Files))
        QFile::remove(dir.filePath(name));
}

bool read(QFile& file, SequenceDraft::Abandoned& draft)
{
    const QByteArray bytes = file.readAll();
    file.close(); // it may be renamed
    if (!draft.data.fromJSON(bytes))
        return false;
    draft.file = QJsonDocument::fromJson(bytes).object().value(FileKey).toString();
    return true;
}
} // namespace

SequenceDraft::SequenceDraft(const QString& folder, QObject* parent)
    : QObject(parent), m_folder(folder), m_path(newPath(folder))
{
    m_writer.setMaxThreadCount(1);
}

SequenceDraft::~SequenceDraft()
{
    m_writer.waitForDone();
}

QString SequenceDraft::userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/drafts");
}

std::vector<SequenceDraft::Abandoned> SequenceDraft::findAbandoned(const QString& folder,
                                                                   QStringList* damaged)
{
    std::vector<Abandoned> drafts;
    const QDir dir(folder);
    for (const QFileInfo& info : dir.entryInfoList({QLatin1Char('*') + LockSuffix}, QDir::Files))
        if (const QString draft = info.completeBaseName() + DraftSuffix; !dir.exists(draft))
            if (const auto lock = tryLock(info.filePath())) // removed with it
                removeTemporaries(dir, draft);
    for (const QFileInfo& info :
         dir.entryInfoList({QLatin1Char('*') + DraftSuffix}, QDir::Files, QDir::Time)) {
        auto lock = tryLock(lockPath(info.filePath()));
        if (!lock)
            continue;
        removeTemporaries(dir, info.fileName());
        QFile file(info.filePath());
        if (!info.isFile() || !file.open(QIODevice::ReadOnly))
            continue;
        Abandoned draft{info.filePath(), info.lastModified(), {}, {}, std::move(lock)};
        if (read(file, draft))
            drafts.push_back(std::move(draft));
        else if (const QString moved = discard(std::move(draft)); damaged)
            damaged->append(moved);
    }
    return drafts;
}

QString SequenceDraft::discard(Abandoned draft)
{
    const QFileInfo info(draft.path);
    const QDir folder(info.path() + QStringLiteral("/discarded"));
    QFile file(draft.path);
    // The newest ones are kept by the time at which they were discarded.
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
    file.close();
    if (folder.mkpath(QStringLiteral(".")))
        file.rename(folder.filePath(info.fileName()));
    const QStringList files = folder.entryList(QDir::Files, QDir::Time);
    for (const QString& old : files.mid(MaxDiscarded))
        QFile::remove(folder.filePath(old));
    return file.fileName();
}

bool SequenceDraft::lock()
{
    if (!m_lock && QDir().mkpath(m_folder))
        m_lock = tryLock(lockPath(m_path));
    if (!m_lock)
        emit sig_failed(tr("The folder %1 is not writable.").arg(m_folder));
    return m_lock != nullptr;
}

void SequenceDraft::write(const SequenceData& data, const QString& file)
{
    if (lock())
        m_writer.start([this, path = m_path, data, file] { store(path, data, file); });
}

void SequenceDraft::take(Abandoned draft)
{
    if (!lock())
        return;
    auto taken = std::make_shared<Abandoned>(std::move(draft));
    m_writer.start([this, path = m_path, taken] {
        if (store(path, taken->data, taken->file))
            QFile::remove(taken->path);
    });
}

void SequenceDraft::remove()
{
    if (m_lock)
        m_writer.start([path = m_path] { QFile::remove(path); });
}

SequenceDraft::Kept SequenceDraft::keep()
{
    return {std::exchange(m_path, newPath(m_folder)), std::move(m_lock)};
}

void SequenceDraft::adopt(Kept kept)
{
    if (m_lock) // free only once its file is removed
        m_writer.start([old = std::shared_ptr<QLockFile>(std::move(m_lock))] {});
    m_path = std::move(kept.path);
    m_lock = std::move(kept.lock);
}

/// Runs in the thread of the writer.
bool SequenceDraft::store(const QString& path, const SequenceData& data, const QString& file)
{
    QJsonObject document = QJsonDocument::fromJson(data.toJSON()).object();
    document.insert(FileKey, file);
    const QByteArray json = QJsonDocument(document).toJson(QJsonDocument::Compact);
    QSaveFile draft(path);
    if (draft.open(QIODevice::WriteOnly) && writeWhole(draft, json))
        return true;
    QMetaObject::invokeMethod(
        this, [this, reason = draft.errorString()] { emit sig_failed(reason); },
        Qt::QueuedConnection);
    return false;
}

} // namespace vanto
