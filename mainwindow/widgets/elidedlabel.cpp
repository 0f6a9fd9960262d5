#include "elidedlabel.h"

#include <QPainter>
#include <QStyle>

namespace vanto
{

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
}

void ElidedLabel::setText(const QString& text)
{
    QLabel::setText(text);
    setToolTip(text);
}

QSize ElidedLabel::sizeHint() const
{
    if (text().isEmpty())
        return minimumSizeHint();
    const int padding = 2 * fontMetrics().averageCharWidth();
    return {fontMetrics().horizontalAdvance(text()) + padding, QLabel::minimumSizeHint().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft, shown);
}

} // namespace vanto
