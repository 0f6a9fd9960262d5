#include "sequencetab.h"

#include "focuskeeper.h"
#include "numbertext.h"
#include "pagetimers.h"
#include "sequencemanager.h"
#include "sequenceplayer.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>

namespace
{
constexpr int MaxDelayMs = 65535;
constexpr int MinSpeed = 1;
constexpr int MaxSpeed = 255;
constexpr int SelectInsertedMs = 100;
constexpr int ToTheEnd = -1; ///< end index of a run over all steps that follow

/// Stores a finger's value. A list that lacks it grows by it, but leaves no gap: a value that
/// nobody has chosen would move a finger.
void store(QList<int>& values, std::uint8_t finger, int value)
{
    if (finger < values.size())
        values[finger] = value;
    else if (finger == values.size())
        values.append(value);
}
} // namespace

SequenceTab::SequenceTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                         StatusReporter* reporter, PageTimers* timers, SequenceManager* manager,
                         SequencePlayer* player)
    : m_ui(ui),
      m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_manager(manager),
      m_player(player),
      m_table(ui->tableWidget_Seq),
      m_editors(ui, window)
{
    m_table->installEventFilter(window);
    QObject::connect(timers, &PageTimers::sig_sequencePageEntered, window, [this] { reload(); });
    QObject::connect(timers, &PageTimers::sig_sequencePageLeft, window, [this] { ++m_visit; });
    QObject::connect(player, &SequencePlayer::sig_ended, window, [this] { playEnded(); });
    QObject::connect(timers, &PageTimers::sig_sequencePageLeft, player, &SequencePlayer::stop);
    QObject::connect(session, &DeviceSession::sig_stop, player, &SequencePlayer::stop);
    QObject::connect(session, &DeviceSession::sig_stopMotion, player, &SequencePlayer::stop);
}

SequenceTab::~SequenceTab() = default;

bool SequenceTab::isPlaying() const
{
    return m_starting || m_player->isPlaying() || m_player->isSending();
}

bool SequenceTab::pageIsShown() const
{
    return m_ui->tabWidget->currentWidget() == m_ui->tab_Sequence;
}

void SequenceTab::reload()
{
    enableGroup(Everything, false);
    clear();
    update();
    // On a page that is not shown the table would take the keys from the page that is; and the next
    // key that is meant for the list of devices would move the hand.
    if (pageIsShown() && !m_ui->comboBox_Devices->hasFocus())
        m_table->setFocus();
}

void SequenceTab::clear()
{
    m_table->clearCurrent();
    ++m_visit; // nothing that was selected before is
    m_shown = StepTable::NoStep;
    m_editors.clear();
}

void SequenceTab::setWidgetsEnabled(bool enabled)
{
    if (enabled)
        update();
    else
        enableGroup(Everything, false);
}

void SequenceTab::enableGroup(Group group, bool enabled)
{
    switch (group) {
    case Everything:
        for (const Group each : {Editors, Rows, Load, Save, Run, Stop})
            enableGroup(each, enabled);
        break;
    case Editors:
        m_editors.setEnabled(enabled);
        m_ui->comboBox_SeqPosOrAngle->setEnabled(enabled);
        break;
    case Rows:
        for (QWidget* control :
             {static_cast<QWidget*>(m_table), static_cast<QWidget*>(m_ui->pushButton_SeqInsert),
              static_cast<QWidget*>(m_ui->pushButton_SeqDelete),
              static_cast<QWidget*>(m_ui->pushButton_SeqUp),
              static_cast<QWidget*>(m_ui->pushButton_SeqDown)})
            control->setEnabled(enabled);
        break;
    case Load:
        m_ui->pushButton_SeqLoad->setEnabled(enabled);
        break;
    case Save:
        m_ui->pushButton_SeqSave->setEnabled(enabled);
        break;
    case Run:
        m_ui->pushButton_SeqRun->setEnabled(enabled);
        break;
    case Stop:
        m_ui->pushButton_SeqStop->setEnabled(enabled);
        break;
    }
}

void SequenceTab::update()
{
    const bool open = m_session->target().has_value();
    if (!open)
        m_player->stop();
    const bool playing = open && isPlaying();
    const bool editable = open && !playing;
    const bool hasSteps = !m_manager->sequenceData().sequences.isEmpty();
    // Each control goes straight to its new state: one that is disabled for a moment only would
    // lose the focus, and with it what is being typed.
    enableGroup(Editors, editable && m_table->currentRow() >= 0);
    m_ui->comboBox_SeqPosOrAngle->setEnabled(editable && !hasSteps && !m_reading);
    enableGroup(Rows, editable);
    enableGroup(Load, editable);
    enableGroup(Save, editable && hasSteps);
    enableGroup(Run, editable && hasSteps);
    enableGroup(Stop, playing);
    if (!playing)
        m_focus.reset();
}

void SequenceTab::updateEditCell()
{
    const int row = m_table->currentRow();
    if (row < 0) {
        m_shown = StepTable::NoStep;
        m_editors.clear();
        return;
    }
    m_shown = m_table->idOf(row);
    m_editors.show(m_manager->sequenceData().sequences[row]);
}

