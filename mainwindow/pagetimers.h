#pragma once

#include <QObject>
#include <QTimer>

class DeviceSession;
class QTabWidget;

/// The periodic work of the pages: each timer runs while its page is current and a device is
/// open.
class PageTimers : public QObject
{
    Q_OBJECT
public:
    PageTimers(QTabWidget* pages, DeviceSession* session);

    /// Starts and stops what belongs to the page that is current.
    void followCurrentPage();
    void stop();
    /// A beat that cannot be used now comes a little later; one that always met the same clicks
    /// would never be of use.
    void postponeRunTick();
    /// Whether the Run page is current and its timer runs.
    bool runPageTicks() const { return m_runTimer.isActive(); }

signals:
    void sig_runTick();
    void sig_forceTick();
    /// The Run page has become current: commands from an earlier visit are void.
    void sig_runPageEntered();
    void sig_runPageLeft();
    void sig_sequencePageEntered();
    void sig_sequencePageLeft();

private:
    QTabWidget* m_pages;
    DeviceSession* m_session;
    QTimer m_runTimer{this};
    QTimer m_forceTimer{this};
};
