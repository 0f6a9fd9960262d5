#pragma once

#include "sequencedata.h"

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QStringList>
#include <QThreadPool>

#include <memory>
#include <vector>

namespace vanto
{

/// The unsaved sequence of this process, in a file of its own, so that it survives the process. A
/// lock beside the file shows whether the process that wrote it still runs.
///
/// The file has the form of a sequence file, with the name of the file that the sequence belongs
/// to. It is replaced as a whole, in the background: a long sequence takes a while.
class SequenceDraft : public QObject
{
    Q_OBJECT
public:
    /// A draft whose process has ended. It is locked, so that no other process offers it, too.
    struct Abandoned {
        QString path;
        QDateTime written;
        SequenceData data;
        QString file; ///< empty if the sequence was never saved
        std::unique_ptr<QLockFile> lock;
    };

    /// A draft of this process that is left as it is.
    struct Kept {
        QString path;
        std::unique_ptr<QLockFile> lock;
    };

    /// Nothing is written before the first write().
    explicit SequenceDraft(const QString& folder, QObject* parent = nullptr);
    /// Waits until the file is written, and keeps it.
    ~SequenceDraft() override;

    /// The folder for the drafts of the user.
    static QString userFolder();
    /// The drafts of processes that have ended, the last one first. Damaged ones are discarded;
    /// `damaged` gets their new names.
    static std::vector<Abandoned> findAbandoned(const QString& folder,
                                                QStringList* damaged = nullptr);
    /// Moves the file to the subfolder "discarded", which keeps the ones that were discarded last.
    /// If it cannot be moved, it stays a draft. Returns its name.
    static QString discard(Abandoned draft);

    void write(const SequenceData& data, const QString& file);
    /// Writes at once; the other draft, whose data this is, is removed as soon as it is on disk.
    void take(Abandoned draft);
    void remove();
    /// Leaves the file on disk; what is written from now on gets a file of its own.
    Kept keep();
    /// Uses that file again instead of the present one, which must have been removed.
    void adopt(Kept kept);

signals:
    /// The draft could not be written.
    void sig_failed(QString reason);

private:
    bool lock();
    bool store(const QString& path, const SequenceData& data, const QString& file);

    QString m_folder;
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    QThreadPool m_writer; ///< one thread: what is started last is written last
};

} // namespace vanto
