#pragma once

#include "handtask.h"
#include "parameterset.h"

#include <QJsonObject>
#include <QJsonValue>

#include <vector>

namespace vanto
{

/// All that a hand reports about itself, apart from its parameters.
struct HandInformation {
    enum class State {
        Known,
        NotSupported, ///< the protocol or the hand has nothing of this kind
        Refused,
        NotRead
    };
    struct Entry {
        QString key;  ///< for JSON, for example "batteryVoltage" or "current.thumb"
        QString name; ///< for the user, translated
        State state = State::NotRead;
        QString text;     ///< the value for the user; if it is not known, why
        QJsonValue value; ///< null if it is not known
    };

    HandFacts facts;
    QList<Entry> entries;

    const Entry* find(const QString& key) const;
    /// Lines "name: text", for the clipboard.
    QString toText() const;
    /// Lines "key: text", English.
    QString toEnglish() const;
    /// One member for each entry, by its key; not known: null.
    QJsonObject toJson() const;
    /// Why the others are not known, English, by their keys.
    QJsonObject missingToJson() const;
};

/// Reads all that a hand reports; sends reads only.
class HandInformationReader : public HandTask
{
public:
    /// `forceSensing`: if it is not known, forces are read, and a hand without them refuses.
    explicit HandInformationReader(HandTarget target, std::optional<bool> forceSensing = {});
    ~HandInformationReader() override;

    int stepCount() const override;
    const HandInformation& information() const { return m_information; }

private:
    /// One read and the entries that it fills.
    struct Item;

    void perform(int step) override;
    void addVersions();
    void addReadings();
    void addFingerItems();
    template<class Read>
    void add(bool isSupported, QList<HandInformation::Entry> entries, Read read);

    std::optional<bool> m_forceSensing;
    HandInformation m_information;
    std::vector<Item> m_items;
};

} // namespace vanto
