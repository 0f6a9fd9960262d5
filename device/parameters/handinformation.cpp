#include "handinformation.h"

#include <QCoreApplication>

#include <algorithm>
#include <span>

namespace vanto
{

namespace
{
using Entry = HandInformation::Entry;
using Entries = std::span<Entry>;
using EntryState = HandInformation::State;

constexpr std::uint8_t NoThumbRootPreset = 255;

QString translated(const char* english)
{
    return QCoreApplication::translate("HandInformation", english);
}

/// Why a value is not known, English.
const char* stateText(EntryState state)
{
    switch (state) {
    case EntryState::NotSupported:
        return QT_TRANSLATE_NOOP("HandInformation", "not supported");
    case EntryState::Refused:
        return QT_TRANSLATE_NOOP("HandInformation", "refused");
    case EntryState::NotRead:
        return QT_TRANSLATE_NOOP("HandInformation", "not read");
    case EntryState::Known:
        break;
    }
    return "";
}

void setState(Entry& entry, EntryState state)
{
    entry.state = state;
    entry.text = translated(stateText(state));
}

void setText(Entry& entry, const QString& text)
{
    entry.state = EntryState::Known;
    entry.text = text;
    entry.value = text;
}

template<class Number>
void setNumber(Entry& entry, Number number)
{
    setText(entry, QString::number(number));
    entry.value = double(number);
}

Entry namedEntry(const char* key, const char* name)
{
    return {QString::fromLatin1(key), translated(name), EntryState::NotRead, {}, {}};
}

Entry fingerEntry(const char* key, const char* name, std::uint8_t finger)
{
    return {QString::fromLatin1(key) + QLatin1Char('.') + ParameterNames::finger(finger),
            translated(name) + QStringLiteral(", ") + ParameterNames::displayName(finger),
            EntryState::NotRead,
            {},
            {}};
}

/// A read of a target and an actual value of one finger.
template<auto Operation, class Number>
std::uint8_t readTwo(HandCall& call, std::uint8_t finger, Entries entries)
{
    Number target = 0;
    Number actual = 0;
    const std::uint8_t result = call.attempt<Operation>(finger, &target, &actual);
    if (result == ResultCode::Success) {
        setNumber(entries[0], actual);
        setNumber(entries[1], target);
    }
    return result;
}

std::uint8_t readUsage(HandCall& call, Entries entries)
{
    std::uint32_t total = 0;
    PerFinger<std::uint32_t> fingers{};
    const std::uint8_t result = call.attempt<&VantoProtocol::getUsageStat>(
        &total, fingers.data(), std::uint8_t{FingerCount});
    if (result != ResultCode::Success)
        return result;
    setNumber(entries[0], total);
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        setNumber(entries[1 + finger], fingers[finger]);
    return result;
}

/// The value is English, as all of a report is.
void setNoPreset(Entry& entry)
{
    constexpr const char* none = QT_TRANSLATE_NOOP("HandInformation", "none");
    setText(entry, QString::fromLatin1(none));
    entry.text = translated(none);
}

std::uint8_t readThumbRoot(HandCall& call, Entries entries)
{
    std::uint16_t position = 0;
    std::uint8_t preset = NoThumbRootPreset;
    const std::uint8_t result = call.attempt<&VantoProtocol::getThumbRootPos>(&position, &preset);
    if (result != ResultCode::Success)
        return result;
    setNumber(entries[0], position);
    if (preset == NoThumbRootPreset)
        setNoPreset(entries[1]);
    else
        setNumber(entries[1], preset);
    return result;
}
} // namespace

const HandInformation::Entry* HandInformation::find(const QString& key) const
{
    const auto found = std::ranges::find(entries, key, &Entry::key);
    return found != entries.end() ? &*found : nullptr;
}

QString HandInformation::toText() const
{
    QString text;
    for (const Entry& entry : entries)
        text += entry.name + QStringLiteral(": ") + entry.text + QLatin1Char('\n');
    return text;
}

QString HandInformation::toEnglish() const
{
    QString text;
    for (const Entry& entry : entries)
        text += entry.key + QStringLiteral(": ") +
                (entry.state == State::Known ? entry.value.toVariant().toString()
                                             : QString::fromLatin1(stateText(entry.state))) +
                QLatin1Char('\n');
    return text;
}

QJsonObject HandInformation::toJson() const
{
    QJsonObject object;
    for (const Entry& entry : entries)
        object.insert(entry.key, entry.value);
    return object;
}

QJsonObject HandInformation::missingToJson() const
{
    QJsonObject object;
    for (const Entry& entry : entries)
        if (entry.state != State::Known)
            object.insert(entry.key, QString::fromLatin1(stateText(entry.state)));
    return object;
}

struct HandInformationReader::Item {
    bool isSupported;
    qsizetype first; ///< of its entries
    qsizetype count;
    std::function<std::uint8_t(HandCall&, Entries)> read;
};

HandInformationReader::HandInformationReader(HandTarget target, std::optional<bool> forceSensing)
    : HandTask(std::move(target), TimeoutsInARow), m_forceSensing(forceSensing)
{
    HandFacts& facts = m_information.facts;
    facts.node = this->target().node;
    facts.protocolType = this->target().adapter->protocolType();
    Entry node = namedEntry("node", QT_TRANSLATE_NOOP("HandInformation", "Node id"));
    setNumber(node, *facts.node);
    Entry protocol = namedEntry("protocol", QT_TRANSLATE_NOOP("HandInformation", "Protocol"));
    setText(protocol, facts.protocolName());
    m_information.entries = {node, protocol};
    addVersions();
    addReadings();
    addFingerItems();
}

HandInformationReader::~HandInformationReader() = default;

int HandInformationReader::stepCount() const
{
    return static_cast<int>(m_items.size());
}

template<class Read>
void HandInformationReader::add(bool isSupported, QList<HandInformation::Entry> entries, Read read)
{
    m_items.push_back({isSupported, m_information.entries.size(), entries.size(), read});
    for (Entry& entry : entries) {
        setState(entry, isSupported ? EntryState::NotRead : EntryState::NotSupported);
        m_information.entries.append(entry);
    }
}

void HandInformationReader::addVersions()
{
    HandFacts& facts = m_information.facts;
    add(true,
        {namedEntry("protocolVersion", QT_TRANSLATE_NOOP("HandInformation", "Protocol version"))},
        [&facts](HandCall& call, Entries entries) {
            HandIdentity::Protocol p;
            const auto result =
                call.attempt<&VantoProtocol::getProtocolVersion>(&p.major, &p.minor);
            if (result == ResultCode::Success) {
                facts.protocol = p;
                setText(entries[0], facts.protocolVersion());
            }
            return result;
        });
    add(true, {namedEntry("firmware", QT_TRANSLATE_NOOP("HandInformation", "Firmware version"))},
        [&facts](HandCall& call, Entries entries) {
            HandIdentity::Firmware f;
            const auto result =
                call.attempt<&VantoProtocol::getFirmwareVersion>(&f.major, &f.minor, &f.revision);
            if (result == ResultCode::Success) {
                facts.firmware = f;
                setText(entries[0], facts.firmwareText());
            }
            return result;
        });
    add(true,
        {namedEntry("hardware", QT_TRANSLATE_NOOP("HandInformation", "Hardware type")),
         namedEntry("bootLoader", QT_TRANSLATE_NOOP("HandInformation", "Boot loader"))},
        [&facts](HandCall& call, Entries entries) {
            HandIdentity::Hardware h;
            const auto result = call.attempt<&VantoProtocol::getHardwareVersion>(
                &h.type, &h.version, &h.bootLoader);
            if (result == ResultCode::Success) {
                facts.hardware = h;
                setText(entries[0], facts.hardwareText());
                if (h.bootLoader == 0)
                    setState(entries[1], EntryState::NotSupported);
                else
                    setText(entries[1], facts.bootLoaderText());
            }
            return result;
        });
}

void HandInformationReader::addReadings()
{
    HandFacts& facts = m_information.facts;
    const bool isSerialCtrl = facts.protocolType == PROTOCOL_TYPE_SERIALCTRL;
    add(isSerialCtrl, {namedEntry("uid", QT_TRANSLATE_NOOP("HandInformation", "UID"))},
        [&facts](HandCall& call, Entries entries) {
            HandFacts::Uid u{};
            const auto result = call.attempt<&VantoProtocol::getUID>(&u[0], &u[1], &u[2]);
            if (result == ResultCode::Success) {
                facts.uid = u;
                setText(entries[0], facts.uidText());
            }
            return result;
        });
    add(true,
        {namedEntry("batteryVoltage", QT_TRANSLATE_NOOP("HandInformation", "Battery voltage"))},
        [](HandCall& call, Entries entries) {
            std::uint16_t voltage = 0;
            const auto result = call.attempt<&VantoProtocol::getBatteryVoltage>(&voltage);
            if (result == ResultCode::Success)
                setNumber(entries[0], voltage);
            return result;
        });
    add(true, {namedEntry("buttonCount", QT_TRANSLATE_NOOP("HandInformation", "Button count"))},
        [](HandCall& call, Entries entries) {
            std::uint8_t count = 0;
            const auto result = call.attempt<&VantoProtocol::getButtonPressedCnt>(&count);
            if (result == ResultCode::Success)
                setNumber(entries[0], count);
            return result;
        });
    QList<Entry> usage{
        namedEntry("usage.total", QT_TRANSLATE_NOOP("HandInformation", "Usage, total"))};
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger)
        usage.append(fingerEntry("usage", QT_TRANSLATE_NOOP("HandInformation", "Usage"), finger));
    add(isSerialCtrl, usage, readUsage);
    add(true,
        {namedEntry("thumbRootPosition",
                    QT_TRANSLATE_NOOP("HandInformation", "Thumb root, raw position")),
         namedEntry("thumbRootPreset", QT_TRANSLATE_NOOP("HandInformation", "Thumb root, preset"))},
        readThumbRoot);
}

