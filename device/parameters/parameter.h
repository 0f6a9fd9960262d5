#pragma once

#include "fingers.h"
#include "vantoprotocol.h"

#include <QList>
#include <QString>

#include <compare>
#include <cstdint>
#include <optional>
#include <span>

namespace vanto
{

/// What a hand stores about its behavior, in the order of tables and files.
enum class ParameterKind : std::uint8_t {
    P,
    I,
    D,
    G,
    CurrentLimit,
    ForceLimit,
    PositionLimits,
    SelfTestLevel,
    BeepSwitch,
    Calibration
};

/// One parameter of a hand; `finger` is given exactly if the kind is one per finger.
struct ParameterKey {
    ParameterKind kind = ParameterKind::P;
    std::optional<std::uint8_t> finger = {};

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 means the 0 of the generated comparison
    auto operator<=>(const ParameterKey&) const = default;
    /// As used on the command line and in messages about files, for example "currentLimit thumb".
    QString name() const;
    /// For the user, translated, for example "Current limit, Thumb".
    QString displayName() const;
};

/// The numbers of one parameter: one number, with these exceptions.
/// - position limits: lower, upper
/// - calibration: 6 starts, 6 ends (raw positions, Thumb to Thumb root), 3 positions of the thumb
///   root; see toCalibration() in parameterset.h
/// Gains are the exact values of floats.
using ParameterValue = QList<double>;

/// What holds for all parameters of one kind.
struct ParameterDescriptor {
    ParameterKind kind;
    const char* name;        ///< in files and on the command line, for example "currentLimit"
    const char* displayText; ///< English; ParameterNames::displayName() translates it
    const char* unit;        ///< "mA", "mN" or empty
    std::size_t fingers;     ///< it exists for the first ones, Thumb first; 0: once for the hand
    int valueCount;
    double min;
    double max;           ///< that a hand can store
    double maxKnown;      ///< that has a known meaning; larger values are saved but never written
    bool isGain;          ///< a float; otherwise integers
    bool tickedByDefault; ///< whether a difference is restored unless the user decides otherwise

    bool isPerFinger() const { return fingers > 0; }
    /// Whether the value fits one hand only, because no two hands end at the same raw positions.
    bool belongsToOneHand() const
    {
        return kind == ParameterKind::Calibration || kind == ParameterKind::PositionLimits;
    }
    /// An empty text if the value is valid, otherwise the reason, for example
    /// "expected an integer from 0 to 65535, found 70000".
    QString check(const ParameterValue& value) const;
};

constexpr std::size_t GainKinds = 4; ///< P, I, D and G are the first kinds

std::span<const ParameterDescriptor> parameterDescriptors();
const ParameterDescriptor& describe(ParameterKind kind);
constexpr bool isGain(ParameterKind kind)
{
    return kind <= ParameterKind::G;
}
/// All parameters of a hand, in the order of the kinds, then of the fingers.
QList<ParameterKey> allParameterKeys();

namespace ParameterNames
{
/// "thumb", "index", "middle", "third", "little", "thumbRoot".
QString finger(std::uint8_t finger);
/// For the user, translated.
QString displayName(std::uint8_t finger);
QString displayName(ParameterKind kind);
/// The name regardless of case, blanks, '-' and '_' ("current-limit", "Thumb root"); a finger also
/// by its number 0 to 5.
std::optional<ParameterKind> parseKind(const QString& text);
std::optional<std::uint8_t> parseFinger(const QString& text);
/// Like the name of a key: "currentLimit thumb", also with a '.' between the two.
std::optional<ParameterKey> parseKey(const QString& text);
} // namespace ParameterNames

namespace ParameterValues
{
/// For a table: gains in the shortest form that is read back as the same float, numbers separated
/// by
/// ", ", calibration in groups ("start 1, 2, ...; end ...; thumb root ..."). Not translated, C
/// locale.
QString text(ParameterKind kind, const ParameterValue& value);
/// The number whose shortest decimal form is that of the float: 0.06F gives 0.06. Files and JSON
/// output use it.
double shortest(float gain);
/// Reads numbers as a user types them, C locale, a decimal comma as a point. Sets `error` and
/// returns none if they are not a valid value of this kind.
std::optional<ParameterValue> parse(ParameterKind kind, const QStringList& texts, QString* error);
/// Whether a hand that was given one value and now has the other has kept it: the same float over
/// SerialCtrl, the same hundredth over Modbus, otherwise the same integers.
bool equal(ParameterKind kind, const ParameterValue& one, const ParameterValue& other,
           PROTOCOL_TYPE protocol);
/// False for a gain that the registers of a Modbus hand cannot hold: below 0 or above 655.35, and
/// for a self-test level or beep switch that no hand is known to have: above 2 or 1.
bool isRepresentable(ParameterKind kind, const ParameterValue& value, PROTOCOL_TYPE protocol);
} // namespace ParameterValues

} // namespace vanto
