#pragma once

#include <QProgressDialog>

namespace vanto
{

/// Shows how far a firmware update has come. Only the update itself takes it away again: closing
/// it or pressing Escape would not stop the transfer.
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
