#pragma once

#include "hand.h"

#include <QStringList>

namespace vanto::simulator
{

// One value of a hand that can be read and set by name. `words` are NAME [FINGER] [VALUE].
// Both return an answer line: "ok", "ok VALUE" or "error: ...".
QString readProperty(Hand& hand, const QStringList& words, Moment now);
QString writeProperty(Hand& hand, const QStringList& words, Moment now);

// The names for the user, first those of a whole hand, then those of a finger.
QStringList handPropertyNames();
QStringList fingerPropertyNames();

} // namespace vanto::simulator
