#pragma once

#include "parameterreader.h"

namespace vanto
{

/// Backups that the program makes by itself, in the user's data folder.
namespace ParameterBackup
{
constexpr int KeptPerHand = 10;

/// The folder "parameters" in the data folder of the window, which vantoctl uses, too.
QString folder();
/// "<hardware>-<UID or node>-<time>.json", for example
/// "1B01-0043002048E5601020383550-20261122T062517123Z.json" or "1B01-node2-...".
QString fileName(const ParameterSet& parameters);

struct Saved {
    QString path;
    QString error;   ///< for the user; empty on success
    QString missing; ///< for the user: values that could not be read; empty if there are none
};
/// Writes a file of the folder and removes all but the newest ones of this hand.
Saved save(const ParameterSet& parameters);

/// The reader of a backup: it only reads, and gives up at the first time-out.
ParameterReader::Options readOptions(std::optional<bool> forceSensing, const QString& toolVersion);
/// Saves what the reader has read. The texts are whole sentences, also if the reader has failed;
/// all are empty if it was superseded or cancelled, which the user knows.
Saved save(const ParameterReader& reader);

/// Says that there is no backup, and why.
QString failureText(const QString& reason);

/// The newest backup of this hand, empty if there is none.
QString newest(const HandFacts& hand);
} // namespace ParameterBackup

} // namespace vanto
