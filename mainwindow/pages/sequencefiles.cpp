#include "sequencefiles.h"

#include "elidedlabel.h"
#include "messagelog.h"
#include "recentfiles.h"
#include "sequenceeditor.h"
#include "statusreporter.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace vanto
{

namespace
{
/// From an edit to the draft on disk.
constexpr int DraftDelayMs = 2000;
} // namespace

SequenceFiles::SequenceFiles(SequenceEditor* sequence, const Widgets& widgets, QWidget* page)
    : m_sequence(sequence),
      m_widgets(widgets),
      m_page(page),
      m_recent(new RecentFiles(tr("Recent Se&quences"), QStringLiteral("sequence/recent"), page)),
      m_draft(SequenceDraft::userFolder())
{
    m_recent->setObjectName(QStringLiteral("menu_Recent_Sequences"));
    m_recent->setEnabled(false);
    m_widgets.draft->hide();
    m_draftTimer.setSingleShot(true);
    m_draftTimer.setInterval(DraftDelayMs);
    connect(m_recent, &RecentFiles::sig_chosen, this, &SequenceFiles::sig_loadRequested);
    connect(&m_draftTimer, &QTimer::timeout, this, &SequenceFiles::writeDraft);
    connect(&m_draft, &SequenceDraft::sig_failed, this, [this](const QString& reason) {
        m_reporter->list(tr("The draft of the sequence is not saved: %1").arg(reason));
    });
    connect(m_widgets.restore, &QPushButton::clicked, this, &SequenceFiles::sig_restoreRequested);
    connect(m_widgets.discard, &QPushButton::clicked, this, &SequenceFiles::discardDraft);
    connect(m_sequence, &SequenceEditor::sig_replacing, this, &SequenceFiles::keepDraft);
    connect(m_sequence, &SequenceEditor::sig_changed, this, &SequenceFiles::update);
    showName();
}

SequenceFiles::~SequenceFiles()
{
    m_draft.disconnect(this); // the list of messages may be destroyed already
    if (m_draftTimer.isActive())
        writeDraft();
}

void SequenceFiles::addRecentMenu(QMenu* menu, QAction* before)
{
    menu->insertMenu(before, m_recent);
    menu->insertSeparator(before);
}

void SequenceFiles::setLoadEnabled(bool enabled)
{
    m_recent->setEnabled(enabled);
    m_widgets.restore->setEnabled(enabled);
    m_widgets.discard->setEnabled(enabled);
}

void SequenceFiles::update()
{
    showName();
    adoptDraft();
    if (!m_sequence->isModified()) {
        m_draftTimer.stop();
        if (std::exchange(m_hasDraft, false))
            m_draft.remove();
    } else if (!m_draftTimer.isActive()) { // so that the draft is never older than this
        m_draftTimer.start();
    }
}

/// The sequence that is replaced may exist nowhere but in its draft.
void SequenceFiles::keepDraft()
{
    m_draftTimer.stop();
    if (!m_sequence->isModified())
        return;
    writeDraft();
    m_hasDraft = false;
    m_kept.push_back({m_draft.keep(), m_sequence->data()});
}

/// What was replaced is there again: its draft is removed once it is saved.
void SequenceFiles::adoptDraft()
{
    const auto kept = std::ranges::find(m_kept, m_sequence->data(), &Replaced::data);
    if (kept == m_kept.end())
        return;
    if (std::exchange(m_hasDraft, true))
        m_draft.remove();
    m_draft.adopt(std::move(kept->draft));
    m_kept.erase(kept);
}

void SequenceFiles::writeDraft()
{
    m_hasDraft = true;
    m_draft.write(m_sequence->data(), m_sequence->fileName());
}

QString SequenceFiles::nameOf(const QString& file)
{
    return file.isEmpty() ? tr("No file") : QFileInfo(file).fileName();
}

void SequenceFiles::showName()
{
    const QString file = m_sequence->fileName();
    const QString name = nameOf(file);
    m_widgets.name->setText(m_sequence->isModified() ? tr("%1 (not saved)").arg(name) : name);
    m_widgets.name->setToolTip(file);
}

void SequenceFiles::list(const QString& text, const QString& file, const QString& reason) const
{
    m_reporter->list(text.arg(file, reason));
}

void SequenceFiles::chooseAndLoad()
{
    const QString name = QFileDialog::getOpenFileName(m_page->window(), tr("Choose json file"),
                                                      QString(), tr("Sequence files (*.json)"));
    if (!name.isEmpty())
        load(name);
}

void SequenceFiles::load(const QString& file)
{
    if (m_sequence->load(file)) {
        m_recent->add(file);
        emit sig_loaded();
    } else {
        list(tr("%1 cannot be loaded: %2"), file, m_sequence->fileError());
    }
}

void SequenceFiles::chooseAndSave()
{
    QFileDialog dialog(m_page->window(), tr("Choose json file"), QString(),
                       tr("Sequence files (*.json)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    if (!m_sequence->fileName().isEmpty())
        dialog.selectFile(m_sequence->fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString file = dialog.selectedFiles().constFirst();
    if (m_sequence->save(file))
        m_recent->add(file);
    else
        list(tr("%1 is not saved: %2"), file, m_sequence->fileError());
}

void SequenceFiles::offerDrafts()
{
    if (std::exchange(m_isOffered, true))
        return;
    QStringList damaged;
    m_abandoned = SequenceDraft::findAbandoned(SequenceDraft::userFolder(), &damaged);
    for (const QString& file : damaged)
        m_reporter->list(tr("The draft %1 is damaged.").arg(file));
    showDraft();
}

void SequenceFiles::showDraft()
{
    m_widgets.draft->setVisible(!m_abandoned.empty());
    if (m_abandoned.empty())
        return;
    const SequenceDraft::Abandoned& draft = m_abandoned.front();
    const QString name = nameOf(draft.file);
    const qsizetype steps = draft.data.sequences.size();
    const QString written = QLocale().toString(draft.written, QLocale::ShortFormat);
    m_widgets.draftText->setText(
        steps == 1 ? tr("Not saved: %1, 1 step, %2").arg(name, written)
                   : tr("Not saved: %1, %2 steps, %3").arg(name, QString::number(steps), written));
}

void SequenceFiles::restoreDraft()
{
    if (m_abandoned.empty())
        return;
    SequenceDraft::Abandoned draft = std::move(m_abandoned.front());
    m_abandoned.erase(m_abandoned.begin());
    m_sequence->replace(draft.data, draft.file, tr("restoring of the unsaved sequence"));
    m_hasDraft = m_sequence->isModified();
    if (m_hasDraft)
        m_draft.take(std::move(draft));
    else
        SequenceDraft::discard(std::move(draft));
    showDraft();
    emit sig_loaded();
}

void SequenceFiles::discardDraft()
{
    if (m_abandoned.empty())
        return;
    SequenceDraft::discard(std::move(m_abandoned.front()));
    m_abandoned.erase(m_abandoned.begin());
    showDraft();
}

} // namespace vanto
