#pragma once

#include "devicesession.h"
#include "stepeditors.h"
#include "tabroom.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

class FocusKeeper;
class PageTimers;
class QKeyEvent;
class SequenceManager;
class SequencePlayer;
class StatusReporter;
class StepTable;

/// The Sequence tab: edits, plays, loads and saves a motion sequence.
///
/// The hand moves when a row is selected (the hand is stretched and put into that step's pose),
/// when a slider is released, and by Run, a double click or Insert, which selects its row; by
/// nothing else.
class SequenceTab : public TabRoom
{
    Q_DECLARE_TR_FUNCTIONS(SequenceTab)
public:
    /// Groups of controls that are enabled together.
    enum Group { Everything, Editors, Rows, Load, Save, Run, Stop };

    SequenceTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                StatusReporter* reporter, PageTimers* timers, SequenceManager* manager,
                SequencePlayer* player);
    ~SequenceTab() override;

    void reload() override;
    void clear() override;
    void setWidgetsEnabled(bool enabled) override;
    void enableGroup(Group group, bool enabled);
    /// Enables what makes sense now.
    void update();
    /// Shows the current row's step in the editors.
    void updateEditCell();

    void insertClicked();
    void deleteClicked();
    void moveRowClicked(int distance);
    void swapRows(int row, int other);
    void runClicked();
    void stopClicked();
    void loadClicked();
    void saveClicked();
    void rowDoubleClicked(int row);
    void currentRowChanged(int row);
    void delayEdited();
    void handleSpeedEdit(std::uint8_t finger);
    void handleSliderMoved(std::uint8_t finger, int value);
    void handleSliderReleased(std::uint8_t finger);
    void modeChanged();
    void playEnded();
    void updatePlaying(bool isPlaying, int sequenceIndex, const QString& errMsg);
    /// Whether the key is used up.
    bool keyPressed(const QKeyEvent& event);

private:
    /// A slider's release, as it was when it happened.
    struct Release {
        std::uint8_t finger;
        const MotionUnit* unit;
        int value;
        std::uint8_t speed;
        quint64 step;
    };

    bool isPlaying() const;
    bool pageIsShown() const;
    /// Whether the page is still shown that was shown then.
    bool isVisit(int visit) const { return pageIsShown() && visit == m_visit; }
    void request(std::function<bool()> stillWanted, RequestQueue::Request request);
    void playRow(int row, bool forEdit);
    void play(const HandTarget& target, int start, int end, bool forEdit);
    QList<int> readPose(const HandTarget& target);
    void insert(const HandTarget& target, quint64 after);
    void selectSoon(const HandTarget& target, int row);
    std::optional<int> move(const HandTarget& target, const Release& release);
    void moveAndStore(const HandTarget& target, const Release& release);
    template<class Edit>
    void editShownStep(Edit edit);
    void load();
    void save();

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    SequenceManager* m_manager;
    SequencePlayer* m_player;
    StepTable* m_table;
    StepEditors m_editors;
    /// The row whose step the editors show: what is typed into them belongs to it, even when
    /// another row has become current meanwhile.
    quint64 m_shown = 0;
    int m_visit = 0;         ///< number of the page's showing
    int m_edition = 0;       ///< changes with the rows
    bool m_starting = false; ///< the first step of a run is being sent
    bool m_reading = false;  ///< the pose for a new step, in the unit that the box shows
    std::unique_ptr<FocusKeeper> m_focus;
};
