#include "recordingopener.h"

#include "idletask.h"
#include "modeless.h"
#include "program.h"

#include <QCoreApplication>
#include <QProgressDialog>
#include <QTimer>

#include <memory>
#include <utility>

namespace vanto
{

namespace
{
constexpr int ProgressAfterMs = 500;
constexpr int StepIntervalMs = 1; ///< with 0, an exchange would wait for all steps at once
constexpr int FullRange = 1000;

QString translated(const char* text)
{
    return QCoreApplication::translate("vanto::RecordingView", text);
}

void finish(RecordingLoader& loader, const QString& path, QWidget* parent,
            const std::function<void(Recording, const QString&)>& opened)
{
    if (!loader.failure().isEmpty()) {
        Modeless::showBox(parent, QMessageBox::Critical,
                          translated(QT_TRANSLATE_NOOP("vanto::RecordingView",
                                                       "The recording '%1' cannot be opened."))
                              .arg(path),
                          loader.failure());
        return;
    }
    Recording recording = loader.take();
    if (recording.isEmpty())
        Modeless::showBox(
            parent, QMessageBox::Information,
            translated(QT_TRANSLATE_NOOP("vanto::RecordingView", "The recording '%1' is empty."))
                .arg(path));
    else
        opened(std::move(recording), path);
}
void read(const QString& path, QWidget* parent,
          std::function<void(Recording, const QString&)> opened)
{
    // Not modal, and read between the events: an exchange with the hand may be in progress.
    auto* const progress = new QProgressDialog(
        translated(QT_TRANSLATE_NOOP("vanto::RecordingView", "Reading the recording...")),
        translated(QT_TRANSLATE_NOOP("vanto::RecordingView", "Cancel")), 0, FullRange, parent);
    progress->setWindowTitle(Program::title());
    progress->setWindowModality(Qt::NonModal);
    progress->setAttribute(Qt::WA_DeleteOnClose);
    progress->setAutoClose(false);
    progress->setMinimumDuration(ProgressAfterMs);
    auto* const next = new QTimer(progress);
    QObject::connect(progress, &QProgressDialog::canceled, next, &QTimer::stop);
    QObject::connect(progress, &QProgressDialog::canceled, progress, &QObject::deleteLater);
    const auto loader = std::make_shared<RecordingLoader>(path);
    const auto step = [=, opened = std::move(opened)] {
        if (!next->isActive())
            return; // canceled
        if (loader->step()) {
            progress->setValue(static_cast<int>(loader->share() * (FullRange - 1)));
            return;
        }
        progress->deleteLater();
        next->stop();
        finish(*loader, path, parent, opened);
    };
    QObject::connect(next, &QTimer::timeout, new IdleTask(step, progress), &IdleTask::run);
    next->start(StepIntervalMs);
}
} // namespace

void RecordingOpener::choose(const QString& caption, QWidget* parent,
                             std::function<void(Recording, const QString&)> opened)
{
    const Modeless::FileChoice choice{
        caption,
        {translated(QT_TRANSLATE_NOOP("vanto::RecordingView", "Recordings (*.csv)")),
         translated(QT_TRANSLATE_NOOP("vanto::RecordingView", "All files (*)"))},
        {},
        &IdleTask::once};
    Modeless::openFile(parent, choice, [parent, opened = std::move(opened)](const QString& path) {
        read(path, parent, opened);
    });
}

} // namespace vanto
