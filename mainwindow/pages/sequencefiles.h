#pragma once

#include "sequencedraft.h"

#include <QTimer>

class QAction;
class QMenu;
class QPushButton;

namespace vanto
{

class ElidedLabel;
class RecentFiles;
class SequenceEditor;
class StatusReporter;

/// Loads and saves the sequence, shows the name of its file, and keeps unsaved work: it is written
/// to disk while it is edited and offered again if the program has ended meanwhile.
///
/// Failures of files are only listed among the messages.
class SequenceFiles : public QObject
{
    Q_OBJECT
public:
    struct Widgets {
        ElidedLabel* name;
        QWidget* draft; ///< contains the following ones
        ElidedLabel* draftText;
        QPushButton* restore;
        QPushButton* discard;
    };

    SequenceFiles(SequenceEditor* sequence, const Widgets& widgets, QWidget* page);
    ~SequenceFiles() override;

    void setReporter(StatusReporter* reporter) { m_reporter = reporter; }
    /// Adds the menu of recent files to another one.
    void addRecentMenu(QMenu* menu, QAction* before);
    void setLoadEnabled(bool enabled);
    /// Offers the drafts of earlier sessions; only the first call has an effect.
    void offerDrafts();

    void chooseAndLoad();
    void load(const QString& file);
    void chooseAndSave();
    void restoreDraft();

signals:
    /// The user has chosen a recent file.
    void sig_loadRequested(QString file);
    void sig_restoreRequested();
    /// The sequence has been replaced.
    void sig_loaded();

private:
    /// Unsaved work that was replaced.
    struct Replaced {
        SequenceDraft::Kept draft;
        SequenceData data;
    };

    void update();
    static QString nameOf(const QString& file);
    void showName();
    void showDraft();
    void discardDraft();
    void writeDraft();
    void keepDraft();
    void adoptDraft();
    void list(const QString& text, const QString& file, const QString& reason) const;

    SequenceEditor* m_sequence;
    Widgets m_widgets;
    QWidget* m_page;
    StatusReporter* m_reporter = nullptr;
    RecentFiles* m_recent;
    std::vector<Replaced> m_kept; ///< freed after the last one is written
    SequenceDraft m_draft;
    QTimer m_draftTimer;
    bool m_hasDraft = false; ///< one has been written, or is about to be
    bool m_isOffered = false;
    std::vector<SequenceDraft::Abandoned> m_abandoned;
};

} // namespace vanto
