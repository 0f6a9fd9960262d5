#include "monitordock.h"

#include "actionmonitor.h"
#include "currentlimits.h"
#include "devicesession.h"
#include "modeless.h"
#include "statusreporter.h"
#include "valuetable.h"

#ifdef VANTO_HAVE_PLOT
#include "monitorplot.h"
#include "plotpanel.h"
#include "recordingview.h"
#endif

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int RefreshIntervalMs = 67; ///< 15 times a second
constexpr qint64 MinRatioToCost = 4;  ///< of the interval of refreshes to the time that one takes
constexpr std::array Rates{10.0, 25.0, 50.0, TelemetryReader::AsFastAsPossible};
constexpr std::array SpansInSeconds{5, 10, 30, 60, 120, 300};
constexpr int DefaultSpan = 1;
constexpr int SecondsPerMinute = 60;
constexpr int SecondsPerHour = 3600;
constexpr std::array ObjectNames{"checkBox_MonitorCurrent", "checkBox_MonitorPosition",
                                 "checkBox_MonitorAngle", "checkBox_MonitorForce"};

/// After these the hand itself moves its fingers.
bool endsTargets(std::string_view operation)
{
    constexpr std::array<std::string_view, 4> operations{"startInit", "reset", "calibrate",
                                                         "setCaliData"};
    return std::ranges::find(operations, operation) != operations.end();
}
} // namespace

MonitorDock::MonitorDock(DeviceSession* session, StatusReporter* reporter,
                         const CurrentLimits* limits, std::function<bool()> isLocked,
                         std::function<bool()> isPlaying, QWidget* window)
    : QDockWidget(tr("Monitor"), window),
      m_session(session),
      m_reporter(reporter),
      m_limits(limits),
      m_isLocked(std::move(isLocked)),
      m_reader({[session] { return session->target(); }, [this](Quantity) { return canRead(); },
                std::move(isPlaying)},
               m_clock),
      m_recorder(m_clock),
      m_actions([session] { return session->target(); }, m_clock),
      m_refreshing([this] { refresh(); }, this)
{
    setObjectName(QStringLiteral("dock_Monitor"));
    auto* const content = new QWidget(this);
    auto* const layout = new QVBoxLayout(content);
    m_table = new ValueTable(content);
    auto* const splitter = new QSplitter(Qt::Vertical, content);
#ifdef VANTO_HAVE_PLOT
    m_panel = new PlotPanel(PlotSource::of(&m_buffer), splitter);
    splitter->addWidget(m_panel);
    m_panel->setTargets(&m_targets);
    MonitorPlot* const plot = m_panel->plot();
    const auto color = [plot](std::size_t finger) { return plot->fingerColor(finger); };
    connect(plot, &MonitorPlot::sig_colorsChanged, m_table,
            [this, color] { m_table->setColors(color); });
    connect(m_panel, &PlotPanel::sig_pauseRequested, this, [this] { m_pause->setChecked(true); });
    connect(m_panel, &PlotPanel::sig_returnRequested, this, [this] { m_pause->setChecked(false); });
    m_table->setColors(color);
#endif
    splitter->addWidget(m_table);
    splitter->setStretchFactor(0,
                               m_panel ? 1 : 0); // the plot gets all that the table does not need
    splitter->setChildrenCollapsible(false);
    layout->addWidget(createControls());
    layout->addWidget(splitter, 1);
    layout->addWidget(createRecordingControls());
    setWidget(content);

    m_refreshTimer.setInterval(RefreshIntervalMs);
    connect(&m_refreshTimer, &QTimer::timeout, &m_refreshing, &IdleTask::run);
    connect(&m_reader, &TelemetryReader::sig_sample, this, &MonitorDock::take);
    connect(&m_recorder, &TelemetryRecorder::sig_failed, this, [this](const QString& message) {
        m_reporter->showError(message);
        showRecording();
    });
    connect(&m_actions, &ActionMarkers::sig_marker, this, &MonitorDock::addMarker);
    connect(this, &QDockWidget::visibilityChanged, this, &MonitorDock::startOrStop);
    // Hidden by the user, it sends nothing; this signal also comes from the end of the program.
    // Queued: a dock that is taken out of the window is hidden for a moment.
    connect(
        toggleViewAction(), &QAction::toggled, this,
        [this] {
            if (isHidden() && m_recorder.isRecording())
                stopRecording(
                    tr("Recording stopped because the monitor is hidden: %1 samples in '%2'."));
        },
        Qt::QueuedConnection);
    connect(session, &DeviceSession::sig_opened, this, &MonitorDock::beginHand);
    connect(&ActionMonitor::instance(), &ActionMonitor::sig_action, this, &MonitorDock::noteTarget);
    connect(limits, &CurrentLimits::sig_changed, this, [this] { m_changed = true; });
    applyChoices();
    showRecording();
}

MonitorDock::~MonitorDock() = default;

