#pragma once

#include <QLineEdit>

namespace vanto
{

/// A right-aligned field for one number, just wide enough for the longest value of any quantity in
/// the current font and style.
class NumberField : public QLineEdit
{
    Q_OBJECT
public:
    explicit NumberField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace vanto
