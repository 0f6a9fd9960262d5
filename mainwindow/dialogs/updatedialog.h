#pragma once

#include <QProgressDialog>

namespace vanto
{

/// Shows the progress of a firmware update. The user cannot close it: closing it or pressing Escape
/// would not stop the transfer.
class UpdateDialog : public QProgressDialog
{
    Q_OBJECT
public:
    explicit UpdateDialog(QWidget* window);

    /// Shows the dialog for another update.
    void begin();
    void end();
    void showProgress(int percent);

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_transferBegun = false;
};

} // namespace vanto
