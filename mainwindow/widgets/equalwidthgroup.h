#pragma once

#include <QList>
#include <QObject>

class QWidget;

namespace vanto
{

/// Keeps controls of one kind equally wide, also when font or theme change.
class EqualWidthGroup : public QObject
{
    Q_OBJECT
public:
    explicit EqualWidthGroup(QList<QWidget*> widgets);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void align();

    QList<QWidget*> m_widgets;
    /// Pixels. It never shrinks: a caption that is short for a while, as that of Scan during a
    /// scan, must not make the others narrow, nor the row jump.
    int m_widest = 0;
};

} // namespace vanto
