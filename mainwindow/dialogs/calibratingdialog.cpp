#include "calibratingdialog.h"

#include "program.h"
#include "ui_calibratingdialog.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace vanto
{

CalibratingDialog::CalibratingDialog(QWidget* parent, const QString& prompt, std::uint16_t value,
                                     std::uint16_t singleStep, std::function<void(int)> moved)
    : QDialog(parent), ui(std::make_unique<Ui::CalibratingDialog>()), m_moved(std::move(moved))
{
    ui->setupUi(this);
    setWindowTitle(Program::title());
    ui->label_Prompt->setText(prompt);
    ui->spinBox_ThumbRootPos->setSingleStep(singleStep);
    ui->spinBox_ThumbRootPos->setFocus();
    // A click on Cancel must not take the focus: the spin box would apply the typed value, and
    // move.
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setFocusPolicy(Qt::NoFocus);
    // With a click on OK it moves when the dialog closes, so that a failure can reopen the dialog.
    ui->buttonBox->button(QDialogButtonBox::Ok)->setFocusPolicy(Qt::TabFocus);
    const QSignalBlocker blocker(ui->spinBox_ThumbRootPos);
    ui->spinBox_ThumbRootPos->setValue(value);
}

CalibratingDialog::~CalibratingDialog() = default;

void CalibratingDialog::done(int result)
{
    // A click on OK that a move has delayed must not turn the reject after it into an accept.
    if (!isOpen())
        return;
    const QScopedValueRollback closing(m_closing, true);
    // The spin box loses the focus now and would apply the typed value.
    if (result == QDialog::Rejected)
        ui->spinBox_ThumbRootPos->blockSignals(true);
    QDialog::done(result);
}

void CalibratingDialog::keyPressEvent(QKeyEvent* event)
{
    // Return after a typed number moves the thumb root. It must not confirm the stage as well.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || focusWidget() != ui->spinBox_ThumbRootPos)
        QDialog::keyPressEvent(event);
}

void CalibratingDialog::on_spinBox_ThumbRootPos_valueChanged(int value)
{
    Q_ASSERT(m_moved);
    m_moved(value);
}

} // namespace vanto