/// What a person asks for on this page: dropped when the page has been left meanwhile.
void SequenceTab::request(std::function<bool()> stillWanted, RequestQueue::Request request)
{
    if (!pageIsShown())
        return;
    m_session->request([this, stillWanted = std::move(stillWanted),
                        visit = m_visit] { return isVisit(visit) && stillWanted(); },
                       std::move(request));
}

void SequenceTab::play(const HandTarget& target, int start, int end, bool forEdit)
{
    // The hand of the click, whatever the Devices list may show by now.
    m_player->setVantoProtocol(target.adapter, target.node);
    {
        const QScopedValueRollback starting(m_starting, true);
        // A field that becomes read-only, unlike one that is disabled, does not finish its editing.
        if (const auto finger = m_editors.typedSpeed())
            handleSpeedEdit(*finger);
        m_focus = std::make_unique<FocusKeeper>(m_window, m_ui->tab_Sequence);
        update();
        m_focus->noteMove();
        m_player->play(m_manager->sequenceData(), start, end, forEdit);
    }
    playEnded();
}

/// The row that is meant may go elsewhere or away, or another one be chosen, before its turn comes.
void SequenceTab::playRow(int row, bool forEdit)
{
    if (row < 0)
        return;
    request(
        [this, step = m_table->idOf(row)] {
            return m_table->isEnabled() && m_table->rowOf(step) >= 0 &&
                   m_table->rowOf(step) == m_table->currentRow();
        },
        [this, step = m_table->idOf(row), forEdit](const HandTarget& target) {
            const int now = m_table->rowOf(step);
            play(target, now, now, forEdit);
        });
}

void SequenceTab::runClicked()
{
    const int rows = m_table->rowCount();
    const int current = std::max(m_table->currentRow(), 0);
    const int start = current == rows - 1 ? 0 : current;
    request(
        [this, edition = m_edition] {
            return m_ui->pushButton_SeqRun->isEnabled() && edition == m_edition;
        },
        [this, start, end = rows == 1 ? start : ToTheEnd](const HandTarget& target) {
            play(target, start, end, false);
        });
}

void SequenceTab::stopClicked()
{
    m_player->stop();
}

void SequenceTab::rowDoubleClicked(int row)
{
    playRow(row, false);
}

void SequenceTab::currentRowChanged(int row)
{
    playRow(row, true);
}

void SequenceTab::updatePlaying(bool isPlaying, int sequenceIndex, const QString& errMsg)
{
    if (isPlaying && !m_player->isPlayForEdit())
        m_table->showStep(sequenceIndex);
    if (!errMsg.isEmpty())
        m_reporter->showError(errMsg);
    playEnded();
}

/// After a run, too, has another row become current than the one that the editors show.
void SequenceTab::playEnded()
{
    if (!isPlaying() && m_session->target())
        updateEditCell();
    update();
}

void SequenceTab::insertClicked()
{
    const int current = m_table->currentRow();
    const quint64 after = m_table->idOf(std::max(current, 0)); // the first row if none is current
    request([this] { return m_ui->pushButton_SeqInsert->isEnabled(); },
            [this, after](const HandTarget& target) { insert(target, after); });
}

void SequenceTab::insert(const HandTarget& target, quint64 after)
{
    QList<int> pose;
    {
        const QScopedValueRollback reading(m_reading, true);
        update();
        pose = readPose(target);
    }
    if (!target.isCurrent())
        return;
    const int row = m_table->rowOf(after) + 1; // at the top if that row has gone meanwhile
    m_table->insertStep(row, pose);
    m_manager->insertSequenceDataItem(row, {pose, QList<int>(FingerCount, MaxSpeed), 0});
    ++m_edition;
    update();
    selectSoon(target, row);
}

/// Zeros if it cannot be read; that is no message.
QList<int> SequenceTab::readPose(const HandTarget& target)
{
    HandCall call(target);
    const auto pose = m_editors.unit().readPoseIfPossible(call);
    return {pose.currents.begin(), pose.currents.end()};
}

void SequenceTab::selectSoon(const HandTarget& target, int row)
{
    QTimer::singleShot(SelectInsertedMs, m_table,
                       [this, target, step = m_table->idOf(row), visit = m_visit] {
                           const int now = m_table->rowOf(step);
                           // Under a dialog it would have to wait, and come when nobody expects it
                           // any more.
                           if (now >= 0 && isVisit(visit) && target.isCurrent() && !isPlaying() &&
                               !QApplication::activeModalWidget())
                               m_table->setCurrentCell(now, 0);
                       });
}

void SequenceTab::deleteClicked()
{
    const int row = m_table->currentRow();
    if (row < 0)
        return;
    m_table->removeStep(row);
    m_manager->removeSequenceDataItem(row);
    ++m_edition;
    updateEditCell();
    update();
}

