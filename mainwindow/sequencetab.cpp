#include "sequencetab.h"

#include "conversation.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "pagetimers.h"
#include "sequencemanager.h"
#include "sequenceplayer.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

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
    QObject::connect(timers, &PageTimers::sig_sequencePageLeft, player, &SequencePlayer::stop);
    QObject::connect(session, &DeviceSession::sig_stop, player, &SequencePlayer::stop);
}

SequenceTab::~SequenceTab() = default;

bool SequenceTab::isPlaying() const
{
    return m_starting || m_player->isPlaying();
}

bool SequenceTab::pageIsShown() const
{
    return m_ui->tabWidget->currentWidget() == m_ui->tab_Sequence;
}

bool SequenceTab::succeeded(const Target& target, const char* operation, std::uint8_t result)
{
    return m_reporter->succeeded(target, operation, result, StatusReporter::Timeouts::LikeFailures);
}

void SequenceTab::reload()
{
    enableGroup(Everything, false);
    clear();
    update();
    // On a page that is not shown the table would take the keys from the page that is.
    if (pageIsShown())
        m_table->setFocus();
}

void SequenceTab::clear()
{
    m_table->clearCurrent();
    m_shown = QModelIndex();
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
    m_ui->comboBox_SeqPosOrAngle->setEnabled(editable && !hasSteps);
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
        m_shown = QModelIndex();
        m_editors.clear();
        return;
    }
    m_shown = m_table->rowIndex(row);
    m_editors.show(m_manager->sequenceData().sequences[row]);
}

int SequenceTab::shownRow() const
{
    return m_shown.isValid() ? m_shown.row() : -1;
}

void SequenceTab::play(int start, int end, bool forEdit)
{
    m_session->ask([this] { return m_table->isEnabled() && pageIsShown(); },
                   [=, this, data = m_manager->sequenceData()](const Target& target) {
                       // The hand of the click, whatever the Devices list may show by now.
                       m_player->setVantoProtocol(target.adapter, target.node);
                       {
                           const QScopedValueRollback starting(m_starting, true);
                           m_focus = std::make_unique<FocusKeeper>(m_window);
                           update();
                           m_focus->noteMove();
                           m_player->play(data, start, end, forEdit);
                       }
                       update();
                   });
}

void SequenceTab::runClicked()
{
    const int rows = m_table->rowCount();
    const int current = std::max(m_table->currentRow(), 0);
    const int start = current == rows - 1 ? 0 : current;
    play(start, rows == 1 ? start : ToTheEnd, false);
}

void SequenceTab::stopClicked()
{
    m_player->stop();
}

void SequenceTab::rowDoubleClicked(int row)
{
    if (row >= 0)
        play(row, row, false);
}

void SequenceTab::currentRowChanged(int row)
{
    if (row >= 0)
        play(row, row, true);
}

void SequenceTab::updatePlaying(bool isPlaying, int sequenceIndex, const QString& errMsg)
{
    if (isPlaying && !m_player->isPlayForEdit())
        m_table->showStep(sequenceIndex);
    // After a run, too: it has made another row current than the one that the editors show.
    if (!isPlaying && !m_player->isPlaying() && m_session->target())
        updateEditCell();
    if (!errMsg.isEmpty())
        m_reporter->showError(errMsg);
    update();
}

void SequenceTab::insertClicked()
{
    const int current = m_table->currentRow();
    const int row = current >= 0 ? current + 1 : std::min(m_table->rowCount(), 1);
    m_session->ask([this] { return m_ui->pushButton_SeqInsert->isEnabled() && pageIsShown(); },
                   [this, row](const Target& target) { insert(target, row); });
}

void SequenceTab::insert(const Target& target, int row)
{
    m_ui->comboBox_SeqPosOrAngle->setEnabled(false); // the pose is read in its unit
    const QList<int> pose = readPose(target);
    if (!m_session->holds(target))
        return;
    // Others may have been removed while the hand was asked.
    row = std::min(row, m_table->rowCount());
    m_table->insertStep(row, pose);
    m_manager->insertSequenceDataItem(row, {pose, QList<int>(FingerCount, MaxSpeed), 0});
    update();
    selectSoon(target, row);
}