QWidget* MonitorDock::createControls()
{
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const std::array names{tr("Current"), tr("Position"), tr("Angle"), tr("Force")};
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto* const box = new QCheckBox(names.at(i), row);
        box->setObjectName(QLatin1String(ObjectNames.at(i)));
        box->setChecked(i < 2);
        connect(box, &QCheckBox::toggled, this, &MonitorDock::applyChoices);
        layout->addWidget(box);
        m_quantities.push_back(box);
    }
    m_rate = new QComboBox(row);
    m_rate->setObjectName(QStringLiteral("comboBox_MonitorRate"));
    m_rate->setAccessibleName(tr("Samples per second"));
    for (const double rate : Rates)
        m_rate->addItem(rate > 0 ? tr("%1 Hz").arg(rate) : tr("As fast as possible"), rate);
    connect(m_rate, &QComboBox::currentIndexChanged, this, &MonitorDock::applyChoices);
    layout->addWidget(m_rate);
    m_span = new QComboBox(row);
    m_span->setObjectName(QStringLiteral("comboBox_MonitorSpan"));
    m_span->setAccessibleName(tr("Shown time"));
    for (const int seconds : SpansInSeconds)
        m_span->addItem(seconds < SecondsPerMinute ? tr("%1 s").arg(seconds)
                                                   : tr("%1 min").arg(seconds / SecondsPerMinute),
                        seconds);
    m_span->setCurrentIndex(DefaultSpan);
    connect(m_span, &QComboBox::currentIndexChanged, this, &MonitorDock::follow);
    m_span->setVisible(m_panel);
    layout->addWidget(m_span);
    m_pause = new QPushButton(tr("Pause"), row);
    m_pause->setObjectName(QStringLiteral("pushButton_MonitorPause"));
    m_pause->setCheckable(true);
    connect(m_pause, &QPushButton::toggled, this, [this] { m_changed = true; });
    m_pause->setToolTip(tr("Keeps the plot as it is, to drag and zoom it. Sampling goes on."));
    m_pause->setVisible(m_panel);
    layout->addWidget(m_pause);
    layout->addStretch();
    m_state = new QLabel(row);
    m_state->setObjectName(QStringLiteral("label_MonitorState"));
    layout->addWidget(m_state);
    return row;
}

QPushButton* MonitorDock::addButton(const char* name, const QString& text,
                                    void (MonitorDock::*clicked)())
{
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, clicked);
    return button;
}

QWidget* MonitorDock::createRecordingControls()
{
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_record = addButton("pushButton_MonitorRecord", {}, &MonitorDock::record);
    m_markerText = new QLineEdit(row);
    m_markerText->setObjectName(QStringLiteral("lineEdit_MonitorMarker"));
    m_markerText->setMaxLength(Marker::MaxTextLength);
    m_markerText->setPlaceholderText(tr("Text of the marker"));
    m_markerText->setAccessibleName(tr("Text of the marker"));
    connect(m_markerText, &QLineEdit::returnPressed, this, &MonitorDock::mark);
    layout->addWidget(m_record);
    layout->addWidget(m_markerText, 1);
    layout->addWidget(addButton("pushButton_MonitorMark", tr("Mark"), &MonitorDock::mark));
#ifdef VANTO_HAVE_PLOT
    layout->addWidget(
        addButton("pushButton_MonitorOpen", tr("Open Recording..."), &MonitorDock::openRecording));
    layout->addWidget(
        addButton("pushButton_MonitorPicture", tr("Save Picture..."), &MonitorDock::savePicture));
#endif
    return row;
}

/// While a hand is silent, the session sends one request a second itself.
bool MonitorDock::canRead() const
{
    return m_session->canTick() && m_session->state() == DeviceSession::State::Connected &&
           !m_isLocked();
}

void MonitorDock::applyChoices()
{
    ChannelSet channels;
    for (std::size_t i = 0; i < m_quantities.size(); ++i) {
        if (m_quantities[i]->isChecked())
            channels |= channelsOf(static_cast<Quantity>(i));
    }
    if (channels != m_reader.channels())
        m_reader.setChannels(channels);
    m_reader.setRate(m_rate->currentData().toDouble());
    m_table->setChannels(channels);
#ifdef VANTO_HAVE_PLOT
    m_panel->setChannels(channels);
#endif
    m_changed = true;
}

void MonitorDock::startOrStop()
{
    if (isVisible() == m_reader.isRunning())
        return;
    if (isVisible()) {
        m_reader.start();
        m_refreshTimer.start();
    } else {
        m_reader.stop();
        m_refreshTimer.stop();
    }
}

/// Samples of different hands are not mixed in one plot.
void MonitorDock::beginHand()
{
    m_actions.flush(); // those of the former hand
    m_buffer.clear();
    m_targets.clear();
    m_table->clearValues();
#ifdef VANTO_HAVE_PLOT
    m_panel->clear();
#endif
    m_recorder.mark({m_clock.nowUs(), tr("hand opened")});
}

void MonitorDock::take(const Sample& sample)
{
    m_buffer.append(sample);
    m_recorder.write(sample);
    m_changed = true;
}

