#include "valuetable.h"

#include "fingernames.h"
#include "valuetext.h"

#include <QHeaderView>

namespace vanto
{

namespace
{
constexpr int ColumnCount = 4;
} // namespace

ValueTable::ValueTable(QWidget* parent) : QTableWidget(int{FingerCount}, ColumnCount, parent)
{
    setObjectName(QStringLiteral("tableWidget_Monitor"));
    setAccessibleName(tr("Measured values"));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setSizeAdjustPolicy(AdjustToContents);
    setHorizontalHeaderLabels({tr("Current (mA)"), tr("Position"), tr("Angle (°)"), tr("Force")});
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        const int row = static_cast<int>(finger);
        setVerticalHeaderItem(row, new QTableWidgetItem(FingerNames::shown(finger)));
        for (int column = 0; column < ColumnCount; ++column) {
            auto* const item = new QTableWidgetItem;
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            setItem(row, column, item);
        }
    }
}

QTableWidgetItem* ValueTable::itemOf(const Channel& channel) const
{
    return item(channel.finger, columnOf(channel.quantity));
}

void ValueTable::setChannels(ChannelSet channels)
{
    for (const Quantity quantity :
         {Quantity::Current, Quantity::Position, Quantity::Angle, Quantity::Force})
        setColumnHidden(columnOf(quantity), (channels & channelsOf(quantity)).none());
}

void ValueTable::showSample(const Sample& sample)
{
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        const Channel channel = Channel::at(index);
        itemOf(channel)->setText(ValueText::value(channel.quantity, sample.values[index]));
    }
}

void ValueTable::clearValues()
{
    for (std::size_t index = 0; index < ChannelCount; ++index)
        itemOf(Channel::at(index))->setText({});
}

void ValueTable::setColors(const std::function<QColor(std::size_t)>& colorOf)
{
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        verticalHeaderItem(static_cast<int>(finger))
            ->setIcon(FingerNames::colorMark(colorOf(finger)));
}

} // namespace vanto
