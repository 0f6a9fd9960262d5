#pragma once

#include "handtest.h"
#include "parametersdialog.h"

#include <QFileDialog>
#include <QJsonObject>
#include <QTableWidget>

namespace vanto
{

/// The command that reads what a command of SerialCtrl writes.
inline const QMap<int, int> ReadOfWrite{{0x44, 0x03}, {0x45, 0x04}, {0x46, 0x05}, {0x47, 0x07},
                                        {0x48, 0x09}, {0x60, 0x20}, {0x61, 0x21}};

/// Base class of tests that save, compare and restore the parameters of hand 2 in the window.
class ParameterTest : public HandTest
{
    Q_OBJECT
protected:
    using Act = std::function<void(ParametersDialog*)>;

    static QList<int> writeCommands() { return ReadOfWrite.keys(); }
    static QJsonObject contentOf(const QString& path);
    /// What the dialog says below the table.
    static QString stateOf(const ParametersDialog* dialog);
    static QTableWidget* tableOf(const ParametersDialog* dialog);
    /// The row of a parameter, -1 if there is none.
    static int rowOf(const QTableWidget* table, const QString& name, const QString& finger = {});
    static bool isTicked(const QTableWidget* table, int row);

    /// Gives every parameter another value.
    void changeAll() const;
    void saveTo(const QString& path);
    void compare(const QString& path, Act act);
    /// Clicks Restore and waits for its end.
    void restore(ParametersDialog* dialog) const;
    /// Answers the dialogs of an action; `act` uses the comparison, which must then be shown.
    void trigger(const QString& action, const QString& path, Act act = {});

    QStringList m_boxes;      ///< texts of the message boxes
    int m_acceptedBoxes = 10; ///< the others are answered with No
};

} // namespace vanto
