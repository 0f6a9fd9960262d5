#include "sequencepage.h"

#include "equalwidthgroup.h"
#include "focuskeeper.h"
#include "sequenceactions.h"
#include "sequenceeditor.h"
#include "sequencefiles.h"
#include "sequencestatus.h"
#include "statusreporter.h"
#include "stepinput.h"
#include "stepresults.h"
#include "steptable.h"
#include "ui_sequencepage.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr int InsertedSpeed = 255;
constexpr int SelectInsertedMs = 100;
constexpr int UntilLastStep = -1; ///< end index for all remaining steps
} // namespace

SequencePage::SequencePage(QWidget* parent)
    : DevicePage(parent),
      ui(std::make_unique<Ui::SequencePage>()),
      m_player(new SequencePlayer(this))
{
    ui->setupUi(this);
    m_table = ui->tableWidget_Seq;
    m_sequence = std::make_unique<SequenceEditor>(m_table, this);
    m_editors = std::make_unique<StepEditors>(
        this, ui->lineEdit_SeqDelay, ui->comboBox_SeqPosOrAngle, ui->label_SeqTicksOrDegree);
    m_groups[Editors] = {ui->comboBox_SeqPosOrAngle};
    m_groups[Rows] = {m_table, ui->pushButton_SeqInsert, ui->pushButton_SeqDelete,
                      ui->pushButton_SeqUp, ui->pushButton_SeqDown};
    m_groups[Load] = {ui->pushButton_SeqLoad};
    m_groups[Save] = {ui->pushButton_SeqSave};
    m_groups[Run] = {ui->pushButton_SeqRun};
    m_groups[Stop] = {ui->pushButton_SeqStop};
    m_groups[Repeat] = {ui->spinBox_SeqRepeat};
    m_input = std::make_unique<StepInput>(
        m_sequence.get(), m_table, m_editors.get(),
        [this](std::function<bool()> isStillWanted, RequestQueue::Request action) {
            requestOnPage(std::move(isStillWanted), std::move(action));
        });
    m_actions = std::make_unique<SequenceActions>(m_sequence.get(), m_table, this);
    m_files = std::make_unique<SequenceFiles>(
        m_sequence.get(),
        SequenceFiles::Widgets{ui->label_SeqFile, ui->widget_SeqDraft, ui->label_SeqDraft,
                               ui->pushButton_SeqRestoreDraft, ui->pushButton_SeqDiscardDraft},
        this);
    m_results = new StepResults(m_sequence.get(), m_table, m_player, this);
    m_actions->append(m_results->actions());
    m_status = std::make_unique<SequenceStatus>(m_sequence.get(), m_table, m_editors.get(),
                                                m_results, m_player, ui->label_SeqStep);
    setUpLayout();
    connectParts();
}

SequencePage::~SequencePage() = default;

void SequencePage::connectParts()
{
    connect(m_player, &SequencePlayer::sig_updatePlaying, this, &SequencePage::updatePlaying);
    connect(m_player, &SequencePlayer::sig_ended, this, &SequencePage::updateAfterPlay);
    connect(m_table, &StepTable::sig_extended, this, &SequencePage::showCurrentRow);
    connect(m_sequence.get(), &SequenceEditor::sig_changed, this, &SequencePage::showMode);
    connect(m_actions.get(), &SequenceActions::sig_starting, m_input.get(), &StepInput::storeTyped);
    connect(m_actions.get(), &SequenceActions::sig_done, this, &SequencePage::showEdited);
    connect(m_actions.get(), &SequenceActions::sig_insertBefore, this,
            [this] { requestInsert(InsertPlace::Before); });
    connect(m_input.get(), &StepInput::sig_previewChanged, this,
            [this] { m_status->update(isPlaying()); });
    connect(m_files.get(), &SequenceFiles::sig_loaded, this, [this] {
        ui->spinBox_SeqRepeat->setValue(1);
        m_status->clearMark();
        updateEditCell();
    });
    connect(m_files.get(), &SequenceFiles::sig_loadRequested, this,
            [this](const QString& file) { runLoad([this, file] { m_files->load(file); }); });
    connect(m_files.get(), &SequenceFiles::sig_restoreRequested, this,
            [this] { runLoad([this] { m_files->restoreDraft(); }); });
    connect(ui->spinBox_SeqRepeat, &QSpinBox::valueChanged, m_player, &SequencePlayer::setRounds);
}

