#include "noticebar.h"

#include "elidedlabel.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace vanto
{

NoticeBar::NoticeBar(QWidget* parent)
    : QWidget(parent), m_text(new ElidedLabel(this)), m_button(new QPushButton(this))
{
    auto* close = new QToolButton(this);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Close"));
    close->setAccessibleName(tr("Close the notice"));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::TabFocus);
    m_text->setObjectName(QStringLiteral("label_Notice"));
    m_button->setObjectName(QStringLiteral("pushButton_Notice"));
    m_button->setText(tr("Show"));
    m_button->setFocusPolicy(Qt::TabFocus);
    close->setObjectName(QStringLiteral("toolButton_NoticeClose"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text);
    layout->addWidget(m_button);
    layout->addStretch();
    layout->addWidget(close);
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    connect(m_button, &QPushButton::clicked, this, [this] {
        const auto action = m_action; // it may show another notice
        action();
    });
    hide();
}

void NoticeBar::setActionEnabled(bool enabled)
{
    m_button->setEnabled(enabled);
}

void NoticeBar::showNotice(const QString& text, const QString& button, std::function<void()> action)
{
    m_text->setText(text);
    m_text->setAccessibleName(text);
    m_button->setText(button);
    m_action = std::move(action);
    show();
}

} // namespace vanto
