#include "windowdriver.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>

namespace vanto
{

WindowDriver::WindowDriver(const QStringList& ports, void (*beforeShown)())
{
    qputenv("VANTO_PORTS", ports.join(QLatin1Char(':')).toUtf8());
    // Beside setting.ini, not among the files of the user who runs this.
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(QDir::currentPath()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::currentPath()));
    m_window = std::make_unique<MainWindow>();
    if (beforeShown)
        beforeShown();
    m_window->show();
}

void WindowDriver::click(const QString& button) const
{
    // Unlike QPushButton::click(), the mouse also moves the focus.
    auto* target = find<QPushButton>(button);
    const QPointF place = target->rect().center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, target->mapToGlobal(place), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }
}

void WindowDriver::trigger(const QString& action) const
{
    find<QAction>(action)->trigger();
}

void WindowDriver::setField(const QString& lineEdit, const QString& text) const
{
    find<QLineEdit>(lineEdit)->setText(text);
}

void WindowDriver::showPage(int page) const
{
    find<QTabWidget>(QStringLiteral("tabWidget"))->setCurrentIndex(page);
}

QString WindowDriver::field(const QString& lineEdit) const
{
    return find<QLineEdit>(lineEdit)->text();
}

QString WindowDriver::statusText() const
{
    return m_window->statusBar()->currentMessage();
}

QString WindowDriver::errorText() const
{
    return find<QLabel>(QStringLiteral("label_StatusError"))->text();
}

void WindowDriver::choosePort(const QString& name) const
{
    ports()->setCurrentIndex(ports()->findData(name));
}

void WindowDriver::scan(int hands, const std::function<void()>& listed) const
{
    const QString button = QStringLiteral("pushButton_ScanDevices");
    const auto stopWhenListed = [&] {
        if (devices()->count() != hands)
            return;
        if (listed)
            listed();
        click(button);
    };
    // Queued, as the entry is incomplete during the signal. The click on Scan returns after Stop.
    const auto connection = QObject::connect(devices()->model(), &QAbstractItemModel::rowsInserted,
                                             m_window.get(), stopWhenListed, Qt::QueuedConnection);
    click(button);
    QObject::disconnect(connection);
}

void WindowDriver::openHand(const QString& port) const
{
    click(QStringLiteral("pushButton_RefreshPorts"));
    choosePort(port);
    scan();
}

} // namespace vanto