void SequencePage::setUpLayout()
{
    // The long header gets the width that it needs; the other columns share the rest.
    auto* columns = m_table->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Stretch);
    columns->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    columns->setHighlightSections(false); // whole rows are selected
    m_table->verticalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_table->verticalHeader()->addActions(m_results->actions());
    QList<QWidget*> buttons;
    for (QPushButton* button : findChildren<QPushButton*>())
        buttons.append(button);
    buttons.removeOne(ui->pushButton_SeqRestoreDraft);
    buttons.removeOne(ui->pushButton_SeqDiscardDraft);
    new EqualWidthGroup(buttons);
}

void SequencePage::addMenus(QMenuBar* bar, QAction* before, QMenu* fileMenu,
                            QAction* beforeInFileMenu)
{
    m_actions->addMenu(bar, before);
    m_files->addRecentMenu(fileMenu, beforeInFileMenu);
}

void SequencePage::setUp(DeviceSession* session, StatusReporter* reporter)
{
    DevicePage::setUp(session, reporter);
    m_input->setReporter(reporter);
    m_actions->setReporter(reporter);
    m_files->setReporter(reporter);
    m_table->installEventFilter(window());
    connect(session, &DeviceSession::sig_stop, m_player, &SequencePlayer::stop);
    connect(session, &DeviceSession::sig_stopMotion, m_player, &SequencePlayer::stop);
    connect(session, &DeviceSession::sig_interrupted, this, [this] { m_editors->cancelDrags(); });
}

void SequencePage::follow(bool isCurrent)
{
    if (isCurrent) {
        m_files->offerDrafts();
        reloadSequenceInfo();
    } else {
        m_actions->setEnabled(false);
        m_files->setLoadEnabled(false);
        m_visit.advance();
        m_player->stop();
    }
}

bool SequencePage::isPlaying() const
{
    return m_starting || m_player->isPlaying() || m_player->isSending();
}

void SequencePage::reloadSequenceInfo()
{
    enableWidgetsForSequenceTab(Everything, false);
    clearSequenceInfo();
    updateSequenceTab();
}

void SequencePage::clear()
{
    ui->spinBox_SeqRepeat->setValue(1);
    clearSequenceInfo();
}

void SequencePage::reload()
{
    ui->spinBox_SeqRepeat->setValue(1);
    if (const auto target = session()->target())
        m_player->setVantoProtocol(target->adapter, target->node);
    reloadSequenceInfo();
}

void SequencePage::reloadKeepingEdits()
{
    if (const auto target = session()->target())
        m_player->setVantoProtocol(target->adapter, target->node);
    updateAfterPlay();
}

void SequencePage::enableWidgets(bool enable)
{
    if (enable) {
        updateSequenceTab();
        return;
    }
    m_input->storeTypedSpeed();
    enableWidgetsForSequenceTab(Everything, false);
}

void SequencePage::focusTable()
{
    m_table->setFocus();
}

void SequencePage::clearSequenceInfo()
{
    m_table->clearCurrent();
    m_visit.advance(); // invalidates requests for earlier selections
    m_status->clearMark();
    m_input->show(-1);
}

void SequencePage::enableWidgetsForSequenceTab(int group, bool enable)
{
    if (group == Everything)
        for (const Group each : {Editors, Rows, Load, Save, Run, Stop, Repeat})
            enableWidgetsForSequenceTab(each, enable);
    if (group == Editors)
        m_editors->setEnabled(enable);
    if (group == Rows)
        m_actions->setEnabled(enable && isShown() && !m_reading);
    if (group == Load)
        m_files->setLoadEnabled(enable && isShown());
    for (QWidget* control : m_groups[static_cast<std::size_t>(group)])
        control->setEnabled(enable);
}

