#include "parametertable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <array>

namespace vanto
{

namespace
{
/// The calibration has too many numbers for one line of the table.
QString tableText(const ParameterKey& key, const std::optional<ParameterValue>& value)
{
    if (!value)
        return {};
    QString text = ParameterValues::text(key.kind, *value);
    if (key.kind == ParameterKind::Calibration)
        text.replace(QLatin1String("; "), QLatin1String("\n"));
    return text;
}

QString onOneLine(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1String("; "));
}

/// Whether nothing that could make the row interesting has happened.
bool wasTried(const WrittenParameter& result)
{
    return result.result != WrittenParameter::Result::NotTried;
}

/// Keeps the sizes of rows and columns while it exists. Otherwise Qt measures all cells again after
/// each change of one.
class SizePause
{
public:
    explicit SizePause(const QTableWidget* table)
        : m_headers{table->horizontalHeader(), table->verticalHeader()}
    {
        setMode(QHeaderView::Fixed);
    }
    ~SizePause() { setMode(QHeaderView::ResizeToContents); }
    Q_DISABLE_COPY_MOVE(SizePause)

private:
    void setMode(QHeaderView::ResizeMode mode)
    {
        for (QHeaderView* header : m_headers)
            header->setSectionResizeMode(mode);
    }

    std::array<QHeaderView*, 2> m_headers;
};
} // namespace

ParameterTable::ParameterTable(QWidget* parent) : QTableWidget(parent)
{
    setObjectName(QStringLiteral("tableWidget_Parameters"));
    setAccessibleName(tr("Parameters"));
    setColumnCount(Result + 1);
    setHorizontalHeaderLabels(
        {tr("Parameter"), tr("Finger"), tr("In the hand"), tr("In the file"), tr("Result")});
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    verticalHeader()->hide();
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(true);
    connect(this, &QTableWidget::itemChanged, this, &ParameterTable::applyTick);
}

void ParameterTable::compare(const ParameterSet& hand, const ParameterSet& file)
{
    m_hand = hand;
    m_file = file;
    m_rows = compareParameters(hand, file);
    m_ticked.clear();
    for (const ParameterRow& row : m_rows)
        if (row.isTickedByDefault())
            m_ticked.insert(row.key);
    build();
}

void ParameterTable::replaceFile(const ParameterSet& file, const QList<std::uint8_t>& copiedFingers)
{
    m_file = file;
    m_rows = compareParameters(m_hand, file);
    for (const ParameterRow& row : m_rows) {
        const bool copied =
            isGain(row.key.kind) && row.key.finger && copiedFingers.contains(*row.key.finger);
        if (copied)
            m_results.erase(row.key);
        if (!row.canTick())
            m_ticked.erase(row.key);
        else if (copied)
            m_ticked.insert(row.key);
    }
    build();
}

bool ParameterTable::needsConsent(const ParameterKey& key) const
{
    return key.kind == ParameterKind::Calibration ||
           (describe(key.kind).belongsToOneHand() &&
            calibrationRule(m_hand.hand, m_file.hand) != CalibrationRule::SameHand);
}

/// Why the row cannot be ticked, or is not ticked by default.
QString ParameterTable::noteFor(const ParameterRow& row) const
{
    if (row.isForOtherHand && row.state == ParameterRow::State::Different)
        return tr("The file is from another hand");
    if (!row.canTick())
        return row.obstacle();
    switch (row.key.kind) {
    case ParameterKind::SelfTestLevel:
        return tr("Level 2 moves the hand when it is switched on");
    case ParameterKind::PositionLimits:
        return tr("Limits where the finger can move");
    case ParameterKind::Calibration:
        return tr("A wrong calibration drives fingers into their stops");
    default:
        return {};
    }
}

void ParameterTable::build()
{
    const int current = currentRow();
    {
        const SizePause pause(this);
        const QSignalBlocker blocker(this);
        setRowCount(0);
        m_equal.clear();
        const auto facts = compareFacts(m_hand.hand, m_file.hand);
        m_factCount = static_cast<int>(facts.size());
        for (const FactRow& fact : facts)
            addFact(fact);
        for (const ParameterRow& row : m_rows)
            addParameter(row);
    }
    updateTicks();
    updateHidden();
    setCurrentCell(current, Name);
}

void ParameterTable::addFact(const FactRow& fact)
{
    const bool isEqual = fact.inHand == fact.inFile;
    addLine({fact.name, {}, fact.inHand, fact.inFile, isEqual ? QString() : tr("Never written")},
            isEqual);
}

void ParameterTable::addParameter(const ParameterRow& row)
{
    const QString finger =
        row.key.finger ? ParameterNames::displayName(*row.key.finger) : QString();
    const auto result = m_results.find(row.key);
    const bool hasResult = result != m_results.end();
    addLine({ParameterNames::displayName(row.key.kind), finger, tableText(row.key, row.inHand),
             tableText(row.key, row.inFile), hasResult ? result->second.text() : noteFor(row)},
            row.state == ParameterRow::State::Equal && !hasResult);
}

void ParameterTable::addLine(const QStringList& texts, bool isEqual)
{
    const int line = rowCount();
    insertRow(line);
    m_equal.append(isEqual);
    for (int column = Name; column <= Result; ++column) {
        auto* item = new QTableWidgetItem(texts[column]);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        item->setToolTip(texts[column]);
        setItem(line, column, item);
    }
}

int ParameterTable::lineOf(const ParameterKey& key) const
{
    const auto found = std::ranges::find(m_rows, key, &ParameterRow::key);
    return found == m_rows.end() ? -1 : m_factCount + static_cast<int>(found - m_rows.begin());
}

