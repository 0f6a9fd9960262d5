#include "numberfield.h"

namespace vanto
{

namespace
{
constexpr QLatin1String LongestValue("-327.68");
constexpr int DefaultWidthInX = 17; ///< number of "x" that the size hint of QLineEdit is based on
} // namespace

NumberField::NumberField(QWidget* parent) : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

QSize NumberField::sizeHint() const
{
    QSize hint = QLineEdit::sizeHint();
    const QFontMetrics metrics = fontMetrics();
    hint.rwidth() += metrics.horizontalAdvance(LongestValue) -
                     DefaultWidthInX * metrics.horizontalAdvance(QLatin1Char('x'));
    return hint;
}

} // namespace vanto