void MonitorDock::noteTarget(const HandAction& action)
{
    const auto target = m_session->target();
    if (!target || target->node != action.node)
        return;
    if (action.kind == HandAction::Kind::Target && action.finger && *action.finger < FingerCount)
        m_targets.add(m_clock.nowUs(), action.quantity, *action.finger, action.value);
    else if (action.kind == HandAction::Kind::Operation && endsTargets(action.operation))
        m_targets.end(m_clock.nowUs());
}

void MonitorDock::refresh()
{
    if (!isVisible())
        return;
    QElapsedTimer cost;
    cost.start();
    showAll();
    const qint64 interval = std::max(qint64{RefreshIntervalMs}, MinRatioToCost * cost.elapsed());
    m_refreshTimer.start(static_cast<int>(interval)); // from now on
}

/// "0:01:05, 1.20 MB"
QString MonitorDock::recordedText() const
{
    const std::int64_t seconds = m_recorder.durationUs() / UsPerSecond;
    const QLatin1Char zero('0');
    return QStringLiteral("%1:%2:%3, %4")
        .arg(seconds / SecondsPerHour)
        .arg(seconds / SecondsPerMinute % SecondsPerMinute, 2, 10, zero)
        .arg(seconds % SecondsPerMinute, 2, 10, zero)
        .arg(locale().formattedDataSize(m_recorder.size(), 2, QLocale::DataSizeSIFormat));
}

void MonitorDock::showAll()
{
    m_state->setText(
        m_recorder.isRecording()
            ? tr("%1 Hz, %2 recorded").arg(m_reader.achievedRate(), 0, 'f', 0).arg(recordedText())
            : tr("%1 Hz").arg(m_reader.achievedRate(), 0, 'f', 0));
    const auto last = m_buffer.last();
    if (!last || !std::exchange(m_changed, false))
        return;
    m_table->showSample(*last);
    showPlot(*last);
}

void MonitorDock::showPlot([[maybe_unused]] const Sample& last)
{
#ifdef VANTO_HAVE_PLOT
    m_panel->showSample(last);
    if (const auto target = m_session->target())
        m_panel->setLimits(m_limits->of(target->node));
    if (m_pause->isChecked())
        return;
    const std::int64_t span = m_span->currentData().toInt() * UsPerSecond;
    const std::int64_t to = std::max(last.timeUs + 1, span);
    m_panel->showTime(to - span, to);
#endif
}

/// Shows the chosen time again.
void MonitorDock::follow()
{
    m_pause->setChecked(false);
    m_changed = true;
}

void MonitorDock::record()
{
    if (m_recorder.isRecording())
        stopRecording(tr("%1 samples recorded in '%2'."));
    else
        IdleTask::once(this, [this] { chooseRecordingPath(); });
}

/// `message`: %1 is the number of samples, %2 the path.
void MonitorDock::stopRecording(const QString& message)
{
    m_recorder.stop();
    m_reporter->showMessage(message.arg(m_recorder.sampleCount()).arg(m_recorder.path()));
    showRecording();
}

void MonitorDock::chooseRecordingPath()
{
    if (m_recorder.isRecording())
        return; // since the click
    const QString proposal =
        QStringLiteral("recording-%1.csv")
            .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
    const Modeless::FileChoice choice{
        tr("Record"), {tr("Recordings (*.csv)")}, proposal, &IdleTask::once};
    Modeless::saveFile(this, choice, [this](const QString& path) { startRecording(path); });
}

void MonitorDock::startRecording(const QString& path)
{
    if (m_recorder.isRecording())
        return; // another choice was confirmed first
    show();     // samples are taken only while it is visible
    const QString failure = m_recorder.start(path, m_reader.channels());
    if (!failure.isEmpty())
        IdleTask::once(
            this, [this, failure] { Modeless::showBox(this, QMessageBox::Critical, failure); });
    showRecording();
}

void MonitorDock::showRecording()
{
    const bool isRecording = m_recorder.isRecording();
    m_record->setText(isRecording ? tr("Stop Recording") : tr("Record..."));
    for (QCheckBox* const box : m_quantities)
        box->setEnabled(!isRecording); // the columns of the file are fixed
}

void MonitorDock::mark()
{
    const QString typed = m_markerText->text().trimmed();
    m_actions.flush();
    addMarker({m_clock.nowUs(), typed.isEmpty() ? tr("mark") : typed});
    m_markerText->clear();
}

/// Without samples there is nothing to mark.
void MonitorDock::addMarker(const Marker& marker)
{
    if (!m_reader.isRunning())
        return;
    m_buffer.addMarker(marker);
    m_recorder.mark(marker);
    m_changed = true;
}

void MonitorDock::openRecording()
{
#ifdef VANTO_HAVE_PLOT
    IdleTask::once(this, [this] { RecordingView::choose(this); });
#endif
}

void MonitorDock::savePicture()
{
#ifdef VANTO_HAVE_PLOT
    RecordingView::savePicture(m_panel->plot(), this);
#endif
}

} // namespace vanto
