#pragma once

#include "devicesession.h"

#include <QColor>
#include <QObject>

class ElidedLabel;
class MessageLog;
class QStatusBar;

/// The only maker of status texts. Ordinary texts go to the status bar; errors go to a label of
/// their own beside them, in red. Both vanish after two seconds.
class StatusReporter : public QObject
{
    Q_OBJECT
public:
    StatusReporter(QStatusBar* statusBar, const DeviceSession* session);

    void showMessage(const QString& text);
    /// A text that replaces another one vanishes when the time of the earlier one has run out.
    void showError(const QString& text, const QColor& colour = Qt::red);

    /// How a time-out (result 3) is told.
    enum class Timeouts {
        Named,       ///< by a text of its own
        LikeFailures ///< like every other failure
    };

    /// Whether `result` of the named operation means success. A failure is shown; unless it is a
    /// named time-out, the device is asked for its sub error, so call this inside the
    /// conversation in which the operation failed. False and silent when the device is no longer
    /// wanted: then nothing of it may be shown.
    bool succeeded(const DeviceSession::Target& target, const char* operation, std::uint8_t result,
                   Timeouts timeouts = Timeouts::Named);

    /// Tells of a failure whose sub error is already known.
    void showFailure(const DeviceSession::Target& target, const char* operation,
                     std::uint8_t result, std::uint8_t subError);

    /// A number as it stands in status texts: hexadecimal, lower case, at least two digits.
    static QString hex(unsigned number);

private:
    void reportFailure(const DeviceSession::Target& target, const char* operation,
                       std::uint8_t result, Timeouts timeouts);

    QStatusBar* m_statusBar;
    const DeviceSession* m_session;
    ElidedLabel* m_errorLabel;
    MessageLog* m_log;
};
