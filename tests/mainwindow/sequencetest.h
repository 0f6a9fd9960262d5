#pragma once

#include "handtest.h"
#include "sequenceeditor.h"

#include <QLabel>
#include <QTableWidget>

namespace vanto
{

inline constexpr int DraftMs = 20'000; ///< until a draft is on disk, on a busy machine
inline constexpr const char* ThreeSteps = R"({"version":1,"position_type":"position","sequences":[
 {"delay":1,"position":[1000,2000,3000,4000,5000,6000],"speed":[255,254,253,252,251,250]},
 {"delay":2,"position":[10,20,30,40,50,60],"speed":[1,2,3,4,5,255]},
 {"delay":3,"position":[7,7,7,7,7,7],"speed":[9,9,9,9,9,9]}]})";
/// They send nothing to a hand.
inline const QStringList DataActions{
    "action_Undo",           "action_Redo",         "action_Cut_Steps",
    "action_Copy_Steps",     "action_Paste_Steps",  "action_Delete_Step",
    "action_Duplicate_Step", "action_Move_Step_Up", "action_Move_Step_Down"};

/// Base class of tests of the Sequence page. Unless they have an init() of their own, each starts
/// with three steps.
class SequenceTest : public HandTest
{
    Q_OBJECT
protected slots:
    void init() { start(); }
    void cleanup() { close(); }

protected:
    /// Opens a window that offers this number of drafts.
    void start(int drafts = 0);
    QTableWidget* table() const { return m_tool->find<QTableWidget>("tableWidget_Seq"); }
    QAction* action(const QString& name) const { return m_tool->find<QAction>(name); }
    SequenceEditor* editor() const { return m_tool->window()->findChild<SequenceEditor*>(); }
    QByteArray json() const { return editor()->data().toJSON(); }
    /// The delays stand for the steps.
    QString delays() const;
    QStringList motions() const { return frames({0x4B, 0x4C, 0x4D, 0x4F, 0x50, 0x51}); }
    /// "01|1" if the first two rows are selected and the second is current.
    QString selected() const;
    QString line() const { return m_tool->find<QLabel>("label_SeqStep")->text(); }
    void load(const QByteArray& json, const QString& name = "given.json") const;
    void select(int row) const;
    void choose(const char* button, const QString& file) const;
    void clickRow(int row, Qt::KeyboardModifiers modifiers = {}) const;
};

} // namespace vanto
