#pragma once

#include "sample.h"

#include <QColor>
#include <QTableWidget>

#include <functional>

namespace vanto
{

/// The latest values: a row for each finger, a column for each sampled quantity.
class ValueTable : public QTableWidget
{
    Q_OBJECT
public:
    explicit ValueTable(QWidget* parent);

    void setChannels(ChannelSet channels);
    /// A value that is missing is shown as a dash.
    void showSample(const Sample& sample);
    /// Before there is a sample of the open hand.
    void clearValues();
    /// Marks the rows with the colors of the plot.
    void setColors(const std::function<QColor(std::size_t finger)>& colorOf);

private:
    QTableWidgetItem* itemOf(const Channel& channel) const;
    static int columnOf(Quantity quantity) { return static_cast<int>(quantity); }
};

} // namespace vanto