void SequencePage::updateSequenceTab()
{
    const bool open = session()->target().has_value();
    if (!open)
        m_player->stop();
    const bool playing = open && isPlaying();
    const bool editable = open && !playing;
    const bool hasSteps = !m_sequence->isEmpty();
    // Each control gets its final state directly: disabling one even briefly would take its focus
    // and interrupt the user typing.
    enableWidgetsForSequenceTab(Editors, editable && m_table->currentRow() >= 0);
    ui->comboBox_SeqPosOrAngle->setEnabled(editable && !hasSteps && !m_reading);
    enableWidgetsForSequenceTab(Rows, editable);
    enableWidgetsForSequenceTab(Load, editable);
    enableWidgetsForSequenceTab(Save, editable && hasSteps);
    enableWidgetsForSequenceTab(Run, editable && hasSteps);
    enableWidgetsForSequenceTab(Repeat, editable && m_table->rowCount() > 1);
    // The next key must not start the run again, nor go to whatever control follows.
    if (!playing && window()->focusWidget() == ui->pushButton_SeqStop)
        focusTable();
    enableWidgetsForSequenceTab(Stop, playing);
    if (!playing)
        m_focus.reset();
    m_status->update(playing);
    emit sig_playingChanged();
}

void SequencePage::updateEditCell()
{
    m_input->show(m_table->currentRow());
}

/// Makes a request of this page. It is dropped if the user has left the page meanwhile.
void SequencePage::requestOnPage(std::function<bool()> stillWanted, RequestQueue::Request action)
{
    if (!isShown())
        return;
    session()->request([this, stillWanted = std::move(stillWanted),
                        visit = m_visit.token()] { return isSameVisit(visit) && stillWanted(); },
                       std::move(action));
}

void SequencePage::play(const HandTarget& target, int start, int end, Purpose purpose)
{
    // The hand at the time of the click, whatever the Devices list shows now.
    m_player->setVantoProtocol(target.adapter, target.node);
    {
        const QScopedValueRollback starting(m_starting, true);
        m_input->storeTypedSpeed();
        if (purpose == Purpose::Edit)
            m_focus = std::make_unique<FocusKeeper>(window(), this);
        m_status->clearMark();
        updateSequenceTab();
        if (purpose == Purpose::Edit)
            m_focus->recordFocusMove();
        else
            ui->pushButton_SeqStop->setFocus(); // Space stops
        if (!m_player->play(m_sequence->data(), start, end, purpose == Purpose::Edit) &&
            start == end)
            m_status->markNotSent();
    }
    updateAfterPlay();
}

/// Until the request runs, the row may be moved, removed or no longer current.
void SequencePage::playRow(int row, Purpose purpose)
{
    if (row < 0)
        return;
    requestOnPage(
        [this, step = m_table->idOf(row)] {
            return m_table->isEnabled() && m_table->rowOf(step) >= 0 &&
                   m_table->rowOf(step) == m_table->currentRow();
        },
        [this, step = m_table->idOf(row), purpose](const HandTarget& target) {
            const int now = m_table->rowOf(step);
            play(target, now, now, purpose);
        });
}

void SequencePage::on_pushButton_SeqRun_clicked()
{
    const int rows = m_table->rowCount();
    const int current = std::max(m_table->currentRow(), 0);
    const int start = current == rows - 1 ? 0 : current;
    requestOnPage(
        [this, edition = m_sequence->edition()] {
            return ui->pushButton_SeqRun->isEnabled() && edition.isCurrent();
        },
        [this, start, end = rows == 1 ? start : UntilLastStep](const HandTarget& target) {
            play(target, start, end, Purpose::Run);
        });
}

// The parameters are those of the player's signal.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void SequencePage::updatePlaying(bool isPlaying, int sequenceIndex, qint64, QString errMsg)
{
    if (isPlaying || m_starting)
        m_status->noteStep(sequenceIndex);
    else if (m_player->isPlayForEdit() && !m_status->hasStep())
        m_status->markNotSent(); // stopped before the step
    if (isPlaying && !m_player->isPlayForEdit())
        m_table->selectSilently(sequenceIndex);
    if (!errMsg.isEmpty())
        reporter()->showError(errMsg);
    updateAfterPlay();
}

/// After a run, too, the current row may not be the one that the editors show.
void SequencePage::updateAfterPlay()
{
    if (!isPlaying() && session()->target())
        updateEditCell();
    updateSequenceTab();
}

void SequencePage::requestInsert(InsertPlace place)
{
    const int current = m_table->currentRow();
    const std::uint64_t step = m_table->idOf(std::max(current, 0)); // first row if none
    requestOnPage([this] { return ui->pushButton_SeqInsert->isEnabled(); },
                  [this, step, place](const HandTarget& target) { insert(target, step, place); });
}

