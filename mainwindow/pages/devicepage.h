#pragma once

#include "devicesession.h"

#include <QWidget>

namespace vanto
{

class StatusReporter;

/// A page about the open device.
///
/// Pages are made by the window's form; setUp() gives them what they work with, before any other
/// call.
class DevicePage : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    void setUp(DeviceSession* session, StatusReporter* reporter);

    /// Reads everything that the page shows from the open device; only while the line is idle.
    virtual void reload() {}
    /// Empties what the page shows of a device.
    virtual void clear() {}
    virtual void enableWidgets(bool /*enable*/) {}
    /// Starts or ends what the page does while it is current and a device is open. Called when the
    /// user changes to another page and when a device has been opened.
    virtual void follow(bool /*isCurrent*/) {}

    /// Whether the page is there for hands with force sensing only.
    virtual bool needsForceSensing() const { return false; }
    /// Shows or hides what only those hands have.
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
