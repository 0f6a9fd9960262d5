#include "pagetimers.h"

#include "devicesession.h"

#include <QTabWidget>

namespace
{
constexpr int RunIntervalMs = 100;
constexpr int PostponedMs = 20;
constexpr int ForceIntervalMs = 100;
} // namespace

PageTimers::PageTimers(QTabWidget* pages, DeviceSession* session)
    : QObject(pages), m_pages(pages), m_session(session)
{
    m_runTimer.setObjectName(QStringLiteral("runTimer"));
    m_forceTimer.setInterval(ForceIntervalMs);
    m_forceTimer.setObjectName(QStringLiteral("forceTimer"));
    connect(&m_runTimer, &QTimer::timeout, this, [this] {
        if (m_runTimer.interval() != RunIntervalMs)
            m_runTimer.start(RunIntervalMs);
        emit sig_runTick();
    });
    connect(&m_forceTimer, &QTimer::timeout, this, &PageTimers::sig_forceTick);
    connect(session, &DeviceSession::sig_stop, this, &PageTimers::stop);
}

void PageTimers::followCurrentPage()
{
    const QWidget* page = m_pages->currentWidget();
    const QString name = page ? page->objectName() : QString();

    if (name == QLatin1String("tab_Force") && m_session->connected())
        m_forceTimer.start();
    else
        m_forceTimer.stop();

    if (name == QLatin1String("tab_Run") && m_session->connected()) {
        emit sig_runPageEntered();
        m_runTimer.start(RunIntervalMs);
    } else {
        m_runTimer.stop();
        emit sig_runPageLeft();
    }

    if (name == QLatin1String("tab_Sequence"))
        emit sig_sequencePageEntered();
    else
        emit sig_sequencePageLeft();
}

void PageTimers::postponeRunTick()
{
    if (m_runTimer.isActive())
        m_runTimer.start(PostponedMs);
}

void PageTimers::stop()
{
    m_runTimer.stop();
    m_forceTimer.stop();
}
