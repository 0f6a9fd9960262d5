#pragma once

#include "mainwindow.h"
#include "pageindex.h"

#include <QComboBox>
#include <QStringList>

#include <functional>
#include <memory>

namespace vanto
{

/// Operates the real window through its widgets, as a user does.
class WindowDriver
{
public:
    /// Shows the window, which lists `ports` after those of the system. Calls `beforeShown` first.
    explicit WindowDriver(const QStringList& ports = {}, void (*beforeShown)() = nullptr);

    /// Returns the widget, action or timer of this name, which must exist.
    template<class T>
    T* find(const QString& name) const
    {
        T* object = m_window->findChild<T*>(name);
        if (!object)
            qFatal("the window has no %s", qPrintable(name));
        return object;
    }

    MainWindow* window() const { return m_window.get(); }
    void click(const QString& button) const;
    void trigger(const QString& action) const;
    void setField(const QString& lineEdit, const QString& text) const;
    void showPage(int page) const;
    QString field(const QString& lineEdit) const;
    bool enabled(const QString& widget) const { return find<QWidget>(widget)->isEnabled(); }
    QString statusText() const;
    QString errorText() const;
    QComboBox* ports() const { return find<QComboBox>(QStringLiteral("comboBox_Ports")); }
    QComboBox* devices() const { return find<QComboBox>(QStringLiteral("comboBox_Devices")); }

    /// Selects no port if this one is not listed.
    void choosePort(const QString& name) const;
    /// Clicks Scan, and Stop once `hands` are listed; returns when the first hand is open. Calls
    /// `listed` before it clicks Stop.
    void scan(int hands = 1, const std::function<void()>& listed = {}) const;
    /// Refreshes the ports, selects `port` and opens the first hand found by a scan.
    void openHand(const QString& port) const;

private:
    std::unique_ptr<MainWindow> m_window;
};

} // namespace vanto
