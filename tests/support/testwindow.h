#pragma once

#include "dialogwatch.h"
#include "windowdriver.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace vanto
{

/// The window in a test: fails on warnings of Qt and records what the window shows.
class TestWindow : public QObject, public WindowDriver
{
public:
    /// Lists `ports` after the system's and chooses the first of them.
    explicit TestWindow(const QStringList& ports = {});

    QStringList deviceTexts() const;
    /// Adds devices to the list, as if they had been found, and so opens the first.
    void list(const QStringList& deviceTexts) const;
    void scanFor(int hands) const;

    /// All texts that the status bar and the error label have shown, in order.
    QStringList shownTexts() const { return m_shown; }
    void forgetShownTexts() { m_shown.clear(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QStringList m_shown;
};

/// Adds columns of texts to a test's data, and rows, which are named by their texts.
void addTextRows(const QList<const char*>& columns, const QList<QStringList>& rows);

/// Runs `act` on each modal dialog of type Dialog as soon as it is shown, and counts.
template<class Dialog>
class DialogAnswer : public DialogWatch
{
public:
    explicit DialogAnswer(std::function<void(Dialog*)> act)
        : DialogWatch([this, act = std::move(act)](QDialog& shown) {
              const QPointer<Dialog> dialog = qobject_cast<Dialog*>(&shown);
              if (!dialog)
                  return;
              ++m_count;
              act(dialog);
              if (QTest::currentTestFailed() && dialog && dialog->isVisible())
                  dialog->reject(); // a check that failed has returned before it answered
          })
    {
    }
    int count() const { return m_count; }

private:
    int m_count = 0;
};

} // namespace vanto
