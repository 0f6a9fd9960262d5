#pragma once

#include <QLabel>

namespace vanto
{

/// A single-line label that elides text that does not fit. text() returns the full text, which is
/// also the tool tip. The label never widens its window.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setText(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vanto
