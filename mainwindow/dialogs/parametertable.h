#pragma once

#include "parametercomparison.h"
#include "parameterwriter.h"

#include <QTableWidget>

#include <map>
#include <set>

namespace vanto
{

/// The parameters of a hand and of a file side by side, with a tick for each that is to be
/// restored. What only describes the hands is listed first and cannot be ticked.
class ParameterTable : public QTableWidget
{
    Q_OBJECT
public:
    explicit ParameterTable(QWidget* parent);

    /// Compares and ticks what is ticked by default.
    void compare(const ParameterSet& hand, const ParameterSet& file);
    /// Compares again after the gains of some fingers have been replaced, and ticks those that
    /// differ. All other ticks stay.
    void replaceFile(const ParameterSet& file, const QList<std::uint8_t>& copiedFingers);
    void showEqualRows(bool shown);
    /// Nothing can be ticked while values are written.
    void setTicksEnabled(bool enabled);

    QList<ParameterKey> tickedKeys() const;
    bool isTicked(const ParameterKey& key) const { return m_ticked.contains(key); }
    /// The state of all rows in a group that a user can tick together. The calibration has only its
    /// own tick and is in none.
    using Group = std::function<bool(const ParameterKey&)>;
    Qt::CheckState groupState(const Group& group) const;
    bool hasTickable(const Group& group) const;
    void tickGroup(const Group& group, bool ticked);
    void setTicked(const QList<ParameterKey>& keys, bool ticked);

    /// Marks the rows; what has been written is no longer ticked.
    void showResults(const QList<WrittenParameter>& results);
    /// Shows what the hand has now, which may have changed with another parameter.
    void showInHand(const std::map<ParameterKey, ParameterValue>& values);
    /// The rows that are shown as lines of text, columns separated by tabs.
    QString toText() const;

signals:
    void sig_ticksChanged();
    /// The user wants to tick what can damage the hand if it comes from another: the calibration,
    /// or position limits if it is not known which hand the file is from. It stays unticked until
    /// setTicked().
    void sig_consentNeeded(const QList<ParameterKey>& keys);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Column { Name, Finger, InHand, InFile, Result };

    void compareAgain();
    void build();
    void addFact(const FactRow& fact);
    void addParameter(const ParameterRow& row);
    void addLine(const QStringList& texts, bool isEqual);
    bool needsConsent(const ParameterKey& key) const;
    QString noteFor(const ParameterRow& row) const;
    int lineOf(const ParameterKey& key) const;
    void applyTick(const QTableWidgetItem* item);
    void updateTicks();
    void updateHidden();

    ParameterSet m_hand;
    ParameterSet m_file;
    QList<ParameterRow> m_rows; ///< below the facts
    QList<bool> m_equal;        ///< of all lines
    int m_factCount = 0;
    std::set<ParameterKey> m_ticked;
    std::map<ParameterKey, WrittenParameter> m_results;
    bool m_showEqual = false;
    bool m_ticksEnabled = true;
};

} // namespace vanto
