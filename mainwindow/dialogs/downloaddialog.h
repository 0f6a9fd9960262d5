#pragma once

#include <QProgressDialog>

namespace vanto
{

/// Shows the progress of a download that takes longer than a second, with Cancel. Not modal.
class DownloadDialog : public QProgressDialog
{
    Q_OBJECT
public:
    DownloadDialog(QWidget* window, const QString& text);

    /// `total` is negative if it is not known.
    void showProgress(qint64 received, qint64 total);

private:
    QString m_text;
};

} // namespace vanto
