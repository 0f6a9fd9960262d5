// How the monkey answers dialogs.

#include "monitor.h"
#include "monkey.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>

namespace vanto
{

void Monkey::answerDialog(QDialog* dialog)
{
    ++m_counts[QStringLiteral("dialog")];
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        if (auto* button = qobject_cast<QPushButton*>(randomItem(box->buttons())))
            clickButton(*button);
        return;
    }
    if (dialog->objectName() == QLatin1String("taskDialog")) {
        if (randomBelow(8) == 0)
            dialog->reject();
        return;
    }
    if (dialog->objectName() == QLatin1String("parametersDialog")) {
        answerParametersDialog(dialog);
        return;
    }
    if (answerNodeDialog(dialog))
        return;
    if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
        const QStringList items = input->comboBoxItems();
        if (items.contains(QLatin1String("dark"))) // not the files of an update
            m_monitor.expectThemeChange();
        if (input->inputMode() == QInputDialog::IntInput)
            input->setIntValue(unusedNode());
        else if (!items.isEmpty())
            input->setTextValue(items[randomBelow(static_cast<int>(items.size()))]);
        else
            input->setTextValue(randomBelow(2) == 0 ? QStringLiteral("1A2B") : randomText());
    } else if (auto* spin = dialog->findChild<QSpinBox*>()) {
        for (int i = m_quiet ? 3 : 0; i < 3; ++i)
            randomBelow(2) == 0 ? spin->stepUp() : spin->stepDown();
    }
    const auto* files = qobject_cast<QFileDialog*>(dialog);
    if (randomBelow(4) == 0)
        dialog->reject();
    else if (files)
        chooseFile(*dialog, fileFor(*files));
    else
        dialog->accept();
}

/// Enters a node or a range, right or wrong. Returns false if the dialog asks for something else.
bool Monkey::answerNodeDialog(QDialog* dialog)
{
    if (auto* node = dialog->findChild<QLineEdit*>(QStringLiteral("lineEdit_Node"))) {
        node->setText(randomBelow(2) == 0 ? QString::number(1 + randomBelow(2)) : randomText());
        selectRandomItem(dialog->findChild<QComboBox*>(QStringLiteral("comboBox_Protocol")));
    } else if (auto* first = dialog->findChild<QSpinBox*>(QStringLiteral("spinBox_FirstNode"))) {
        // At least one of the hands is in the range, if there is a range.
        first->setValue(1 + randomBelow(2));
        auto* last = dialog->findChild<QSpinBox*>(QStringLiteral("spinBox_LastNode"));
        last->setValue(1 + randomBelow(randomBelow(2) == 0 ? 3 : 255));
    } else {
        return false;
    }
    if (randomBelow(4) != 0)
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    if (dialog->isVisible()) // a wrong entry does not close it
        dialog->reject();
    return true;
}

QString Monkey::fileFor(const QFileDialog& dialog)
{
    const bool opens = dialog.acceptMode() == QFileDialog::AcceptOpen;
    const QString title = dialog.windowTitle().toLower();
    if (title.contains(QLatin1String("parameter")) && (!opens || randomBelow(4) != 0))
        return QDir::current().absoluteFilePath(ParameterFileName);
    if (title.contains(QLatin1String("record")))
        return recordingFor(opens);
    if (title.contains(QLatin1String("picture")))
        return QDir::current().absoluteFilePath(QStringLiteral("picture.png"));
    return opens ? randomSequenceFile()
                 : QDir::current().absoluteFilePath(QStringLiteral("saved.json"));
}

/// The node of the nodes 1 to 3 that no hand has. Two hands at one node would answer at the same
/// time.
int Monkey::unusedNode()
{
    int node = 1;
    while (node < 3 && m_hand.command(QStringLiteral("get %1 id").arg(node)).startsWith(u"ok"))
        ++node;
    return node;
}

/// Answers one of the dialogs that are not modal.
void Monkey::useModelessDialog()
{
    QList<QDialog*> open;
    for (auto* dialog : m_driver.window()->findChildren<QDialog*>())
        if (dialog->isVisible() && !dialog->isModal() && !qobject_cast<QProgressDialog*>(dialog))
            open.append(dialog);
    QDialog* dialog = randomItem(open);
    if (!dialog)
        return;
    ++m_counts[QStringLiteral("modeless dialog")];
    if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
        // The name that the window proposes can be accepted before the own one is entered.
        if (files->acceptMode() == QFileDialog::AcceptSave)
            files->setDirectory(QDir::current());
        if (randomBelow(4) == 0)
            files->reject();
        else
            chooseFile(*files, fileFor(*files));
        return;
    }
    auto* button = randomItem(dialog->findChildren<QPushButton*>());
    if (!button || randomBelow(3) == 0)
        dialog->close();
    else
        clickButton(*button);
}

} // namespace vanto
