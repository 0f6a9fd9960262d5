#pragma once

#include "parameterset.h"

namespace vanto
{

/// One parameter in a hand and in a file.
struct ParameterRow {
    enum class State {
        Equal,
        Different,
        OnlyInHand,
        OnlyInFile,      ///< the hand does not give it, so it could not be read back
        NotRepresentable ///< different, and this hand cannot have the file's value
    };

    ParameterKey key;
    std::optional<ParameterValue> inHand;
    std::optional<ParameterValue> inFile;
    State state = State::Equal;
    bool isForOtherHand = false; ///< it belongs to one hand, and the file is from another

    /// Whether it may be restored at all. What belongs to one hand has a further rule:
    /// calibrationRule().
    bool canTick() const { return state == State::Different && !isForOtherHand; }
    bool isTickedByDefault() const { return canTick() && describe(key.kind).tickedByDefault; }
    /// For the user: why a row that is not equal cannot be ticked; empty otherwise.
    QString obstacle() const;
};

/// Largest absolute differences that count as equal, by kind.
using ParameterTolerances = std::map<ParameterKind, double>;

/// The rows of all parameters that the hand or the file has, in the order of ParameterKey. `hand`
/// names the protocol, whose rule of equality holds.
QList<ParameterRow> compareParameters(const ParameterSet& hand, const ParameterSet& file,
                                      const ParameterTolerances& tolerances = {});
/// Whether a row is neither equal nor found in the hand alone: what a partial file says is not so.
bool differs(const ParameterRow& row);

/// What is known about both hands; shown, never written.
struct FactRow {
    QString name; ///< translated
    QString inHand;
    QString inFile;
};
QList<FactRow> compareFacts(const HandFacts& hand, const HandFacts& file);

/// Whether the hardware is known of both and differs; then the user is asked first.
bool isOtherHardware(const HandFacts& hand, const HandFacts& file);

/// A calibration belongs to one hand alone: a wrong one drives fingers into their stops. The same
/// is true of position limits, which a hand may keep in the same place.
enum class CalibrationRule {
    SameHand,    ///< may be restored, by its own tick
    UnknownHand, ///< one of both has no UID: only after a second question
    OtherHand    ///< never; also if the UID of the hand cannot be read
};
CalibrationRule calibrationRule(const HandFacts& hand, const HandFacts& file);

} // namespace vanto
