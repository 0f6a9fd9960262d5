#include "parametertest.h"

#include "conversation.h"

#include <QFile>
#include <QJsonDocument>
#include <QLabel>

namespace vanto
{

QJsonObject ParameterTest::contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                      : QJsonObject();
}

QString ParameterTest::stateOf(const ParametersDialog* dialog)
{
    return dialog->findChild<QLabel*>("label_RestoreState")->text();
}

QTableWidget* ParameterTest::tableOf(const ParametersDialog* dialog)
{
    return dialog->findChild<QTableWidget*>("tableWidget_Parameters");
}

int ParameterTest::rowOf(const QTableWidget* table, const QString& name, const QString& finger)
{
    for (int row = 0; row < table->rowCount(); ++row)
        if (table->item(row, 0)->text() == name && table->item(row, 1)->text() == finger)
            return row;
    return -1;
}

bool ParameterTest::isTicked(const QTableWidget* table, int row)
{
    return table->item(row, 0)->checkState() == Qt::Checked;
}

void ParameterTest::changeAll() const
{
    for (int finger = 0; finger < 6; ++finger) {
        for (const char* gain : {"pid-p", "pid-i", "pid-d", "pid-g"})
            command(QString("set 2 %1 %2 %3.25").arg(gain).arg(finger).arg(11 + finger));
        command(QString("set 2 current-limit %1 %2").arg(finger).arg(301 + finger));
        if (finger < 5)
            command(QString("set 2 force-limit %1 %2").arg(finger).arg(401 + finger));
        command(QString("set 2 start %1 %2").arg(finger).arg(501 + finger));
        command(QString("set 2 end %1 %2").arg(finger).arg(3001 + finger));
    }
    command("set 2 selftest 0");
    command("set 2 beepswitch 0");
}

void ParameterTest::trigger(const QString& action, const QString& path, Act act)
{
    m_boxes.clear();
    const QString file = QDir::current().absoluteFilePath(path);
    int chosen = 0;
    DialogAnswer<QFileDialog> files([&](QFileDialog* dialog) {
        if (chosen++ == 0)
            chooseFile(*dialog, file);
        else // it was not usable
            dialog->reject();
    });
    DialogAnswer<QMessageBox> boxes([&](QMessageBox* box) {
        m_boxes.append((box->text() + ' ' + box->informativeText()).trimmed());
        const bool accepts = m_boxes.size() <= m_acceptedBoxes;
        auto* yes = box->button(accepts ? QMessageBox::Yes : QMessageBox::No);
        (yes ? yes : box->button(QMessageBox::Ok))->click();
    });
    DialogAnswer<ParametersDialog> dialogs([&](ParametersDialog* dialog) {
        QVERIFY(!Conversation::isActive());
        act(dialog);
        dialog->reject();
    });
    m_tool->trigger(action);
    QCOMPARE(dialogs.count(), act ? 1 : 0);
}

void ParameterTest::saveTo(const QString& path)
{
    trigger("action_Save_Parameters", path);
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_boxes, QStringList());
}

void ParameterTest::compare(const QString& path, Act act)
{
    trigger("action_Restore_Parameters", path, std::move(act));
}

void ParameterTest::restore(ParametersDialog* dialog) const
{
    const auto* close = dialog->findChild<QPushButton*>("pushButton_ParametersClose");
    dialog->findChild<QPushButton*>("pushButton_Restore")->click();
    QCOMPARE(close->text(), "Cancel");
    QTRY_COMPARE_WITH_TIMEOUT(close->text(), "Close", 60'000);
}

} // namespace vanto
