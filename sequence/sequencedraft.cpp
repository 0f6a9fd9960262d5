#include "sequencedraft.h"

#include "sequencemanager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>

#include <optional>
#include <utility>

namespace vanto
{

namespace
{
constexpr QLatin1String FileKey("file");
constexpr QLatin1String DraftSuffix(".json");
constexpr QLatin1String LockSuffix(".lock");

QString lockPath(const QString& draft)
{
    return draft.chopped(DraftSuffix.size()) + LockSuffix;
}

/// Nothing if the process that created the lock still runs.
std::unique_ptr<QLockFile> tryLock(const QString& path)
{
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0); // only the end of its process frees it
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

std::optional<SequenceDraft::Abandoned> read(const QFileInfo& info)
{
    QFile file(info.filePath());
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.read(SequenceManager::MaxFileBytes);
    SequenceDraft::Abandoned draft{info.filePath(), info.lastModified(), {}, {}, nullptr};
    if (!draft.data.fromJSON(bytes))
        return std::nullopt;
    draft.file = QJsonDocument::fromJson(bytes).object().value(FileKey).toString();
    return draft;
}
} // namespace

SequenceDraft::SequenceDraft(const QString& folder, QObject* parent)
    : QObject(parent),
      m_folder(folder),
      m_path(folder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces) +
             DraftSuffix)
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

std::vector<SequenceDraft::Abandoned> SequenceDraft::findAbandoned(const QString& folder)
{
    std::vector<Abandoned> drafts;
    const QDir dir(folder);
    for (const QFileInfo& info : dir.entryInfoList({QLatin1Char('*') + LockSuffix}, QDir::Files))
        if (!dir.exists(info.completeBaseName() + DraftSuffix))
            tryLock(info.filePath()); // removes what a process that was killed has left
    for (const QFileInfo& info :
         dir.entryInfoList({QLatin1Char('*') + DraftSuffix}, QDir::Files, QDir::Time)) {
        auto lock = tryLock(lockPath(info.filePath()));
        if (!lock)
            continue;
        if (auto draft = read(info)) {
            draft->lock = std::move(lock);
            drafts.push_back(std::move(*draft));
        }
    }
    return drafts;
}

void SequenceDraft::discard(Abandoned draft)
{
    QFile::remove(draft.path);
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
        m_writer.start([this, data, file] { store(data, file); });
}

void SequenceDraft::take(Abandoned draft)
{
    if (!lock())
        return;
    auto taken = std::make_shared<Abandoned>(std::move(draft));
    m_writer.start([this, taken] {
        if (store(taken->data, taken->file))
            QFile::remove(taken->path);
    });
}

void SequenceDraft::remove()
{
    if (m_lock)
        m_writer.start([path = m_path] { QFile::remove(path); });
}

/// Runs in the thread of the writer.
bool SequenceDraft::store(const SequenceData& data, const QString& file)
{
    QJsonObject document = QJsonDocument::fromJson(data.toJSON()).object();
    document.insert(FileKey, file);
    const QByteArray json = QJsonDocument(document).toJson(QJsonDocument::Compact);
    QSaveFile draft(m_path);
    if (draft.open(QIODevice::WriteOnly) && draft.write(json) == json.size() && draft.commit())
        return true;
    QMetaObject::invokeMethod(
        this, [this, reason = draft.errorString()] { emit sig_failed(reason); },
        Qt::QueuedConnection);
    return false;
}

} // namespace vanto