void SequenceTab::moveRowClicked(int distance)
{
    const int row = m_table->currentRow();
    const int other = row + distance;
    if (row < 0 || other < 0 || other >= m_table->rowCount())
        return;
    swapRows(row, other);
    m_manager->swapSequenceDataItem(row, other);
    m_table->setCurrentCell(other, 0);
}

void SequenceTab::swapRows(int row, int other)
{
    m_table->swapSteps(row, other);
    ++m_edition;
}

/// Changes the step that the editors show.
template<class Edit>
void SequenceTab::editShownStep(Edit edit)
{
    const int row = m_table->rowOf(m_shown);
    if (row < 0)
        return;
    SequenceDataItem step = m_manager->sequenceData().sequences[row];
    edit(step);
    m_manager->updateSequenceDataItem(row, step);
}

void SequenceTab::delayEdited()
{
    editShownStep([this](SequenceDataItem& step) {
        const int typed = m_ui->lineEdit_SeqDelay->text().toInt();
        step.delay = std::clamp(typed, 0, MaxDelayMs);
        if (step.delay != typed)
            m_ui->lineEdit_SeqDelay->setText(QString::number(step.delay));
    });
}

void SequenceTab::handleSpeedEdit(std::uint8_t finger)
{
    editShownStep([this, finger](SequenceDataItem& step) {
        QLineEdit* field = m_editors.speed(finger);
        if (finger >= step.speed.size() && field->text().isEmpty())
            return; // there is none, and none has been typed
        const int speed = std::clamp(field->text().toInt(), MinSpeed, MaxSpeed);
        store(step.speed, finger, speed);
        field->setText(finger < step.speed.size() ? QString::number(speed) : QString());
    });
}

void SequenceTab::handleSliderMoved(std::uint8_t finger, int value)
{
    m_editors.showValue(finger, value);
}

void SequenceTab::handleSliderReleased(std::uint8_t finger)
{
    const QSlider* slider = m_editors.slider(finger);
    const Release release{finger, &m_editors.unit(), slider->sliderPosition(),
                          NumberText::toByte(m_editors.speed(finger)->text()), m_shown};
    request([this, slider, release] { return slider->isEnabled() && m_shown == release.step; },
            [this, release](const HandTarget& target) { moveAndStore(target, release); });
}

/// The target that the hand reports after the motion, unless something failed.
std::optional<int> SequenceTab::move(const HandTarget& target, const Release& release)
{
    HandCall call(target, m_reporter->plain());
    if (!release.unit->move(call, release.finger, release.value, release.speed))
        return {};
    return release.unit->readTarget(call, release.finger);
}

void SequenceTab::moveAndStore(const HandTarget& target, const Release& release)
{
    const auto reached = move(target, release);
    const int row = m_table->rowOf(release.step);
    if (!reached || row < 0)
        return;
    // The person may have gone to another row meanwhile, or taken the slider up again.
    if (m_shown == release.step && !m_editors.slider(release.finger)->isSliderDown())
        m_editors.setValue(release.finger, *reached);
    SequenceDataItem step = m_manager->sequenceData().sequences[row];
    const auto known = step.position.size();
    store(step.position, release.finger, *reached);
    if (release.finger <= known)
        m_table->setValue(row, release.finger, *reached);
    m_manager->updateSequenceDataItem(row, step);
}

void SequenceTab::modeChanged()
{
    m_editors.followMode();
    m_manager->setPositionType(m_editors.unit().isPosition() ? SequenceData::POS_TYPE_POSITION
                                                             : SequenceData::POS_TYPE_ANGLE);
}

bool SequenceTab::keyPressed(const QKeyEvent& event)
{
    return m_table->keyPressed(event);
}

void SequenceTab::loadClicked()
{
    m_session->runWhenIdle(DeviceSession::Kind::LoadSequence, [this] { load(); });
}

void SequenceTab::load()
{
    if (!m_ui->pushButton_SeqLoad->isEnabled())
        return;
    const QString name = QFileDialog::getOpenFileName(m_window, tr("Choose json file"), QString(),
                                                      tr("Sequence files (*.json)"));
    if (name.isEmpty())
        return;
    QFile file(name);
    if (m_manager->loadSequenceData(file)) {
        const SequenceData& loaded = m_manager->sequenceData();
        const bool angles = loaded.position_type == SequenceData::POS_TYPE_ANGLE;
        m_ui->comboBox_SeqPosOrAngle->setCurrentIndex(angles ? 1 : 0);
        m_table->setSteps(loaded.sequences);
        ++m_edition;
        updateEditCell();
    }
    update();
}

void SequenceTab::saveClicked()
{
    m_session->runWhenIdle(DeviceSession::Kind::SaveSequence, [this] { save(); });
}

void SequenceTab::save()
{
    if (!m_ui->pushButton_SeqSave->isEnabled())
        return;
    QFileDialog dialog(m_window, tr("Choose json file"), QString(), tr("Sequence files (*.json)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    QFile file(dialog.selectedFiles().constFirst());
    m_manager->saveSequenceData(file);
}
