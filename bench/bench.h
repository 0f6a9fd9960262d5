#pragma once

#include "handprocess.h"
#include "mainwindow.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>

#include <memory>

/// The real window with a hand open on it.
class Bench
{
public:
    explicit Bench(const QStringList& options)
    {
        if (!m_hand.start(QStringList{QStringLiteral("--node"), QStringLiteral("1")} + options))
            qFatal("%s", qPrintable(m_hand.errorText()));
        qputenv("VANTO_PORTS", m_hand.portName().toUtf8());
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        find<QPushButton>("pushButton_RefreshPorts").click();
        auto& ports = find<QComboBox>("comboBox_Ports");
        ports.setCurrentIndex(ports.findData(m_hand.portName()));
        auto& scan = find<QPushButton>("pushButton_ScanDevices");
        QObject::connect(
            find<QComboBox>("comboBox_Devices").model(), &QAbstractItemModel::rowsInserted, &scan,
            [&scan] { scan.click(); }, Qt::QueuedConnection);
        scan.click();
    }

    template<class T>
    T& find(const QString& name) const
    {
        return *m_window->findChild<T*>(name);
    }
    void showPage(int page) const { find<QTabWidget>("tabWidget").setCurrentIndex(page); }
    MainWindow& window() const { return *m_window; }
    HandProcess& hand() { return m_hand; }

private:
    HandProcess m_hand;
    std::unique_ptr<MainWindow> m_window;
};
