#pragma once

#include "devicesession.h"

#include <QWidget>

namespace vanto
{

class StatusReporter;

/// Base class of the pages, which show and control the open device.
///
/// The form of the main window creates the pages; setUp() must be called before any other function.
class DevicePage : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    void setUp(DeviceSession* session, StatusReporter* reporter);

    /// Reads everything that the page shows from the open device. The line must be idle.
    virtual void reload() {}
    /// The same, but fields that the user has edited keep what has been typed.
    virtual void reloadKeepingEdits();
    /// Shows the hand after a halt, which may have cut short what the page was reading.
    virtual void resumeAfterHalt(bool isCurrent);
    /// Clears everything that the page shows of a device.
    virtual void clear() {}
    virtual void enableWidgets(bool /*enable*/) {}
    /// Starts or stops the periodic work of the page, which runs while the page is current and a
    /// device is open. Called when the current page changes and when a device has been opened.
    virtual void follow(bool /*isCurrent*/) {}

    /// Whether the page is for hands with force sensing only.
    virtual bool needsForceSensing() const { return false; }
    /// Shows or hides the controls for force sensing.
    virtual void setForceSensing(bool /*present*/) {}

protected:
    DeviceSession* session() const { return m_session; }
    StatusReporter* reporter() const { return m_reporter; }
    /// Makes a request to the hand. It is dropped if it has to wait and `control` has been disabled
    /// by then.
    void request(const QWidget* control, RequestQueue::Request action);

private:
    DeviceSession* m_session = nullptr;
    StatusReporter* m_reporter = nullptr;
};

} // namespace vanto
