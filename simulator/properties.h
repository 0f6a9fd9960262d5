#pragma once

#include "hand.h"

#include <QStringList>

namespace vanto::simulator
{

/// These functions access a property of a hand by name. `words` are NAME [FINGER] [VALUE].
/// They return an answer line: "ok", "ok VALUE" or "error: ...".
QString readProperty(Hand& hand, const QStringList& words, TimePoint now);
QString writeProperty(Hand& hand, const QStringList& words, TimePoint now);

/// The names of the properties of a hand and of a finger, for the help text.
QStringList handPropertyNames();
QStringList fingerPropertyNames();

} // namespace vanto::simulator