QList<int> SequenceTab::readPose(const Target& target)
{
    const Conversation conversation;
    if (m_editors.inPositionMode()) {
        PerFinger<std::uint16_t> targets{};
        PerFinger<std::uint16_t> currents{};
        target->getFingerPosAll(target.node, targets.data(), currents.data(), FingerCount);
        return {currents.begin(), currents.end()};
    }
    PerFinger<std::int16_t> targets{};
    PerFinger<std::int16_t> currents{};
    target->getFingerAngleAll(target.node, targets.data(), currents.data(), FingerCount);
    return {currents.begin(), currents.end()};
}

void SequenceTab::selectSoon(const Target& target, int row)
{
    QTimer::singleShot(
        SelectInsertedMs, m_table, [this, target, inserted = m_table->rowIndex(row)] {
            if (inserted.isValid() && pageIsShown() && m_session->holds(target) && !isPlaying())
                m_table->setCurrentCell(inserted.row(), 0);
        });
}

void SequenceTab::deleteClicked()
{
    const int row = m_table->currentRow();
    if (row < 0)
        return;
    m_table->removeStep(row);
    m_manager->removeSequenceDataItem(row);
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
    if (shownRow() == row)
        m_shown = m_table->rowIndex(other);
}

/// Changes the step that the editors show.
template<class Edit>
void SequenceTab::editShownStep(Edit edit)
{
    const int row = shownRow();
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
        const int speed = std::clamp(field->text().toInt(), MinSpeed, MaxSpeed);
        field->setText(QString::number(speed));
        store(step.speed, finger, speed);
    });
}

void SequenceTab::handleSliderMoved(std::uint8_t finger, int value)
{
    m_editors.showValue(finger, value);
}

void SequenceTab::handleSliderReleased(std::uint8_t finger)
{
    const QSlider* slider = m_editors.slider(finger);
    const Release release{finger, m_editors.inPositionMode(), slider->sliderPosition(),
                          NumberText::toByte(m_editors.speed(finger)->text()),
                          m_table->rowIndex(m_table->currentRow())};
    m_session->ask([this, slider] { return slider->isEnabled() && pageIsShown(); },
                   [this, release](const Target& target) { moveAndStore(target, release); });
}

/// The target that the hand reports after the motion, unless something failed.
std::optional<int> SequenceTab::move(const Target& target, const Release& release)
{
    const Conversation conversation;
    if (release.byPosition) {
        std::uint16_t reached = 0;
        std::uint16_t current = 0;
        if (!succeeded(target, "setFingerPos",
                       target->setFingerPos(target.node, release.finger,
                                            static_cast<std::uint16_t>(release.value),
                                            release.speed)) ||
            !succeeded(target, "getFingerPos",
                       target->getFingerPos(target.node, release.finger, &reached, &current)))
            return {};
        return reached;
    }
    std::int16_t reached = 0;
    std::int16_t current = 0;
    if (!succeeded(target, "setFingerAngle",
                   target->setFingerAngle(target.node, release.finger,
                                          static_cast<std::int16_t>(release.value),
                                          release.speed)) ||
        !succeeded(target, "getFingerAngle",
                   target->getFingerAngle(target.node, release.finger, &reached, &current)))
        return {};
    return reached;
}

void SequenceTab::moveAndStore(const Target& target, const Release& release)
{
    const auto reached = move(target, release);
    if (!reached || !release.row.isValid())
        return;
    // The person may have gone to another row meanwhile, or taken the slider up again.
    if (m_shown == release.row && !m_editors.slider(release.finger)->isSliderDown())
        m_editors.setValue(release.finger, *reached);
    const int row = release.row.row();
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
    m_manager->setPositionType(m_editors.inPositionMode() ? SequenceData::POS_TYPE_POSITION
                                                          : SequenceData::POS_TYPE_ANGLE);
}

bool SequenceTab::keyPressed(const QKeyEvent& event)
{
    const int row = m_table->currentRow();
    if (event.key() == Qt::Key_Up) {
        if (row > 0)
            m_table->setCurrentCell(row - 1, 0);
        return true;
    }
    if (event.key() == Qt::Key_Down) {
        if (row < m_table->rowCount() - 1)
            m_table->setCurrentCell(row + 1, 0);
        return true;
    }
    return false;
}

void SequenceTab::loadClicked()
{
    m_session->whenQuiet(DeviceSession::Change::LoadSequence, [this] { load(); });
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
        updateEditCell();
    }
    update();
}

void SequenceTab::saveClicked()
{
    m_session->whenQuiet(DeviceSession::Change::SaveSequence, [this] { save(); });
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
