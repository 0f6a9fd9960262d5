#include "sequencepage.h"

#include "equalwidthgroup.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "sequenceeditor.h"
#include "statusreporter.h"
#include "steptable.h"
#include "ui_sequencepage.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
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
    m_sequence = std::make_unique<SequenceEditor>(m_table);
    m_editors = std::make_unique<StepEditors>(
        this, ui->lineEdit_SeqDelay, ui->comboBox_SeqPosOrAngle, ui->label_SeqTicksOrDegree);
    m_groups[Editors] = {ui->comboBox_SeqPosOrAngle};
    m_groups[Rows] = {m_table, ui->pushButton_SeqInsert, ui->pushButton_SeqDelete,
                      ui->pushButton_SeqUp, ui->pushButton_SeqDown};
    m_groups[Load] = {ui->pushButton_SeqLoad};
    m_groups[Save] = {ui->pushButton_SeqSave};
    m_groups[Run] = {ui->pushButton_SeqRun};
    m_groups[Stop] = {ui->pushButton_SeqStop};
    setUpLayout();
    connect(m_player, &SequencePlayer::sig_updatePlaying, this, &SequencePage::updatePlaying);
    connect(m_player, &SequencePlayer::sig_ended, this, &SequencePage::updateAfterPlay);
}

SequencePage::~SequencePage() = default;

void SequencePage::setUpLayout()
{
    // The long header gets the width that it needs; the other columns share the rest.
    auto* columns = m_table->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Stretch);
    columns->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    columns->setHighlightSections(false); // whole rows are selected
    QList<QWidget*> buttons;
    for (QPushButton* button : findChildren<QPushButton*>())
        buttons.append(button);
    new EqualWidthGroup(buttons);
}

void SequencePage::setUp(DeviceSession* session, StatusReporter* reporter)
{
    DevicePage::setUp(session, reporter);
    m_table->installEventFilter(window());
    connect(session, &DeviceSession::sig_stop, m_player, &SequencePlayer::stop);
    connect(session, &DeviceSession::sig_stopMotion, m_player, &SequencePlayer::stop);
    connect(session, &DeviceSession::sig_interrupted, this, [this] { m_editors->cancelDrags(); });
}

