#pragma once

#include "handcall.h"

#include <QColor>
#include <QObject>

class QStatusBar;

namespace vanto
{

class ElidedLabel;
class MessageLog;

/// Creates all status texts. Messages go to the status bar, errors to a red label beside them. Both
/// disappear after two seconds.
class StatusReporter : public QObject
{
    Q_OBJECT
public:
    explicit StatusReporter(QStatusBar* statusBar);

    void showMessage(const QString& text);
    /// A text that replaces another one disappears when the time of the earlier one has elapsed.
    void showError(const QString& text, const QColor& color = Qt::red);

    /// Adds a widget to the right end of the status bar.
    void addToStatusBar(QWidget* widget);
    const MessageLog* log() const { return m_log; }

    /// Reports failed operations; a time-out has a text of its own.
    CallReport& timeoutReport() { return m_timeoutReport; }
    /// Reports failed operations, including time-outs, in the same way.
    CallReport& plainReport() { return m_plain; }

    /// Formats a number for status texts: hexadecimal, lower case, at least two digits.
    static QString hex(unsigned number);

signals:
    /// The user wants to see the list of messages.
    void sig_logRequested();

private:
    class Report : public CallReport
    {
    public:
        explicit Report(StatusReporter& reporter) : m_reporter(reporter) {}
        bool reportTimeout(const HandTarget&) override { return false; }
        void reportFailure(const HandTarget& target, std::string_view operation,
                           std::uint8_t result, std::uint8_t subError) override;

    protected:
        StatusReporter& m_reporter;
    };
    class TimeoutReport : public Report
    {
    public:
        using Report::Report;
        bool reportTimeout(const HandTarget& target) override;
    };

    QStatusBar* m_statusBar;
    TimeoutReport m_timeoutReport{*this};
    Report m_plain{*this};
    ElidedLabel* m_errorLabel;
    MessageLog* m_log;
};

} // namespace vanto
