#include "cursorpanel.h"

#include "fingernames.h"
#include "plottime.h"
#include "valuetext.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int Decimals = 3;        ///< of seconds
constexpr double MaxSeconds = 1e9; ///< of a recording
constexpr int VisibleRows = 4;
enum CursorColumn { First, Second, Minimum, Mean, Maximum, CursorColumnCount };
} // namespace

CursorPanel::CursorPanel(QWidget* parent)
    : QWidget(parent),
      m_note(new QLabel(this)),
      m_table(new QTableWidget(0, CursorColumnCount, this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const row = new QHBoxLayout;
    layout->addLayout(row);
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        auto* const field = new QDoubleSpinBox(this);
        field->setObjectName(QStringLiteral("doubleSpinBox_MonitorCursor%1").arg(i + 1));
        field->setDecimals(Decimals);
        field->setRange(-MaxSeconds, MaxSeconds);
        field->setSuffix(tr(" s"));
        field->setKeyboardTracking(false);
        auto* const label = new QLabel(tr("Cursor %1").arg(i + 1), this);
        label->setBuddy(field);
        field->setAccessibleName(label->text());
        connect(field, &QDoubleSpinBox::valueChanged, this, &CursorPanel::sig_timesEdited);
        row->addWidget(label);
        row->addWidget(field);
        m_fields[i] = field;
    }
    m_note->setWordWrap(true);
    m_note->setObjectName(QStringLiteral("label_MonitorCursors"));
    row->addWidget(m_note, 1);
    m_table->setObjectName(QStringLiteral("tableWidget_MonitorCursors"));
    m_table->setAccessibleName(tr("Values at the cursors and between them"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionMode(QAbstractItemView::ContiguousSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setHorizontalHeaderLabels(
        {tr("Cursor 1"), tr("Cursor 2"), tr("Minimum"), tr("Mean"), tr("Maximum")});
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    layout->addWidget(m_table);
}

void CursorPanel::setStep(std::int64_t us)
{
    for (QDoubleSpinBox* const field : m_fields)
        field->setSingleStep(std::max(PlotTime::toSeconds(us), std::pow(10.0, -Decimals)));
}

void CursorPanel::setTimes(const CursorTimes& times)
{
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const QSignalBlocker blocker(m_fields[i]);
        m_fields[i]->setValue(PlotTime::toSeconds(times[i]));
    }
}

CursorTimes CursorPanel::times() const
{
    return {PlotTime::toUs(m_fields[0]->value()), PlotTime::toUs(m_fields[1]->value())};
}

void CursorPanel::showValues(const PlotSource& source, ChannelSet channels)
{
    m_table->setRowCount(static_cast<int>(channels.count()));
    bool isExact = true;
    const std::int64_t from = std::min(times()[0], times()[1]);
    const std::int64_t to = std::max(times()[0], times()[1]);
    int row = 0;
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        if (!channels[channel])
            continue;
        const RangeStatistics range = source.statistics(channel, from, to);
        showRow(row++, source, channel, range);
        isExact = isExact && (range.isEmpty() || range.mean);
    }
    const QString distance = tr("%1 s apart").arg(PlotTime::toSeconds(to - from), 0, 'f', Decimals);
    m_note->setText(isExact ? distance
                            : distance + QLatin1Char(' ') +
                                  tr("The recording is too large for means: it is shown as minima "
                                     "and maxima of groups of samples."));
    const int rows = std::clamp(row, 1, VisibleRows);
    m_table->setFixedHeight(m_table->horizontalHeader()->sizeHint().height() +
                            rows * m_table->verticalHeader()->defaultSectionSize() +
                            2 * m_table->frameWidth());
}

void CursorPanel::showRow(int row, const PlotSource& source, std::size_t channel,
                          const RangeStatistics& range)
{
    const auto [quantity, finger] = Channel::at(channel);
    const std::array<QString, CursorColumnCount> texts{
        ValueText::extent(quantity, source.valueAt(channel, times()[0])),
        ValueText::extent(quantity, source.valueAt(channel, times()[1])),
        ValueText::value(quantity, range.min),
        range.mean ? ValueText::mean(quantity, *range.mean)
                   : ValueText::value(quantity, MissingValue),
        ValueText::value(quantity, range.max)};
    if (!m_table->verticalHeaderItem(row))
        m_table->setVerticalHeaderItem(row, new QTableWidgetItem);
    m_table->verticalHeaderItem(row)->setText(
        tr("%1, %2", "finger, quantity")
            .arg(FingerNames::shown(finger), ValueText::quantity(quantity)));
    for (int column = 0; column < CursorColumnCount; ++column) {
        if (!m_table->item(row, column)) {
            auto* const item = new QTableWidgetItem;
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_table->setItem(row, column, item);
        }
        m_table->item(row, column)->setText(texts.at(static_cast<std::size_t>(column)));
    }
}

} // namespace vanto
