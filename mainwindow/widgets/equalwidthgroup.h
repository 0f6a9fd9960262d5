#pragma once

#include <QList>
#include <QObject>

class QWidget;

namespace vanto
{

/// Keeps controls equally wide, also when the font or the theme changes.
class EqualWidthGroup : public QObject
{
    Q_OBJECT
public:
    explicit EqualWidthGroup(QList<QWidget*> widgets);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void align();

    QList<QWidget*> m_widgets;
    /// Pixels. Never shrinks: a caption that is short temporarily, such as that of Scan during a
    /// scan, must not change the layout.
    int m_widest = 0;
};

} // namespace vanto
