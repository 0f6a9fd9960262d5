#include "parameterbackups.h"

#include "devicebar.h"
#include "noticebar.h"
#include "parameterbackup.h"
#include "parametercomparison.h"
#include "program.h"
#include "statusreporter.h"

#include <QProgressBar>

#include <algorithm>
#include <utility>

namespace vanto
{

namespace
{
/// Without a UID, a hand of the same type at the same node and protocol counts as the same.
bool isSameHand(const HandFacts& one, const HandFacts& other)
{
    if (one.uid && other.uid)
        return one.uid == other.uid;
    return one.node == other.node && one.protocolType == other.protocolType &&
           !isOtherHardware(one, other);
}
} // namespace

ParameterBackups::ParameterBackups(DeviceSession* session, StatusReporter* reporter,
                                   DeviceBar* deviceBar, NoticeBar* notice,
                                   std::function<bool()> isRead)
    : m_session(session),
      m_reporter(reporter),
      m_deviceBar(deviceBar),
      m_notice(notice),
      m_isRead(std::move(isRead)),
      m_progress(new QProgressBar)
{
    m_progress->setObjectName(QStringLiteral("progressBar_Backup"));
    m_progress->setAccessibleName(tr("Backup of the parameters"));
    m_progress->setFormat(tr("Backup %p%"));
    m_progress->setMaximumHeight(m_progress->fontMetrics().height());
    m_progress->setMaximumWidth(20 * m_progress->fontMetrics().averageCharWidth());
    m_reporter->addToStatusBar(m_progress);
    m_progress->hide();
    connect(deviceBar, &DeviceBar::sig_pagesLoaded, this, &ParameterBackups::startComparison);
    connect(session, &DeviceSession::sig_closed, notice, &QWidget::hide);
}

ParameterBackups::~ParameterBackups() = default;

std::shared_ptr<ParameterReader> ParameterBackups::readerFor(const HandTarget& target,
                                                             const QList<ParameterKey>& keys) const
{
    auto options =
        ParameterBackup::readOptions(m_session->hasForceSensing(), Program::nameAndVersion());
    options.keys = keys;
    return std::make_shared<ParameterReader>(target, options);
}

std::optional<ParameterBackups::Backup> ParameterBackups::backUp(const HandTarget& target)
{
    const auto reader = readerFor(target, allParameterKeys());
    m_progress->setRange(0, reader->stepCount());
    m_progress->setValue(0);
    m_progress->show();
    reader->run([this](int done, int) { m_progress->setValue(done); });
    m_progress->hide();
    const auto saved = ParameterBackup::save(*reader);
    if (!saved.error.isEmpty())
        m_reporter->showError(saved.error);
    if (!saved.missing.isEmpty())
        m_reporter->showError(saved.missing);
    return saved.path.isEmpty() ? std::nullopt
                                : std::optional(Backup{reader->parameters(), saved.path});
}

void ParameterBackups::saveBeforeUpdate()
{
    m_runner.reset();
    m_reader.reset();
    m_backup.reset(); // an older one says nothing about this update
    m_compares = false;
    const auto target = m_session->target();
    if (!target || !m_isRead())
        return;
    const DeviceSession::State state = m_session->state();
    if (state == DeviceSession::State::NoAnswer)
        m_reporter->showError(ParameterBackup::failureText(tr("The hand does not answer.")));
    if (state != DeviceSession::State::Connected)
        return;
    const ControlLock lock = m_deviceBar->lockWindow(DeviceBar::Usable::Nothing);
    m_backup = backUp(*target);
}

void ParameterBackups::startComparison()
{
    m_isFound = false;
    if (const auto target = m_session->target(); m_compares && target)
        startReading(readerFor(*target, {}));
}

void ParameterBackups::startReading(std::shared_ptr<ParameterReader> reader)
{
    m_reader = std::move(reader);
    m_runner = std::make_unique<HandTaskRunner>(m_session, m_reader);
    // Queued, because the runner is still emitting. Meanwhile another comparison may begin.
    connect(
        m_runner.get(), &HandTaskRunner::sig_finished, this,
        [this, finished = m_reader] {
            if (finished == m_reader)
                continueComparison();
        },
        Qt::QueuedConnection);
    m_runner->start();
}

/// If the hand could not be read, or is another one, the next hand that is opened is asked. All
/// parameters are read only of the hand that is looked for.
void ParameterBackups::continueComparison()
{
    m_runner.reset();
    const ParameterSet& now = m_reader->parameters();
    const HandTarget& target = m_reader->target();
    if (m_reader->outcome() != HandTask::Outcome::Completed || !target.isCurrent() ||
        !isSameHand(now.hand, m_backup->parameters.hand))
        return;
    if (!std::exchange(m_isFound, true)) {
        startReading(readerFor(target, allParameterKeys()));
        return;
    }
    m_compares = false;
    const auto rows = compareParameters(now, m_backup->parameters);
    if (!std::ranges::any_of(rows, differs))
        return;
    m_notice->showNotice(
        tr("The parameters of the hand differ from the backup made before the update."),
        tr("Compare..."), [this, path = m_backup->path] { emit sig_compareRequested(path); });
}

} // namespace vanto