void SequencePage::insert(const HandTarget& target, std::uint64_t step, InsertPlace place)
{
    bool current = false;
    const MotionUnit::Pose pose = [&] {
        const QScopedValueRollback reading(m_reading, true);
        updateSequenceTab();
        HandCall call(target);
        const MotionUnit::Pose read = m_editors->unit().readPoseOrZeros(call);
        current = call.isCurrent();
        return read;
    }();
    if (!current)
        return;
    const int found = m_table->rowOf(step); // at the top if that row no longer exists
    const int row = place == InsertPlace::After ? found + 1 : std::max(found, 0);
    const SequenceDataItem inserted{
        {pose.currents.begin(), pose.currents.end()}, QList<int>(FingerCount, InsertedSpeed), 0};
    m_sequence->insert(row,
                       {.position_type = m_sequence->data().position_type, .sequences = {inserted}},
                       tr("insertion of %1"));
    updateSequenceTab();
    selectSoon(target, row);
}

void SequencePage::selectSoon(const HandTarget& target, int row)
{
    QTimer::singleShot(SelectInsertedMs, m_table,
                       [this, target, step = m_table->idOf(row), visit = m_visit.token()] {
                           const int now = m_table->rowOf(step);
                           // A dialog would delay the move until the user no longer expects it.
                           if (now >= 0 && isSameVisit(visit) && target.isCurrent() &&
                               !isPlaying() && !QApplication::activeModalWidget())
                               m_table->setCurrentCell(now, 0);
                       });
}

void SequencePage::on_pushButton_SeqDelete_clicked()
{
    const int row = m_table->currentRow();
    if (m_table->selectedRows() != QList<int>{row}) {
        m_actions->deleteSteps();
        return;
    }
    m_sequence->remove({row}, tr("delete of %1"));
    updateEditCell();
    updateSequenceTab();
    playRow(m_table->currentRow(), Purpose::Edit); // the row that has become current
}

/// Several rows are moved without playing one of them.
void SequencePage::moveCurrentRow(int distance)
{
    const int row = m_table->currentRow();
    if (m_table->selectedRows() != QList<int>{row}) {
        m_actions->moveSteps(distance);
        return;
    }
    const int other = row + distance;
    if (other < 0 || other >= m_table->rowCount())
        return;
    SwapSequenceRow(row, other);
    m_table->setCurrentCell(other, 0);
}

void SequencePage::SwapSequenceRow(int row, int other)
{
    m_sequence->move({row}, other - row);
}

/// Shows what has been changed, without sending it.
void SequencePage::showEdited(const QList<int>& rows)
{
    m_table->selectSilently(rows);
    showCurrentRow();
}

/// The current row has become current without a play.
void SequencePage::showCurrentRow()
{
    m_status->markNotSent();
    updateEditCell();
    updateSequenceTab();
}

void SequencePage::on_comboBox_SeqPosOrAngle_currentIndexChanged(int)
{
    m_editors->applyMode();
    m_sequence->setPositionType(m_editors->unit().isPosition() ? SequenceData::POS_TYPE_POSITION
                                                               : SequenceData::POS_TYPE_ANGLE);
}

/// The mode is that of the sequence, whatever has changed it.
void SequencePage::showMode()
{
    const bool angles = m_sequence->data().position_type == SequenceData::POS_TYPE_ANGLE;
    ui->comboBox_SeqPosOrAngle->setCurrentIndex(angles ? 1 : 0);
}

bool SequencePage::handleKeyPress(const QKeyEvent& event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isPlain = !(event.modifiers() & ~Qt::KeypadModifier);
    if (!isReturn || !isPlain || !m_status->isNotSent())
        return m_table->handleKeyPress(event);
    if (!event.isAutoRepeat())
        playRow(m_table->currentRow(), Purpose::Run);
    return true;
}

void SequencePage::runLoad(std::function<void()> load)
{
    session()->runWhenIdle(DeviceSession::Kind::LoadSequence, [this, load = std::move(load)] {
        if (!ui->pushButton_SeqLoad->isEnabled())
            return;
        m_input->storeTyped();
        load();
        updateSequenceTab();
    });
}

void SequencePage::on_pushButton_SeqLoad_clicked()
{
    runLoad([this] { m_files->chooseAndLoad(); });
}

void SequencePage::on_pushButton_SeqSave_clicked()
{
    session()->runWhenIdle(DeviceSession::Kind::SaveSequence, [this] {
        if (ui->pushButton_SeqSave->isEnabled())
            m_files->chooseAndSave();
    });
}

} // namespace vanto
