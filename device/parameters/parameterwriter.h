#pragma once

#include "handtask.h"
#include "parametercomparison.h"

#include <vector>

namespace vanto
{

/// What happened to a parameter that was to be written.
struct WrittenParameter {
    enum class Result {
        NotTried,
        Written,  ///< and read back
        Refused,  ///< and not kept
        NotKept,  ///< not refused, but another value was read back, or none
        NoAnswer, ///< it is not known whether the hand has it now
    };

    ParameterKey key;
    Result result = Result::NotTried;
    std::optional<ParameterValue> readBack = {}; ///< what the hand has now, if it could be read
    std::uint8_t code = 0;                       ///< result code of the failed operation
    std::uint8_t subError = 0;

    /// Whether the hand may have the old value, the new one or, of a calibration, a part of it.
    bool isUncertain() const { return result != Result::NotTried && !readBack; }
    /// For the user, translated, for example "not kept (1.5)".
    QString text() const;
};

/// Restores the chosen parameters, one after the other, each followed by its read.
///
/// Before the first write, and after a time-out, the hand is compared with what is known about it,
/// so that nothing is written to a hand that has taken its place. A chosen parameter is written
/// even if the hand has the value already: the caller chooses what differs. Gains of one finger are
/// one write; gains of it that are not chosen keep the value in the hand, which is read at that
/// moment.
class ParameterWriter : public HandTask
{
public:
    struct Options {
        /// The user's own consent to write the calibration: without it the calibration is not
        /// tried, even if chosen. It never is if calibrationRule() says OtherHand.
        bool writeCalibration = false;
        /// The user's consent to write position limits although calibrationRule() says UnknownHand.
        /// If it says OtherHand, they are never written.
        bool writeUnknownLimits = false;
        /// Allow node 255 of SerialCtrl, which writes to every hand on the bus.
        bool anyNode = false;
        int timeoutsInARow = TimeoutsInARow;
    };

    /// `hand`: what was read from the hand, for its identity; `wanted`: the values, as from a file;
    /// `chosen`: those to write, without duplicates. Those that `wanted` does not have, or that are
    /// not representable over the protocol, are not tried.
    ParameterWriter(HandTarget target, const ParameterSet& hand, const ParameterSet& wanted,
                    const QList<ParameterKey>& chosen, Options options);

    /// Whether writing through this target reaches every hand on the bus.
    static bool isAnyNode(const HandTarget& target);

    /// Steps: the check of the hand, then one for each write.
    int stepCount() const override;
    /// One for each chosen parameter, in the order in which they are written.
    const QList<WrittenParameter>& results() const { return m_results; }
    /// The value of that parameter in the hand after the calibration has failed or was not kept, or
    /// was written: as read back. DeviceSession::identity() must take it over, because the hand is
    /// recognized by its calibration.
    std::optional<HandIdentity::Calibration> calibrationInHand() const { return m_calibration; }
    /// The position limits that were read after the calibration, which the hand may keep in the
    /// same place; only those that the hand had before.
    const std::map<ParameterKey, ParameterValue>& limitsInHand() const { return m_limits; }
    int count(WrittenParameter::Result result) const;
    /// Whether what has been read since, calibration included, can be from the hand that was
    /// written. A calibration that was cut short is a mixture of the old one and the new one.
    bool isSameHand(const ParameterSet& now) const;

private:
    struct Write {
        ParameterKey key;              ///< of gains: the first chosen one
        QList<qsizetype> results = {}; ///< indices of its parameters
    };

    void perform(int step) override;
    bool canWrite(const ParameterKey& key) const;
    void addWrite(const ParameterKey& key, qsizetype result);
    bool checkHand(HandCall& call);
    bool hasKnownUid(HandCall& call);
    bool isKnown(const std::optional<HandIdentity::Calibration>& calibration) const;
    void expectChange(const ParameterKey& key);
    void keepCalibration(const ParameterValue& value);
    template<class Read>
    std::uint8_t readPatiently(HandCall& call, Read read);
    void writeGains(HandCall& call, const Write& job);
    void writeOther(HandCall& call, const Write& job);
    void readCalibration(HandCall& call);
    void readLimits(HandCall& call);
    bool noteWrite(HandCall& call, const Write& job, std::uint8_t result);
    void refuse(const Write& job, std::uint8_t code, std::uint8_t subError);
    void mark(const Write& job, WrittenParameter::Result result, std::uint8_t code,
              std::uint8_t subError);
    void judge(WrittenParameter& written, const ParameterValue& value);

    HandFacts m_facts;
    CalibrationRule m_rule;
    std::optional<ParameterValue> m_known; ///< calibration that identifies the hand
    ParameterValue m_expected; ///< the same after the present write; it can be executed in part
    std::map<ParameterKey, ParameterValue> m_wanted;
    Options m_options;
    std::vector<Write> m_writes;
    QList<WrittenParameter> m_results;
    std::optional<HandIdentity::Calibration> m_calibration;
    QList<ParameterKey> m_knownLimits; ///< position limits that the hand has
    std::map<ParameterKey, ParameterValue> m_limits;
};

} // namespace vanto
