#include "fingerlegend.h"

#include "elidedlabel.h"
#include "fingernames.h"
#include "valuetext.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QMouseEvent>

namespace vanto
{

namespace
{
constexpr int Columns = 3;
} // namespace

FingerLegend::FingerLegend(QWidget* parent) : QWidget(parent)
{
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(0);
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        const QString name = FingerNames::shown(finger);
        auto* const box = new QCheckBox(name, this);
        box->setObjectName(QStringLiteral("checkBox_MonitorFinger%1").arg(finger));
        box->setToolTip(tr("Shows the lines of this finger"));
        box->setChecked(true);
        connect(box, &QCheckBox::toggled, this,
                [this, finger](bool shown) { emit sig_toggled(finger, shown); });
        auto* const values = new ElidedLabel(this);
        values->setObjectName(QStringLiteral("label_MonitorFinger%1").arg(finger));
        values->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        values->installEventFilter(this);
        const int row = static_cast<int>(finger) / Columns;
        const int column = static_cast<int>(finger) % Columns * 2;
        layout->addWidget(box, row, column);
        layout->addWidget(values, row, column + 1);
        layout->setColumnStretch(column + 1, 1);
        m_boxes[finger] = box;
        m_values[finger] = values;
    }
}

void FingerLegend::setColors(const std::function<QColor(std::size_t)>& colorOf)
{
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        m_boxes[finger]->setIcon(FingerNames::colorMark(colorOf(finger)));
}

void FingerLegend::showSample(const Sample& sample, ChannelSet channels)
{
    PerFinger<QStringList> texts;
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        const Channel channel = Channel::at(index);
        if (channels[index])
            texts[channel.finger].append(ValueText::value(channel.quantity, sample.values[index]));
    }
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        m_values[finger]->setText(texts[finger].join(QStringLiteral("  ")));
}

bool FingerLegend::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease ||
        static_cast<const QMouseEvent*>(event)->button() != Qt::LeftButton)
        return QWidget::eventFilter(watched, event);
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        if (m_values[finger] == watched)
            m_boxes[finger]->click();
    }
    return true;
}

} // namespace vanto
