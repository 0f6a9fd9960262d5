#pragma once

#include "handtask.h"
#include "parameterset.h"

#include <vector>

namespace vanto
{

/// Reads the parameters of a hand and what it says about itself; sends reads only.
///
/// Force limits are read only with force sensing, position limits only over SerialCtrl. What the
/// hand refuses is listed and skipped. A read that is not answered is sent once more, unless one
/// time-out ends the task; one with a damaged reply is repeated, too. After a time-out, another
/// hand may have taken the place of the first: the last step finds out and ends the task then.
class ParameterReader : public HandTask
{
public:
    struct Options {
        QList<ParameterKey> keys = allParameterKeys(); ///< what to read
        bool facts = true; ///< firmware, protocol, hardware and UID, read first
        /// Whether the hand has force sensing; asked first if unknown and needed.
        std::optional<bool> forceSensing = {};
        int timeoutsInARow = TimeoutsInARow; ///< automatic backups: 1
        QString toolVersion = {};
    };

    ParameterReader(HandTarget target, Options options);

    int stepCount() const override;
    /// What has been read so far; everything if the outcome is Completed.
    const ParameterSet& parameters() const { return m_parameters; }

private:
    struct Step {
        enum class What { Firmware, Protocol, Hardware, Uid, ForceProbe, Parameter, SameHand } what;
        ParameterKey key = {};
    };

    void perform(int step) override;
    void addParameters();
    void checkHand();
    std::uint8_t readFact(HandCall& call, Step::What what);
    std::uint8_t readParameter(HandCall& call, const ParameterKey& key);
    void keepGain(const ParameterKey& key, float gain);
    void refuse(const ParameterKey& key, std::uint8_t result, std::uint8_t subError);
    QList<ParameterKey> gainsOf(std::uint8_t finger) const;
    bool isAvailable(const ParameterKey& key) const;

    Options m_options;
    std::vector<Step> m_steps;
    bool m_hadTimeout = false;
    ParameterSet m_parameters;
};

} // namespace vanto