/// Shows the ticks as they are.
void ParameterTable::updateTicks()
{
    {
        const SizePause pause(this);
        const QSignalBlocker blocker(this);
        for (int i = 0; i < m_rows.size(); ++i) {
            if (!m_rows[i].canTick())
                continue;
            QTableWidgetItem* box = item(m_factCount + i, Name);
            const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
            box->setFlags(m_ticksEnabled ? flags | Qt::ItemIsUserCheckable : flags);
            box->setCheckState(isTicked(m_rows[i].key) ? Qt::Checked : Qt::Unchecked);
        }
    }
    viewport()->update();
    emit sig_ticksChanged();
}

/// The user has clicked a box.
void ParameterTable::applyTick(const QTableWidgetItem* item)
{
    const int index = item->row() - m_factCount;
    if (item->column() != Name || index < 0 || !m_rows[index].canTick())
        return;
    const ParameterKey key = m_rows[index].key;
    const bool ticked = item->checkState() == Qt::Checked;
    const bool mustAsk = ticked && needsConsent(key);
    if (!ticked || !m_ticksEnabled)
        m_ticked.erase(key);
    else if (!mustAsk)
        m_ticked.insert(key);
    updateTicks();
    if (mustAsk && m_ticksEnabled)
        emit sig_consentNeeded({key});
}

void ParameterTable::setTicked(const QList<ParameterKey>& keys, bool ticked)
{
    for (const ParameterKey& key : keys) {
        const int line = lineOf(key);
        if (ticked && line >= 0 && m_rows[line - m_factCount].canTick())
            m_ticked.insert(key);
        else
            m_ticked.erase(key);
    }
    updateTicks();
}

void ParameterTable::showEqualRows(bool shown)
{
    m_showEqual = shown;
    updateHidden();
}

void ParameterTable::updateHidden()
{
    const SizePause pause(this);
    for (int line = 0; line < rowCount(); ++line)
        setRowHidden(line, m_equal[line] && !m_showEqual);
}

void ParameterTable::setTicksEnabled(bool enabled)
{
    m_ticksEnabled = enabled;
    updateTicks();
}

QList<ParameterKey> ParameterTable::tickedKeys() const
{
    return {m_ticked.begin(), m_ticked.end()};
}

bool ParameterTable::hasTickable(const Group& group) const
{
    return std::ranges::any_of(
        m_rows, [&](const ParameterRow& row) { return row.canTick() && group(row.key); });
}

Qt::CheckState ParameterTable::groupState(const Group& group) const
{
    int ticked = 0;
    int unticked = 0;
    for (const ParameterRow& row : m_rows)
        if (row.canTick() && group(row.key))
            ++(isTicked(row.key) ? ticked : unticked);
    return ticked == 0 ? Qt::Unchecked : unticked == 0 ? Qt::Checked : Qt::PartiallyChecked;
}

void ParameterTable::tickGroup(const Group& group, bool ticked)
{
    QList<ParameterKey> needed;
    for (const ParameterRow& row : m_rows) {
        if (!row.canTick() || !group(row.key) || row.key.kind == ParameterKind::Calibration)
            continue;
        if (!ticked)
            m_ticked.erase(row.key);
        else if (needsConsent(row.key))
            needed.append(row.key);
        else
            m_ticked.insert(row.key);
    }
    updateTicks();
    if (!needed.isEmpty())
        emit sig_consentNeeded(needed);
}

void ParameterTable::showResults(const QList<WrittenParameter>& results)
{
    using Outcome = WrittenParameter::Result;
    ParameterKey last;
    for (const WrittenParameter& result : results) {
        if (!wasTried(result))
            continue;
        last = result.key;
        m_results.insert_or_assign(result.key, result);
        if (result.readBack)
            m_hand.values[result.key] = *result.readBack;
        else if (result.key.kind == ParameterKind::Calibration)
            m_hand.values.erase(result.key); // it may be the old one, the new one or a mixture
        if (result.result == Outcome::Written)
            m_ticked.erase(result.key);
    }
    compareAgain();
    if (const int line = lineOf(last); line >= 0 && !m_results.empty())
        scrollToItem(item(line, Name));
}

void ParameterTable::showInHand(const std::map<ParameterKey, ParameterValue>& values)
{
    for (const auto& [key, value] : values)
        m_hand.values[key] = value;
    compareAgain();
}

void ParameterTable::compareAgain()
{
    m_rows = compareParameters(m_hand, m_file);
    std::erase_if(m_ticked, [this](const ParameterKey& key) {
        const int line = lineOf(key);
        return line < 0 || !m_rows[line - m_factCount].canTick();
    });
    build();
}

QString ParameterTable::toText() const
{
    QStringList lines;
    QStringList header;
    for (int column = Name; column <= Result; ++column)
        header.append(horizontalHeaderItem(column)->text());
    lines.append(header.join(QLatin1Char('\t')));
    for (int line = 0; line < rowCount(); ++line) {
        if (isRowHidden(line))
            continue;
        QStringList texts;
        for (int column = Name; column <= Result; ++column)
            texts.append(onOneLine(item(line, column)->text()));
        lines.append(texts.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

/// Space ticks the current row, whichever column is current.
void ParameterTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || !currentItem()) {
        QTableWidget::keyPressEvent(event);
        return;
    }
    QTableWidgetItem* box = item(currentRow(), Name);
    if (box->flags().testFlag(Qt::ItemIsUserCheckable))
        box->setCheckState(box->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

} // namespace vanto
