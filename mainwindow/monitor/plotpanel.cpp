#include "plotpanel.h"

#include "cursorpanel.h"
#include "fingerlegend.h"
#include "monitorplot.h"
#include "overlaybar.h"
#include "plotcursors.h"
#include "recordingopener.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>

#include <limits>

namespace vanto
{

namespace
{
constexpr std::int64_t StepsOfTime = 200; ///< of the shown time, for the arrow keys
constexpr int EvaluationIntervalMs = 100; ///< while a cursor is dragged
} // namespace

PlotPanel::PlotPanel(PlotSource source, QWidget* parent)
    : QWidget(parent),
      m_source(std::move(source)),
      m_legend(new FingerLegend(this)),
      m_plot(new MonitorPlot(m_source, this)),
      m_cursors(new CursorPanel(this)),
      m_overlay(new OverlayBar(this)),
      m_rebuilding([this] { showChannels(); }, this),
      m_evaluating([this] { showCursorValues(); }, this, EvaluationIntervalMs)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_legend);
    layout->addWidget(m_plot, 1);
    layout->addWidget(createOptions());
    layout->addWidget(m_cursors);
    layout->addWidget(m_overlay);
    m_cursors->hide();
    const auto color = [this](std::size_t finger) { return m_plot->fingerColor(finger); };
    m_legend->setColors(color);
    connect(m_plot, &MonitorPlot::sig_colorsChanged, m_legend,
            [this, color] { m_legend->setColors(color); });
    connect(m_legend, &FingerLegend::sig_toggled, this, [this](std::size_t finger, bool shown) {
        m_plot->setFingerShown(finger, shown);
        m_evaluating.run();
    });
    connect(m_plot, &MonitorPlot::sig_timeChanged, this, &PlotPanel::sig_pauseRequested);
    connect(m_plot, &MonitorPlot::sig_returnRequested, this, &PlotPanel::sig_returnRequested);
    connect(m_plot->cursors(), &PlotCursors::sig_moved, this, [this] {
        m_cursors->setTimes(*m_plot->cursors()->times());
        m_evaluating.request();
    });
    connect(m_cursors, &CursorPanel::sig_timesEdited, this, &PlotPanel::editCursors);
    connect(m_overlay, &OverlayBar::sig_changed, this, &PlotPanel::applyOverlay);
}

QCheckBox* PlotPanel::addOption(const char* name, const QString& text, void (PlotPanel::*toggled)())
{
    auto* const box = new QCheckBox(text, this);
    box->setObjectName(QLatin1String(name));
    connect(box, &QCheckBox::toggled, this, toggled);
    return box;
}

QWidget* PlotPanel::createOptions()
{
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_showLimits = addOption("checkBox_MonitorLimits", tr("Limits"), &PlotPanel::applyLimits);
    m_showLimits->setToolTip(
        tr("The current limits that were read last, and the limit of the player"));
    m_showLimits->hide();
    m_showCursors = addOption("checkBox_MonitorCursors", tr("Cursors"), &PlotPanel::toggleCursors);
    m_showCursors->setToolTip(
        tr("Drag a cursor, or click to place the nearer one. The table shows their values."));
    auto* const overlay = new QPushButton(tr("Overlay..."), row);
    overlay->setObjectName(QStringLiteral("pushButton_MonitorOverlay"));
    overlay->setToolTip(tr("Plots an earlier recording over these samples"));
    connect(overlay, &QPushButton::clicked, this, &PlotPanel::chooseOverlay);
    layout->addWidget(m_showLimits);
    layout->addWidget(m_showCursors);
    layout->addStretch();
    layout->addWidget(overlay);
    return row;
}

void PlotPanel::setChannels(ChannelSet channels)
{
    m_channels = channels;
    m_rebuilding.run();
}

void PlotPanel::showChannels()
{
    m_plot->setChannels(m_channels);
    m_legend->showSample(m_last, m_channels);
    m_plot->showAgain();
    m_evaluating.run();
}

void PlotPanel::showTime(std::int64_t fromUs, std::int64_t toUs)
{
    if (m_overlay->followsMarker())
        placeAtMarker();
    m_cursors->setStep((toUs - fromUs) / StepsOfTime);
    m_overlay->setStep((toUs - fromUs) / StepsOfTime);
    m_plot->showTime(fromUs, toUs);
}

void PlotPanel::clear()
{
    m_plot->clear();
    m_evaluating.run();
}

void PlotPanel::showSample(const Sample& sample)
{
    m_last = sample;
    m_legend->showSample(sample, m_plot->channels());
}

void PlotPanel::setLimits(const FingerLimits& limits)
{
    const bool isFirst = m_showLimits->isHidden();
    if (!isFirst && limits == m_limits)
        return;
    m_limits = limits;
    m_showLimits->show();
    if (isFirst)
        m_showLimits->setChecked(true);
    else
        applyLimits();
}

void PlotPanel::setTargets(const TargetHistory* targets)
{
    m_plot->setTargets(targets);
}

void PlotPanel::applyLimits()
{
    m_plot->setLimits(m_showLimits->isChecked() ? std::optional(m_limits) : std::nullopt);
    m_plot->showAgain();
}

void PlotPanel::chooseOverlay()
{
    const auto show = [this](Recording recording, const QString& path) {
        m_overlay->setPlace(m_plot->fromUs());
        m_overlay->setRecording(std::move(recording), path);
    };
    IdleTask::once(this, [=, this] { RecordingOpener::choose(tr("Open overlay"), this, show); });
}

void PlotPanel::applyOverlay()
{
    if (m_overlay->followsMarker())
        placeAtMarker();
    m_plot->setOverlay(m_overlay->source(), m_overlay->offsetUs());
}

void PlotPanel::placeAtMarker()
{
    using Limits = std::numeric_limits<std::int64_t>;
    const QList<Marker> markers = m_source.markers(Limits::min(), Limits::max());
    if (markers.isEmpty())
        return;
    m_overlay->setPlace(markers.constLast().timeUs);
    m_plot->setOverlayOffset(m_overlay->offsetUs());
}

/// New cursors are inside the shown time, which stays.
void PlotPanel::toggleCursors()
{
    const bool shown = m_showCursors->isChecked();
    m_cursors->setVisible(shown);
    if (!shown) {
        m_plot->cursors()->setTimes({});
        m_plot->showAgain();
        return;
    }
    emit sig_pauseRequested();
    const std::int64_t span = m_plot->toUs() - m_plot->fromUs();
    m_cursors->setTimes({m_plot->fromUs() + span / 3, m_plot->fromUs() + 2 * span / 3});
    editCursors();
}

void PlotPanel::editCursors()
{
    m_plot->cursors()->setTimes(m_cursors->times());
    m_plot->showAgain();
    m_evaluating.run();
}

void PlotPanel::showCursorValues()
{
    if (!m_showCursors->isChecked())
        return;
    ChannelSet channels = m_plot->channels();
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        if (!m_plot->isFingerShown(Channel::at(channel).finger))
            channels.reset(channel);
    }
    m_cursors->showValues(m_source, channels);
}

} // namespace vanto
