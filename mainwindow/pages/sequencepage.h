#pragma once

#include "devicepage.h"
#include "fingerslots.h"
#include "sequenceplayer.h"
#include "stepeditors.h"

#include <cstdint>
#include <memory>
#include <optional>

class QKeyEvent;

namespace vanto
{

class FocusKeeper;
class SequenceEditor;
class StepTable;
namespace Ui
{
class SequencePage;
}

/// The Sequence page: edits, plays, loads and saves a motion sequence.
///
/// The hand moves only when a row is selected (the fingers are stretched, then take the pose of
/// that step), when a slider is released, and on Run or a double click. Insert, Delete, Up and Down
/// select a row.
class SequencePage : public DevicePage
{
    Q_OBJECT
public:
    /// Groups of controls that are enabled together.
    enum Group { Everything, Editors, Rows, Load, Save, Run, Stop };

    explicit SequencePage(QWidget* parent = nullptr);
    ~SequencePage() override;

    void setUp(DeviceSession* session, StatusReporter* reporter);
    void reloadSequenceInfo();
    void clearSequenceInfo();
    /// Enables the controls that are usable in the current state.
    void updateSequenceTab();
    void enableWidgetsForSequenceTab(int group, bool enable);
    /// Shows the current row's step in the editors.
    void updateEditCell();
    /// Exchanges two steps, in the sequence and in the table.
    void SwapSequenceRow(int row, int other);
    void tabSequence_handleSpeedEdit(unsigned char finger);
    void tabSequence_handleSliderMoved(unsigned char finger, int value);
    void tabSequence_handleSliderReleased(unsigned char finger);
    void updatePlaying(bool isPlaying, int sequenceIndex, qint64 periodInMS, QString errMsg);

    void reload() override;
    void reloadKeepingEdits() override;
    void resumeAfterHalt(bool) override { updateAfterPlay(); }
    void clear() override { clearSequenceInfo(); }
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
    void on_pushButton_SeqInsert_clicked();
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
    void on_lineEdit_SeqDelay_editingFinished();
    void on_comboBox_SeqPosOrAngle_currentIndexChanged(int index);
    VANTO_FINGER_SLOTS(lineEdit_SeqSpeed, editingFinished, tabSequence_handleSpeedEdit)
    VANTO_FINGER_VALUE_SLOTS(verticalSlider_SeqPos, sliderMoved, tabSequence_handleSliderMoved)
    VANTO_FINGER_SLOTS(verticalSlider_SeqPos, sliderReleased, tabSequence_handleSliderReleased)

private:
    enum class Purpose { Run, Edit };
    /// The state at the release of a slider.
    struct Release {
        std::uint8_t finger;
        const MotionUnit* unit;
        int value;
        std::uint8_t speed;
        std::uint64_t step;
    };

    void setUpLayout();
    void storeEditedSpeed();
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
    void insert(const HandTarget& target, std::uint64_t after);
    void selectSoon(const HandTarget& target, int row);
    void moveCurrentRow(int distance);
    std::optional<int> move(const HandTarget& target, const Release& release);
    void moveAndStore(const HandTarget& target, const Release& release);
    void load();
    void save();

    std::unique_ptr<Ui::SequencePage> ui;
    StepTable* m_table;
    std::unique_ptr<SequenceEditor> m_sequence;
    std::unique_ptr<StepEditors> m_editors;
    SequencePlayer* m_player;
    std::array<QList<QWidget*>, Stop + 1> m_groups;
    /// The step that the editors show. Input belongs to it, even if another row has become current.
    std::uint64_t m_shownStep = 0;
    Generation m_visit;      ///< advanced when the page is left or cleared
    bool m_starting = false; ///< the first step of a run is being sent
    bool m_reading = false;  ///< the pose for a new step is being read, in the unit of the mode box
    std::unique_ptr<FocusKeeper> m_focus;
};

} // namespace vanto
