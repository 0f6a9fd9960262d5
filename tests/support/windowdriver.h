#pragma once

#include "mainwindow.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

/// The real window, driven by its widgets as a person would.
class WindowDriver : public QObject
{
public:
    /// Shows the window with `ports` listed after the system's.
    explicit WindowDriver(const QStringList& ports = {});
    ~WindowDriver() override;

    template<class T>
    T* find(const char* name) const
    {
        T* widget = m_window->findChild<T*>(QLatin1String(name));
        if (!widget)
            qFatal("no widget %s", name);
        return widget;
    }

    MainWindow* window() const { return m_window.get(); }
    void click(const char* button) const;
    void trigger(const char* action) const;
    QString field(const char* lineEdit) const { return find<QLineEdit>(lineEdit)->text(); }
    bool enabled(const char* widget) const { return find<QWidget>(widget)->isEnabled(); }
    QComboBox* devices() const { return find<QComboBox>("comboBox_Devices"); }
    QStringList deviceTexts() const;
    QString statusText() const;
    QString errorText() const;

    void choosePort(const QString& name) const;
    /// Adds devices to the list, as if they had been found, and so opens the first.
    void list(const QStringList& deviceTexts) const;
    /// Clicks Scan and, once `hands` are listed, Stop; returns when the first hand is open.
    void scanFor(int hands) const;

    /// All texts that the status bar and the error label have shown, in order.
    QStringList shownTexts() const { return m_shown; }
    void forgetShownTexts() { m_shown.clear(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<MainWindow> m_window;
    QStringList m_shown;
};

/// Adds columns of texts to a test's data, and rows, which are named by their texts.
void addTextRows(const QList<const char*>& columns, const QList<QStringList>& rows);

/// Runs `act` on the next modal dialog of type Dialog as soon as it is shown, and counts.
template<class Dialog>
class DialogAnswer : public QObject
{
public:
    explicit DialogAnswer(std::function<void(Dialog*)> act) : m_act(std::move(act))
    {
        startTimer(5);
    }
    int count() const { return m_count; }

protected:
    void timerEvent(QTimerEvent*) override
    {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == m_last)
            return;
        m_last = dialog;
        ++m_count;
        m_act(dialog);
        if (QTest::currentTestFailed() && m_last && m_last->isVisible())
            m_last->reject(); // a check that failed has returned before it answered
    }

private:
    std::function<void(Dialog*)> m_act;
    QPointer<Dialog> m_last;
    int m_count = 0;
};
