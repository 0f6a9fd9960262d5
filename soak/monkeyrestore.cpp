// How the monkey uses the comparison of parameters.

#include "monitor.h"
#include "monkey.h"

#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>

namespace vanto
{

namespace
{
/// What a row of the comparison of parameters is written with.
struct WrittenName {
    const char* name;
    Monitor::Write write;
};
constexpr WrittenName WrittenNames[] = {
    {"P", {0x45, 1045, 0}},
    {"I", {0x45, 1055, 0}},
    {"D", {0x45, 1065, 0}},
    {"G", {0x45, 1075, 0}},
    {"Current limit", {0x46, 1095, 0}},
    {"Force limit", {0x47, 1115, 0}},
    {"Position limits", {0x48, 0, 0}},
    {"Self-test level", {0x60, 1008, 0}},
    {"Beep switch", {0x61, 1009, 0}},
};

/// The writes that the ticks of a comparison allow. A command writes all gains of a finger, so with
/// one of them the others may be written, too, as they are.
QList<Monitor::Write> tickedWrites(const QTableWidget& table)
{
    static const QStringList fingers{QStringLiteral("Thumb"),  QStringLiteral("Index"),
                                     QStringLiteral("Middle"), QStringLiteral("Third"),
                                     QStringLiteral("Little"), QStringLiteral("Thumb root")};
    QList<Monitor::Write> writes;
    for (int row = 0; row < table.rowCount(); ++row) {
        if (table.item(row, 0)->checkState() != Qt::Checked)
            continue;
        const auto finger = static_cast<int>(fingers.indexOf(table.item(row, 1)->text()));
        const QString name = table.item(row, 0)->text();
        const bool isGain = name.size() == 1;
        for (const WrittenName& written : WrittenNames)
            if (QLatin1String(written.name) == name || (isGain && written.write.command == 0x45))
                writes.append({written.write.command, written.write.reg, std::max(finger, 0)});
    }
    return writes;
}
} // namespace

/// Changes the hands first, so that there is something to restore. Most of the faults come later,
/// when values are written: with a fault in every tenth request few hands can be read completely.
void Monkey::useParameters()
{
    m_hand.command(QStringLiteral("clear"));
    for (const int node : {1, 2})
        m_hand.command(QStringLiteral("set %1 current-limit %2 %3")
                           .arg(node)
                           .arg(randomBelow(6))
                           .arg(100 + randomBelow(500)));
    if (!QFile::exists(ParameterFileName) || randomBelow(8) == 0)
        m_driver.trigger(QStringLiteral("action_Save_Parameters"));
    else if (randomBelow(6) == 0)
        m_driver.trigger(QStringLiteral("action_Hand_Information"));
    else
        m_driver.trigger(QStringLiteral("action_Restore_Parameters"));
}

/// Ticks at random, but never the calibration, and restores. Cancel can end this early.
void Monkey::answerParametersDialog(QDialog* dialog)
{
    ++m_counts[QStringLiteral("comparison")];
    for (int i = 0; i < 4; ++i)
        if (auto* box = randomItem(dialog->findChildren<QCheckBox*>()))
            box->click();
    auto* table = dialog->findChild<QTableWidget*>();
    if (table->rowCount() > 0) {
        QTableWidgetItem* item = table->item(randomBelow(table->rowCount()), 0);
        if (item->flags().testFlag(Qt::ItemIsUserCheckable) &&
            item->text() != QLatin1String("Calibration"))
            item->setCheckState(randomBelow(2) == 0 ? Qt::Checked : Qt::Unchecked);
    }
    if (randomBelow(3) != 0)
        restoreParameters(dialog);
    auto* closing = new QTimer(dialog);
    connect(closing, &QTimer::timeout, dialog, &QDialog::reject);
    closing->start(200 + randomBelow(2000));
}

void Monkey::restoreParameters(QDialog* dialog)
{
    auto* button = dialog->findChild<QPushButton*>(QStringLiteral("pushButton_Restore"));
    if (!button->isEnabled())
        return;
    ++m_counts[QStringLiteral("restore")];
    if (randomBelow(2) == 0)
        injectFault();
    m_monitor.beginRestore(tickedWrites(*dialog->findChild<QTableWidget*>()));
    connect(dialog, &QDialog::finished, this, [this] { m_monitor.endRestore(); });
    button->click();
}

} // namespace vanto
