#pragma once

#include "actionmarkers.h"
#include "idletask.h"
#include "samplebuffer.h"
#include "targethistory.h"
#include "telemetryclock.h"
#include "telemetryreader.h"
#include "telemetryrecorder.h"

#include <QDockWidget>
#include <QTimer>

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vanto
{

class CurrentLimits;
class DeviceSession;
class PlotPanel;
class StatusReporter;
struct HandAction;
class ValueTable;

/// Shows and records the measured values of the open hand. It reads the hand while it is visible,
/// and gives way to everything else, see TelemetryReader.
class MonitorDock : public QDockWidget
{
    Q_OBJECT
public:
    /// `isLocked`: whether long work uses the line, with pauses in which the hand must not be read;
    /// `isPlaying`: whether a sequence plays, so that the line is left to the player.
    MonitorDock(DeviceSession* session, StatusReporter* reporter, const CurrentLimits* limits,
                std::function<bool()> isLocked, std::function<bool()> isPlaying, QWidget* window);
    ~MonitorDock() override;

private:
    QWidget* createControls();
    QWidget* createRecordingControls();
    QPushButton* addButton(const char* name, const QString& text, void (MonitorDock::*clicked)());
    bool canRead() const;
    void applyChoices();
    void startOrStop();
    void beginHand();
    void take(const Sample& sample);
    void refresh();
    void showAll();
    QString recordedText() const;
    void showPlot(const Sample& last);
    void follow();
    void noteTarget(const HandAction& action);
    void record();
    void stopRecording(const QString& message);
    void chooseRecordingPath();
    void startRecording(const QString& path);
    void showRecording();
    void mark();
    void addMarker(const Marker& marker);
    void openRecording();
    void savePicture();

    DeviceSession* m_session;
    StatusReporter* m_reporter;
    const CurrentLimits* m_limits;
    std::function<bool()> m_isLocked;
    TelemetryClock m_clock;
    TelemetryReader m_reader;
    SampleBuffer m_buffer;
    TargetHistory m_targets;
    TelemetryRecorder m_recorder;
    ActionMarkers m_actions;
    QTimer m_refreshTimer;
    IdleTask m_refreshing;
    bool m_changed = false; ///< there are samples that are not shown
    QComboBox* m_rate = nullptr;
    QComboBox* m_span = nullptr; ///< shown time
    std::vector<QCheckBox*> m_quantities;
    QLabel* m_state = nullptr;
    QPushButton* m_record = nullptr;
    QPushButton* m_pause = nullptr;
    QLineEdit* m_markerText = nullptr;
    ValueTable* m_table = nullptr;
    PlotPanel* m_panel = nullptr; ///< null in a build without plots
};

} // namespace vanto
