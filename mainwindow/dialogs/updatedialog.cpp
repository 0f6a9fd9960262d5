#include "updatedialog.h"

#include "program.h"

#include <QCloseEvent>

#include <chrono>

namespace vanto
{

namespace
{
constexpr int DonePercent = 100;
constexpr std::chrono::milliseconds Never = std::chrono::hours(24);
} // namespace

UpdateDialog::UpdateDialog(QWidget* window) : QProgressDialog(window)
{
    setWindowTitle(Program::title());
    setWindowModality(Qt::WindowModal);
    setCancelButton(nullptr);
    setRange(0, DonePercent);
    setAutoClose(false);
    setAutoReset(false);
    // Shown and hidden explicitly: otherwise a timer, started by the first value, would show it
    // again after an update that has failed meanwhile.
    setMinimumDuration(static_cast<int>(Never.count()));
}

void UpdateDialog::begin()
{
    reset();
    setLabelText(tr("Wait a moment..."));
    show();
}

void UpdateDialog::end()
{
    reset(); // stops the timer that would show it again
    hide();
}

void UpdateDialog::showProgress(int percent)
{
    if (percent == 0) {
        setLabelText(tr("Power up the device now"));
        m_transferBegun = false;
    } else if (percent > 0 && !m_transferBegun) {
        setLabelText(tr("Updating device firmware..."));
        m_transferBegun = true;
    }
    setValue(percent);
}

void UpdateDialog::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace vanto
