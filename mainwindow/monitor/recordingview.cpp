#include "recordingview.h"

#include "modeless.h"
#include "monitorplot.h"
#include "program.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

namespace vanto
{

namespace
{
constexpr int ProgressAfterMs = 500;
constexpr int FullRange = 1000;
} // namespace

void RecordingView::open(const QString& path, QWidget* parent)
{
    // Not modal, and read between the events: an exchange with the hand may be in progress.
    auto* const progress =
        new QProgressDialog(tr("Reading the recording..."), tr("Cancel"), 0, FullRange, parent);
    progress->setWindowTitle(Program::title());
    progress->setWindowModality(Qt::NonModal);
    progress->setAttribute(Qt::WA_DeleteOnClose);
    progress->setAutoClose(false);
    progress->setMinimumDuration(ProgressAfterMs);
    connect(progress, &QProgressDialog::canceled, progress, &QObject::deleteLater);
    auto* const next = new QTimer(progress);
    const auto loader = std::make_shared<RecordingLoader>(path);
    connect(next, &QTimer::timeout, progress, [progress, next, loader, path, parent] {
        if (loader->step()) {
            progress->setValue(static_cast<int>(loader->share() * (FullRange - 1)));
            return;
        }
        progress->deleteLater();
        next->stop();
        showResult(*loader, path, parent);
    });
    next->start(0);
}

void RecordingView::showResult(RecordingLoader& loader, const QString& path, QWidget* parent)
{
    if (!loader.failure().isEmpty()) {
        Modeless::showBox(parent, QMessageBox::Critical,
                          tr("The recording '%1' cannot be opened.").arg(path), loader.failure());
        return;
    }
    Recording recording = loader.take();
    if (recording.isEmpty())
        Modeless::showBox(parent, QMessageBox::Information,
                          tr("The recording '%1' is empty.").arg(path));
    else
        (new RecordingView(std::move(recording), path, parent))->show();
}

RecordingView::RecordingView(Recording recording, const QString& path, QWidget* parent)
    : QDialog(parent), m_recording(std::move(recording))
{
    setObjectName(QStringLiteral("recordingView"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Program::title() + QStringLiteral(" - ") + QFileInfo(path).fileName());
    const auto reduce = [this](std::size_t channel, std::int64_t from, std::int64_t to,
                               int columns) {
        return m_recording.reduce(channel, from, to, columns);
    };
    const auto markers = [this](std::int64_t from, std::int64_t to) {
        QList<Marker> found;
        for (const Marker& marker : m_recording.markers()) {
            if (marker.timeUs >= from && marker.timeUs < to)
                found.append(marker);
        }
        return found;
    };
    m_plot = new MonitorPlot({reduce, markers}, this);
    m_plot->setChannels(m_recording.channels());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* const picture =
        buttons->addButton(tr("Save Picture..."), QDialogButtonBox::ActionRole);
    connect(picture, &QPushButton::clicked, this, [this] { savePicture(m_plot, this); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(description(), this));
    layout->addWidget(m_plot, 1);
    layout->addWidget(buttons);
    resize(window()->parentWidget()->window()->size());
    m_plot->showTime(m_recording.timeAt(0), m_recording.timeAt(m_recording.rowCount() - 1) + 1);
}

QString RecordingView::description() const
{
    const QLocale locale;
    QString text =
        tr("%1 samples, from %2.")
            .arg(m_recording.sampleCount())
            .arg(locale.toString(m_recording.start().toLocalTime(), QLocale::ShortFormat));
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
                                      QStringLiteral("png"),
                                      QStringLiteral("monitor.png")};
    Modeless::saveFile(parent, choice, [plot, parent](const QString& path) {
        const QString failure = plot->savePicture(path);
        if (!failure.isEmpty())
            Modeless::showBox(parent, QMessageBox::Critical,
                              tr("The picture could not be saved in '%1'.").arg(path), failure);
    });
}

} // namespace vanto