void HandInformationReader::addFingerItems()
{
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        add(true,
            {fingerEntry("position", QT_TRANSLATE_NOOP("HandInformation", "Position"), finger),
             fingerEntry("targetPosition", QT_TRANSLATE_NOOP("HandInformation", "Target position"),
                         finger)},
            [finger](HandCall& call, Entries entries) {
                return readTwo<&VantoProtocol::getFingerPos, std::uint16_t>(call, finger, entries);
            });
        add(true,
            {fingerEntry("angle", QT_TRANSLATE_NOOP("HandInformation", "Angle (0.01\u00b0)"),
                         finger),
             fingerEntry("targetAngle",
                         QT_TRANSLATE_NOOP("HandInformation", "Target angle (0.01\u00b0)"),
                         finger)},
            [finger](HandCall& call, Entries entries) {
                return readTwo<&VantoProtocol::getFingerAngle, std::int16_t>(call, finger, entries);
            });
        add(true, {fingerEntry("current", QT_TRANSLATE_NOOP("HandInformation", "Current"), finger)},
            [finger](HandCall& call, Entries entries) {
                std::uint16_t current = 0;
                const auto result =
                    call.attempt<&VantoProtocol::getFingerCurrent>(finger, &current);
                if (result == ResultCode::Success)
                    setNumber(entries[0], current);
                return result;
            });
        if (finger == ThumbRoot) // has no force sensor
            continue;
        add(m_forceSensing.value_or(true),
            {fingerEntry("force", QT_TRANSLATE_NOOP("HandInformation", "Force"), finger)},
            [finger](HandCall& call, Entries entries) {
                std::uint16_t force = 0;
                const auto result =
                    call.attempt<&VantoProtocol::getFingerForce>(finger, &force, std::uint8_t{1});
                if (result == ResultCode::Success)
                    setNumber(entries[0], force);
                return result;
            });
    }
}

void HandInformationReader::perform(int step)
{
    const Item& item = m_items[static_cast<std::size_t>(step)];
    if (!item.isSupported)
        return;
    HandCall call(target());
    const Entries entries(&m_information.entries[item.first], static_cast<std::size_t>(item.count));
    const std::uint8_t result = item.read(call, entries);
    if (noteRead(call, result) && result != ResultCode::Success)
        for (Entry& entry : entries)
            setState(entry, isDamagedReply(result) ? EntryState::NotRead : EntryState::Refused);
}

} // namespace vanto
