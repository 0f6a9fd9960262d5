#pragma once

#include <QHeaderView>

#include <functional>

namespace vanto
{

/// The numbers of the steps, left of their rows, with a tool tip for each. A click with Shift or
/// Ctrl does not select the row; it is reported instead.
class StepHeader : public QHeaderView
{
    Q_OBJECT
public:
    explicit StepHeader(QWidget* parent = nullptr);

    /// Called for the row under the mouse only, as a sequence can have very many.
    void setToolTips(std::function<QString(int row)> toolTips) { m_toolTips = std::move(toolTips); }

signals:
    void sig_extended(int row, Qt::KeyboardModifiers modifiers);

protected:
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    std::function<QString(int row)> m_toolTips;
};

} // namespace vanto
