#include "scanrunner.h"

#include "calltext.h"
#include "devicesession.h"
#include "porterror.h"
#include "program.h"
#include "statusreporter.h"

#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>

namespace vanto
{

ScanRunner::ScanRunner(QPushButton* button, DeviceSession* session, StatusReporter* reporter)
    : QObject(button),
      m_button(button),
      m_session(session),
      m_reporter(reporter),
      m_scan(reporter->scanReport()),
      m_idleCaption(button->text())
{
    createProgressBar();
    setRange({});
    connect(&m_scan, &HandScan::sig_nodeStarted, this, [this](int node) {
        m_progress->setValue(node);
        m_reporter->showMessage(
            tr("Trying node '0x%1'...").arg(StatusReporter::hex(static_cast<unsigned>(node))),
            StatusReporter::Listing::Unlisted);
    });
    connect(&m_scan, &HandScan::sig_found, this, &ScanRunner::sig_found);
    connect(&m_scan, &HandScan::sig_pause, session, &DeviceSession::openWaitingDialogs);
}

void ScanRunner::createProgressBar()
{
    m_progress = new QProgressBar;
    m_progress->setObjectName(QStringLiteral("progressBar_Scan"));
    m_progress->setAccessibleName(tr("Scan progress"));
    m_progress->setTextVisible(false);
    // Otherwise the theme would change the height after the first paint.
    m_progress->setMaximumHeight(m_progress->fontMetrics().height());
    m_progress->setMaximumWidth(20 * m_progress->fontMetrics().averageCharWidth());
    m_reporter->addToStatusBar(m_progress);
    m_progress->hide();
}

bool ScanRunner::isRunning() const
{
    return m_button->text() != m_idleCaption;
}

HandScan::Outcome ScanRunner::run(const QString& port, const HandScan::Range& range)
{
    m_progress->setRange(range.first, range.last);
    m_session->setScanning(true);
    showRunning(true);
    const HandScan::Outcome outcome = m_scan.run(port, m_session->token(), range);
    m_session->setScanning(false);
    if (outcome == HandScan::Outcome::PortNotOpened)
        showPortNotOpened(port);
    showRunning(false);
    return outcome;
}

void ScanRunner::setRange(const HandScan::Range& range)
{
    m_range = range;
    m_button->setToolTip(tr("Scans nodes %1 to %2").arg(range.first).arg(range.last));
}

void ScanRunner::showRunning(bool running)
{
    m_button->setText(running ? tr("Stop") : m_idleCaption);
    m_progress->setValue(m_progress->minimum());
    m_progress->setVisible(running);
}

void ScanRunner::showPortNotOpened(const QString& port)
{
    const QString text = CallText::portNotOpened(port, m_scan.failedProtocol());
    QMessageBox box(QMessageBox::Critical, Program::title(), text, QMessageBox::Ok,
                    m_button->window());
    box.setInformativeText(describePortError(port));
    box.exec();
}

} // namespace vanto
