#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace vanto
{

class ElidedLabel;

/// A line with a text, a button and a close button. It is hidden while there is nothing to say.
class NoticeBar : public QWidget
{
    Q_OBJECT
public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows the line. A click on the button calls `action`, which hides it when it succeeds.
    void showNotice(const QString& text, const QString& button, std::function<void()> action);
    void setActionEnabled(bool enabled);

private:
    ElidedLabel* m_text;
    QPushButton* m_button;
    std::function<void()> m_action;
};

} // namespace vanto
