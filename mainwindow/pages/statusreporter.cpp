#include "statusreporter.h"

#include "calltext.h"
#include "elidedlabel.h"
#include "messagelog.h"

#include <QAction>
#include <QStatusBar>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr int MessageDurationMs = 2000;
}

StatusReporter::StatusReporter(QStatusBar* statusBar)
    : QObject(statusBar),
      m_statusBar(statusBar),
      m_errorLabel(new ElidedLabel(statusBar)),
      m_log(new MessageLog(this))
{
    // The name exempts the label from the colors of the style sheets.
    m_errorLabel->setObjectName("label_StatusError");
    m_errorLabel->setAccessibleName(tr("Error"));
    m_statusBar->addPermanentWidget(m_errorLabel);
}

void StatusReporter::list(const QString& text)
{
    m_log->add(MessageLog::Kind::Error, text);
}

void StatusReporter::addToStatusBar(QWidget* widget)
{
    m_statusBar->addPermanentWidget(widget);
}

void StatusReporter::addContextAction(QAction* action)
{
    // The label has no width while there is no error, so the whole status bar has the menu.
    for (QWidget* bar : {static_cast<QWidget*>(m_statusBar), static_cast<QWidget*>(m_errorLabel)}) {
        bar->setContextMenuPolicy(Qt::ActionsContextMenu);
        bar->addAction(action);
    }
}

void StatusReporter::showMessage(const QString& text, Listing listing)
{
    // Otherwise an identical text would keep the remaining time of the previous one.
    m_statusBar->clearMessage();
    m_statusBar->showMessage(text, MessageDurationMs);
    if (listing == Listing::Listed)
        m_log->add(MessageLog::Kind::Message, text);
}

void StatusReporter::showError(const QString& text, const QColor& color, Listing listing)
{
    QPalette palette = m_errorLabel->palette();
    palette.setColor(QPalette::WindowText, color);
    m_errorLabel->setPalette(palette);
    m_errorLabel->setText(text);
    m_errorLabel->setAccessibleName(text);
    if (listing == Listing::Listed)
        m_log->add(MessageLog::Kind::Error, text);
    QTimer::singleShot(MessageDurationMs, m_errorLabel, [label = m_errorLabel] {
        label->setText({});
        label->setAccessibleName(tr("Error"));
    });
}

bool StatusReporter::TimeoutReport::reportTimeout(const HandTarget& target)
{
    m_reporter.showError(CallText::timeout(target), Qt::red, m_listing);
    return true;
}

void StatusReporter::Report::reportFailure(const HandTarget& target, std::string_view operation,
                                           std::uint8_t result, std::uint8_t subError)
{
    m_reporter.showError(CallText::failure(target, operation, result, subError));
}

void StatusReporter::Report::reportHalted()
{
    m_reporter.showError(CallText::halted());
}

QString StatusReporter::hex(unsigned number)
{
    return CallText::hex(number);
}

} // namespace vanto