void SequencePage::follow(bool isCurrent)
{
    if (isCurrent) {
        reloadSequenceInfo();
    } else {
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

void SequencePage::reload()
{
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
    storeEditedSpeed();
    enableWidgetsForSequenceTab(Everything, false);
}

/// Unlike a field that is disabled, one that becomes read-only does not finish editing.
void SequencePage::storeEditedSpeed()
{
    if (const auto finger = m_editors->fingerOfEditedSpeed())
        tabSequence_handleSpeedEdit(*finger);
}

void SequencePage::focusTable()
{
    m_table->setFocus();
}

void SequencePage::clearSequenceInfo()
{
    m_table->clearCurrent();
    m_visit.advance(); // invalidates requests for earlier selections
    m_shownStep = StepTable::NoStep;
    m_editors->clear();
}

void SequencePage::enableWidgetsForSequenceTab(int group, bool enable)
{
    if (group == Everything)
        for (const Group each : {Editors, Rows, Load, Save, Run, Stop})
            enableWidgetsForSequenceTab(each, enable);
    if (group == Editors)
        m_editors->setEnabled(enable);
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
    // The next key must not start the run again, nor go to whatever control follows.
    if (!playing && window()->focusWidget() == ui->pushButton_SeqStop)
        focusTable();
    enableWidgetsForSequenceTab(Stop, playing);
    if (!playing)
        m_focus.reset();
    emit sig_playingChanged();
}

void SequencePage::updateEditCell()
{
    const int row = m_table->currentRow();
    if (row < 0) {
        m_shownStep = StepTable::NoStep;
        m_editors->clear();
        return;
    }
    m_shownStep = m_table->idOf(row);
    m_editors->show(m_sequence->data().sequences[row]);
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
        storeEditedSpeed();
        if (purpose == Purpose::Edit)
            m_focus = std::make_unique<FocusKeeper>(window(), this);
        updateSequenceTab();
        if (purpose == Purpose::Edit)
            m_focus->recordFocusMove();
        else
            ui->pushButton_SeqStop->setFocus(); // Space stops
        m_player->play(m_sequence->data(), start, end, purpose == Purpose::Edit);
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

void SequencePage::updatePlaying(bool isPlaying, int sequenceIndex, qint64, QString errMsg)
{
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

void SequencePage::on_pushButton_SeqInsert_clicked()
{
    const int current = m_table->currentRow();
    const std::uint64_t after = m_table->idOf(std::max(current, 0)); // first row if none
    requestOnPage([this] { return ui->pushButton_SeqInsert->isEnabled(); },
                  [this, after](const HandTarget& target) { insert(target, after); });
}

void SequencePage::insert(const HandTarget& target, std::uint64_t after)
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
    const int row = m_table->rowOf(after) + 1; // at the top if that row no longer exists
    m_sequence->insert(
        row,
        {{pose.currents.begin(), pose.currents.end()}, QList<int>(FingerCount, InsertedSpeed), 0});
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
    if (row < 0)
        return;
    m_sequence->remove(row);
    updateEditCell();
    updateSequenceTab();
    playRow(m_table->currentRow(), Purpose::Edit); // the row that has become current
}

void SequencePage::moveCurrentRow(int distance)
{
    const int row = m_table->currentRow();
    const int other = row + distance;
    if (row < 0 || other < 0 || other >= m_table->rowCount())
        return;
    SwapSequenceRow(row, other);
    m_table->setCurrentCell(other, 0);
}

void SequencePage::SwapSequenceRow(int row, int other)
{
    m_sequence->swap(row, other);
}

void SequencePage::on_lineEdit_SeqDelay_editingFinished()
{
    m_sequence->edit(m_shownStep, [this](SequenceDataItem& step) { m_editors->storeDelay(step); });
}

void SequencePage::tabSequence_handleSpeedEdit(unsigned char finger)
{
    m_sequence->edit(m_shownStep,
                     [=, this](SequenceDataItem& step) { m_editors->storeSpeed(finger, step); });
}

void SequencePage::tabSequence_handleSliderMoved(unsigned char finger, int value)
{
    m_editors->showValue(finger, value);
}

void SequencePage::tabSequence_handleSliderReleased(unsigned char finger)
{
    const QSlider* slider = m_editors->slider(finger);
    const Release release{finger, &m_editors->unit(), slider->sliderPosition(),
                          NumberText::toByte(m_editors->speed(finger)->text()), m_shownStep};
    requestOnPage(
        [this, slider, release] { return slider->isEnabled() && m_shownStep == release.step; },
        [this, release](const HandTarget& target) { moveAndStore(target, release); });
}

/// The target that the hand reports after the motion, or nothing on a failure.
std::optional<int> SequencePage::move(const HandTarget& target, const Release& release)
{
    HandCall call(target, reporter()->plainReport());
    if (!release.unit->move(call, release.finger, release.value, release.speed))
        return {};
    return release.unit->readTarget(call, release.finger);
}

void SequencePage::moveAndStore(const HandTarget& target, const Release& release)
{
    const auto reached = move(target, release);
    if (!reached)
        return;
    m_sequence->edit(release.step, [this, &release, &reached](SequenceDataItem& step) {
        SequenceEditor::store(step.position, release.finger, *reached);
        // Meanwhile the user may have selected another row, or be dragging the slider again.
        if (m_shownStep == release.step && !m_editors->slider(release.finger)->isSliderDown())
            m_editors->setValue(release.finger, *reached);
    });
}

void SequencePage::on_comboBox_SeqPosOrAngle_currentIndexChanged(int)
{
    m_editors->applyMode();
    m_sequence->setPositionType(m_editors->unit().isPosition() ? SequenceData::POS_TYPE_POSITION
                                                               : SequenceData::POS_TYPE_ANGLE);
}

bool SequencePage::handleKeyPress(const QKeyEvent& event)
{
    return m_table->handleKeyPress(event);
}

void SequencePage::on_pushButton_SeqLoad_clicked()
{
    session()->runWhenIdle(DeviceSession::Kind::LoadSequence, [this] { load(); });
}

void SequencePage::load()
{
    if (!ui->pushButton_SeqLoad->isEnabled())
        return;
    const QString name = QFileDialog::getOpenFileName(window(), tr("Choose json file"), QString(),
                                                      tr("Sequence files (*.json)"));
    if (name.isEmpty())
        return;
    QFile file(name);
    if (m_sequence->load(file)) {
        const SequenceData& loaded = m_sequence->data();
        const bool angles = loaded.position_type == SequenceData::POS_TYPE_ANGLE;
        ui->comboBox_SeqPosOrAngle->setCurrentIndex(angles ? 1 : 0);
        updateEditCell();
    }
    updateSequenceTab();
}

void SequencePage::on_pushButton_SeqSave_clicked()
{
    session()->runWhenIdle(DeviceSession::Kind::SaveSequence, [this] { save(); });
}

void SequencePage::save()
{
    if (!ui->pushButton_SeqSave->isEnabled())
        return;
    QFileDialog dialog(window(), tr("Choose json file"), QString(), tr("Sequence files (*.json)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    QFile file(dialog.selectedFiles().constFirst());
    m_sequence->save(file);
}

} // namespace vanto
