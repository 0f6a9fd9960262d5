#pragma once

#include <QLineEdit>

namespace vanto
{

/// A field for one number: right-aligned and just wide enough for the longest value of any
/// quantity, whatever font and style are in force.
class NumberField : public QLineEdit
{
    Q_OBJECT
public:
    explicit NumberField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace vanto
