#pragma once

#include "handcall.h"

#include <QColor>
#include <QObject>

class QAction;
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

    /// Whether the list of messages contains a text.
    enum class Listing { Listed, Unlisted };

    void showMessage(const QString& text, Listing listing = Listing::Listed);
    /// A text that replaces another one disappears when the time of the earlier one has elapsed.
    void showError(const QString& text, const QColor& color = Qt::red,
                   Listing listing = Listing::Listed);

    /// Adds an error to the list of messages without showing it on the status bar.
    void list(const QString& text);

    /// Adds a widget to the right end of the status bar.
    void addToStatusBar(QWidget* widget);
    /// Adds an action to the context menu of the status bar.
    void addContextAction(QAction* action);
    const MessageLog* log() const { return m_log; }

    /// Reports failed operations; a time-out has a text of its own.
    CallReport& timeoutReport() { return m_timeoutReport; }
    /// The same, but time-outs are not listed: a scan tries many nodes without a hand.
    CallReport& scanReport() { return m_scanReport; }
    /// Reports failed operations, including time-outs, in the same way.
    CallReport& plainReport() { return m_plain; }

    /// Formats a number for status texts: hexadecimal, lower case, at least two digits.
    static QString hex(unsigned number);

private:
    class Report : public CallReport
    {
    public:
        explicit Report(StatusReporter& reporter) : m_reporter(reporter) {}
        bool reportTimeout(const HandTarget&) override { return false; }
        void reportFailure(const HandTarget& target, std::string_view operation,
                           std::uint8_t result, std::uint8_t subError) override;
        void reportHalted() override;

    protected:
        StatusReporter& m_reporter;
    };
    class TimeoutReport : public Report
    {
    public:
        TimeoutReport(StatusReporter& reporter, Listing listing)
            : Report(reporter), m_listing(listing)
        {
        }
        bool reportTimeout(const HandTarget& target) override;

    private:
        Listing m_listing;
    };

    QStatusBar* m_statusBar;
    TimeoutReport m_timeoutReport{*this, Listing::Listed};
    TimeoutReport m_scanReport{*this, Listing::Unlisted};
    Report m_plain{*this};
    ElidedLabel* m_errorLabel;
    MessageLog* m_log;
};

} // namespace vanto
