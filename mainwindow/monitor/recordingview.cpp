#include "recordingview.h"

#include "idletask.h"
#include "modeless.h"
#include "monitorplot.h"
#include "plotpanel.h"
#include "program.h"
#include "recordingopener.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace vanto
{

void RecordingView::choose(QWidget* parent)
{
    RecordingOpener::choose(tr("Open recording"), parent,
                            [parent](Recording recording, const QString& path) {
                                (new RecordingView(std::move(recording), path, parent))->show();
                            });
}

RecordingView::RecordingView(Recording recording, const QString& path, QWidget* parent)
    : QDialog(parent), m_recording(std::move(recording))
{
    setObjectName(QStringLiteral("recordingView"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Program::title() + QStringLiteral(" - ") + QFileInfo(path).fileName());
    m_panel = new PlotPanel(PlotSource::of(&m_recording), this);
    m_panel->setChannels(m_recording.channels());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* const picture =
        buttons->addButton(tr("Save Picture..."), QDialogButtonBox::ActionRole);
    connect(picture, &QPushButton::clicked, this, [this] { savePicture(m_panel->plot(), this); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(description(), this));
    layout->addWidget(m_panel, 1);
    layout->addWidget(buttons);
    resize(window()->parentWidget()->window()->size());
    connect(m_panel, &PlotPanel::sig_returnRequested, this, &RecordingView::showWhole);
    showWhole();
    Sample last;
    for (std::size_t channel = 0; channel < ChannelCount; ++channel)
        last.values[channel] = m_recording.at(m_recording.rowCount() - 1, channel).max;
    m_panel->showSample(last);
}

void RecordingView::showWhole()
{
    m_panel->showTime(m_recording.timeAt(0), m_recording.timeAt(m_recording.rowCount() - 1) + 1);
}

QString RecordingView::description() const
{
    const QLocale locale;
    QString text =
        m_recording.start().isValid()
            ? tr("%1 samples, from %2.")
                  .arg(m_recording.sampleCount())
                  .arg(locale.toString(m_recording.start().toLocalTime(), QLocale::ShortFormat))
            : tr("%1 samples.").arg(m_recording.sampleCount());
    if (m_recording.samplesPerRow() > 1)
        text +=
            QLatin1Char(' ') + tr("The plot shows the minimum and the maximum of %1 samples each.")
                                   .arg(m_recording.samplesPerRow());
    if (m_recording.isCut())
        text += QLatin1Char(' ') + tr("The last line of the file is incomplete.");
    return text;
}

void RecordingView::savePicture(const MonitorPlot* plot, QWidget* parent)
{
    const Modeless::FileChoice choice{tr("Save picture"),
                                      {tr("Pictures (*.png)")},
                                      QStringLiteral("monitor.png"),
                                      &IdleTask::once};
    const auto save = [plot, parent](const QString& path) {
        const QString failure = plot->savePicture(path);
        if (!failure.isEmpty())
            Modeless::showBox(parent, QMessageBox::Critical,
                              tr("The picture could not be saved in '%1'.").arg(path), failure);
    };
    IdleTask::once(parent, [=] { Modeless::saveFile(parent, choice, save); });
}

} // namespace vanto
