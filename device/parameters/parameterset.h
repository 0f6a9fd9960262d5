#pragma once

#include "handidentity.h"
#include "parameter.h"

#include <QDateTime>

#include <array>
#include <map>

namespace vanto
{

/// What is known about the hand that parameters belong to. None of it is ever written to a hand.
struct HandFacts {
    using Uid = std::array<std::uint32_t, 3>;

    std::optional<std::uint8_t> node;
    std::optional<PROTOCOL_TYPE> protocolType;
    std::optional<HandIdentity::Protocol> protocol;
    std::optional<HandIdentity::Firmware> firmware;
    std::optional<HandIdentity::Hardware> hardware; ///< boot loader 0: unknown
    std::optional<Uid> uid;                         ///< SerialCtrl only
    bool isUidUnreadable = false; ///< the hand has a UID, but its replies are damaged

    bool operator==(const HandFacts&) const = default;

    // Texts for the user and for files; empty if unknown.
    QString nodeText() const;        ///< "2"
    QString protocolName() const;    ///< "SerialCtrl" or "ModBus-RTU"
    QString protocolVersion() const; ///< "3.1"
    QString firmwareText() const;    ///< "1.4.7"
    QString hardwareText() const;    ///< "1B01"
    QString bootLoaderText() const;  ///< "1.2"
    QString uidText() const;         ///< 24 hexadecimal digits
};

/// Whether a result means that a reply came, but damaged or to something else: with noise on the
/// line the same request can succeed the next time. Adapters number refusals of the hand higher.
bool isDamagedReply(std::uint8_t result);

/// A result code or sub error as text, for example "0x21".
QString hexCode(unsigned code);

/// A value that a hand did not give, and why.
struct RefusedParameter {
    ParameterKey key;
    std::uint8_t result = 0; ///< a result code; Success: the value is not a number
    std::uint8_t subError = 0;

    /// For the user, for example "P, Thumb: refused (result 0xff, sub error 0x21)".
    QString text() const;
};

/// The parameters of a hand, all or some of them.
struct ParameterSet {
    HandFacts hand;
    QDateTime time;      ///< UTC
    QString toolVersion; ///< of the program that has read them
    QString comment;     ///< of a file; kept, never used
    std::map<ParameterKey, ParameterValue> values;
    QList<RefusedParameter> refused; ///< by the hand, while it was read; not stored in files

    std::optional<ParameterValue> value(const ParameterKey& key) const;
    /// The four gains of a finger come from another finger's, as far as that has them.
    void copyGains(std::uint8_t from, std::uint8_t to);
};

HandIdentity::Calibration toCalibration(const ParameterValue& value);
ParameterValue fromCalibration(const HandIdentity::Calibration& calibration);

} // namespace vanto
