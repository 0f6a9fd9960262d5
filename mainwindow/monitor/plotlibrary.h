#pragma once

// The header uses the keyword foreach of Qt, which this program is built without.
// NOLINTNEXTLINE(bugprone-macro-parentheses): a declaration cannot be in parentheses
#define foreach(variable, container) for (variable : container)
#include <qcustomplot.h>
#undef foreach
