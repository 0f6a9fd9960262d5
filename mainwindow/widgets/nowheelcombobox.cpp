#include "nowheelcombobox.h"

#include <QHelpEvent>
#include <QStylePainter>
#include <QToolTip>
#include <QWheelEvent>

namespace vanto
{

NoWheelComboBox::NoWheelComboBox(QWidget* parent) : QComboBox(parent) {}

bool NoWheelComboBox::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QComboBox::event(event);
    QString text = currentText();
    const QString more = currentData(Qt::ToolTipRole).toString();
    if (!more.isEmpty())
        text += QLatin1Char('\n') + more;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, this);
    return true;
}

void NoWheelComboBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect textRect =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText =
        option.fontMetrics.elidedText(option.currentText, Qt::ElideMiddle, textRect.width());
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void NoWheelComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace vanto
