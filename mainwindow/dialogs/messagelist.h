#pragma once

#include <QDialog>
#include <QMessageBox>

class QPlainTextEdit;

namespace vanto
{

class MessageLog;

/// The list of the latest messages, which can be copied and saved. It and its own dialogs are
/// modeless: Stop remains available, and no dialog has to wait for an exchange with a hand.
class MessageList : public QDialog
{
    Q_OBJECT
public:
    /// Opens the list, or raises it if it is open.
    static void showLog(const MessageLog* log, QWidget* window);

private:
    MessageList(const MessageLog* log, QWidget* window);

    void replaceLine(int index, const QString& line);
    void chooseFile();
    void confirmFile(const QString& path);
    void save(const QString& path);
    QMessageBox* showBox(QMessageBox::Icon icon, const QString& text, const QString& details,
                         QMessageBox::StandardButtons buttons);

    const MessageLog* m_log;
    QPlainTextEdit* m_list;
};

} // namespace vanto
