#pragma once

#include <QLabel>

namespace vanto
{

/// One line of text that is shortened with an ellipsis where there is no room for it. text()
/// stays whole and is also the tool tip. The label never widens its window.
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
