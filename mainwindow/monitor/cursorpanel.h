#pragma once

#include "plotcursors.h"
#include "plotsource.h"

#include <QWidget>

class QDoubleSpinBox;
class QLabel;
class QTableWidget;

namespace vanto
{

/// The times of the two cursors, the values at them, and the minimum, mean and maximum between
/// them, all from the samples.
class CursorPanel : public QWidget
{
    Q_OBJECT
public:
    explicit CursorPanel(QWidget* parent);

    /// Arrow keys change a time by this.
    void setStep(std::int64_t us);
    void setTimes(const CursorTimes& times);
    CursorTimes times() const;
    /// Shows the values at the current times.
    void showValues(const PlotSource& source, ChannelSet channels);

signals:
    /// By the user.
    void sig_timesEdited();

private:
    void showRow(int row, const PlotSource& source, std::size_t channel,
                 const RangeStatistics& range);

    std::array<QDoubleSpinBox*, 2> m_fields{};
    QLabel* m_note;
    QTableWidget* m_table;
};

} // namespace vanto
