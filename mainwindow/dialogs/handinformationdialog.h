#pragma once

#include "supportreport.h"

#include <QDialog>

namespace vanto
{

class MessageLog;

/// Shows all that a hand reports about itself, as it was when the dialog was opened, and saves a
/// report for support. The dialog and its own dialogs are modeless.
class HandInformationDialog : public QDialog
{
    Q_OBJECT
public:
    /// The messages and frames of `report` are filled in when it is saved. `log` must outlive the
    /// dialog.
    HandInformationDialog(QWidget* window, const MessageLog* log, SupportReport report);

private:
    void saveReport();
    QByteArray reportFor(const QString& path);

    const MessageLog* m_log;
    SupportReport m_report;
};

} // namespace vanto
