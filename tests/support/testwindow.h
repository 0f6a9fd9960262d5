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

/// Drives the window in a test. Records the texts that the window shows; a warning of Qt fails the
/// test.
class TestWindow : public QObject, public WindowDriver
{
public:
    /// Lists `ports` after those of the system and selects the first of them.
    explicit TestWindow(const QStringList& ports = {});

    QStringList deviceTexts() const;
    /// Adds devices to the list as a scan does, which opens the first.
    void list(const QStringList& deviceTexts) const;
    void scanFor(int hands) const;

    /// All texts that the status bar and the error label have shown, in order.
    QStringList shownTexts() const { return m_shown; }
    void clearShownTexts() { m_shown.clear(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QStringList m_shown;
};

/// The style sheet of a theme; empty if the theme does not exist.
QString styleSheetOf(const QString& theme);

/// Adds a column to the data of a test, and the names of its two rows.
void addBoolRows(const char* column, const char* whenTrue, const char* whenFalse);

/// Adds columns of texts to the data of a test, and rows named after their texts.
void addTextRows(const QList<const char*>& columns, const QList<QStringList>& rows);

/// Runs `act` on each modal dialog of type Dialog as soon as it is shown, and counts them.
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
                  dialog->reject(); // a failed check has returned from `act` early
          })
    {
    }
    int count() const { return m_count; }

private:
    int m_count = 0;
};

} // namespace vanto
