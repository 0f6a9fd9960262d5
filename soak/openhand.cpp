#include "openhand.h"

#include "mainwindow.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QPushButton>

void openHand(MainWindow& window, const QString& port)
{
    window.findChild<QPushButton*>(QStringLiteral("pushButton_RefreshPorts"))->click();
    auto* ports = window.findChild<QComboBox*>(QStringLiteral("comboBox_Ports"));
    ports->setCurrentIndex(ports->findData(port));
    auto* scan = window.findChild<QPushButton*>(QStringLiteral("pushButton_ScanDevices"));
    const auto connection = QObject::connect(
        window.findChild<QComboBox*>(QStringLiteral("comboBox_Devices"))->model(),
        &QAbstractItemModel::rowsInserted, scan, [scan] { scan->click(); }, Qt::QueuedConnection);
    scan->click();
    QObject::disconnect(connection);
}
