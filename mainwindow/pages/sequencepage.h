#pragma once

#include "devicepage.h"
#include "fingerslots.h"
#include "sequenceplayer.h"
#include "stepeditors.h"
#include "stepinput.h"

#include <cstdint>
#include <memory>

class QKeyEvent;
class QMenu;
class QMenuBar;

namespace vanto
{

class FocusKeeper;
class SequenceActions;
class SequenceEditor;
class SequenceFiles;
class SequenceStatus;
class StepResults;
class StepTable;
namespace Ui
{
class SequencePage;
}

/// The Sequence page: edits, plays, loads and saves a motion sequence.
///
/// The hand moves only when a row is selected (the fingers are stretched, then take the pose of
/// that step), when a slider is released or a typed value is confirmed, on Run or a double click,
/// and on Return in a row that has not been sent. Insert, Delete, Up and Down select a row. All
/// other changes, such as Undo and Paste, only change the sequence.
class SequencePage : public DevicePage
{
    Q_OBJECT
public:
    /// Groups of controls that are enabled together.
    enum Group { Everything, Editors, Rows, Load, Save, Run, Stop, Repeat };

    explicit SequencePage(QWidget* parent = nullptr);
    ~SequencePage() override;

    void setUp(DeviceSession* session, StatusReporter* reporter);
    /// Adds the Edit menu before another one, and the recent files to the File menu.
    void addMenus(QMenuBar* bar, QAction* before, QMenu* fileMenu, QAction* beforeInFileMenu);
    void reloadSequenceInfo();
    void clearSequenceInfo();
    /// Enables the controls that are usable in the current state.
    void updateSequenceTab();
    void enableWidgetsForSequenceTab(int group, bool enable);
    /// Shows the current row's step in the editors.
    void updateEditCell();
    /// Exchanges two adjacent steps, in the sequence and in the table.
    void SwapSequenceRow(int row, int other);
    void tabSequence_handleSpeedEdit(unsigned char finger) { m_input->storeSpeed(finger); }
    void tabSequence_handleSliderMoved(unsigned char finger, int value)
    {
        m_input->previewTarget(finger, value);
    }
    void tabSequence_handleSliderReleased(unsigned char finger) { m_input->sendTarget(finger); }
    void updatePlaying(bool isPlaying, int sequenceIndex, qint64 periodInMS, QString errMsg);

    void reload() override;
    void reloadKeepingEdits() override;
    void resumeAfterHalt(bool) override { updateAfterPlay(); }
    void clear() override;
    void enableWidgets(bool enable) override;
    void follow(bool isCurrent) override;

    /// Whether a run is in progress, or a step is being sent.
    bool isPlaying() const;
    void focusTable();
    /// Handles a key pressed in the table; returns whether it is consumed.
    bool handleKeyPress(const QKeyEvent& event);

signals:
    /// isPlaying() may have changed.
    void sig_playingChanged();

private slots:
    void on_pushButton_SeqInsert_clicked() { requestInsert(InsertPlace::After); }
    void on_pushButton_SeqDelete_clicked();
    void on_pushButton_SeqUp_clicked() { moveCurrentRow(-1); }
    void on_pushButton_SeqDown_clicked() { moveCurrentRow(1); }
    void on_pushButton_SeqRun_clicked();
    void on_pushButton_SeqStop_clicked() { m_player->stop(); }
    void on_pushButton_SeqLoad_clicked();
    void on_pushButton_SeqSave_clicked();
    // Hands do not store sequences yet.
    void on_pushButton_SeqReadFromDev_clicked() {}
    void on_pushButton_SeqWriteToDev_clicked() {}
    void on_pushButton_SeqRunOnDev_clicked() {}
    void on_pushButton_SeqStopOnDev_clicked() {}
    void on_tableWidget_Seq_cellDoubleClicked(int row, int) { playRow(row, Purpose::Run); }
    void on_tableWidget_Seq_currentCellChanged(int row, int, int, int)
    {
        playRow(row, Purpose::Edit);
    }
    void on_lineEdit_SeqDelay_editingFinished() { m_input->storeDelay(); }
    void on_comboBox_SeqPosOrAngle_currentIndexChanged(int index);
    VANTO_FINGER_SLOTS(lineEdit_SeqSpeed, editingFinished, tabSequence_handleSpeedEdit)
    VANTO_FINGER_SLOTS(lineEdit_SeqPos, returnPressed, m_input->sendTypedTarget)
    VANTO_FINGER_SLOTS(lineEdit_SeqPos, editingFinished, m_input->restoreAbandoned)
    VANTO_FINGER_VALUE_SLOTS(verticalSlider_SeqPos, sliderMoved, tabSequence_handleSliderMoved)
    VANTO_FINGER_SLOTS(verticalSlider_SeqPos, sliderReleased, tabSequence_handleSliderReleased)

private:
    enum class Purpose { Run, Edit };
    enum class InsertPlace { Before, After };
    void setUpLayout();
    void connectParts();
    /// Whether the page is the current one; isVisible() also depends on the window.
    bool isShown() const { return !isHidden(); }
    /// Whether the page is shown and has not been left or cleared since `visit`.
    bool isSameVisit(const Generation::Token& visit) const
    {
        return isShown() && visit.isCurrent();
    }
    void requestOnPage(std::function<bool()> stillWanted, RequestQueue::Request action);
    void playRow(int row, Purpose purpose);
    void play(const HandTarget& target, int start, int end, Purpose purpose);
    void updateAfterPlay();
    void requestInsert(InsertPlace place);
    void insert(const HandTarget& target, std::uint64_t step, InsertPlace place);
    void selectSoon(const HandTarget& target, int row);
    void moveCurrentRow(int distance);
    void showEdited(const QList<int>& rows);
    void showCurrentRow();
    void showMode();
    void runLoad(std::function<void()> load);

    std::unique_ptr<Ui::SequencePage> ui;
    StepTable* m_table;
    std::unique_ptr<SequenceEditor> m_sequence;
    std::unique_ptr<StepEditors> m_editors;
    SequencePlayer* m_player;
    std::unique_ptr<StepInput> m_input;
    std::unique_ptr<SequenceActions> m_actions;
    std::unique_ptr<SequenceFiles> m_files;
    StepResults* m_results;
    std::unique_ptr<SequenceStatus> m_status;
    std::array<QList<QWidget*>, Repeat + 1> m_groups;
    Generation m_visit;      ///< advanced when the page is left or cleared
    bool m_starting = false; ///< the first step of a run is being sent
    bool m_reading = false;  ///< the pose for a new step is being read, in the unit of the mode box
    std::unique_ptr<FocusKeeper> m_focus;
};

} // namespace vanto
