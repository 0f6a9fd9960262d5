#pragma once

#include "handtask.h"
#include "parameterwriter.h"
#include "tool.h"

namespace vanto
{

/// Runs a task with a progress bar. Returns whether it was completed; otherwise the failure has
/// been reported.
bool runTask(Tool& tool, HandTask& task, Answer& answer);

/// Reports the first parameter that has not been written.
void reportWriting(const ParameterWriter& writer, Answer& answer);

/// A number, or an array if there are several.
QJsonValue toJson(ParameterKind kind, const ParameterValue& value);

/// The parameters that a list of kinds, fingers and parameters names: "P", "thumb", "P.thumb". All
/// if the list is empty, without the calibration unless it is named.
QList<ParameterKey> selectParameters(Arguments& arguments, const QStringList& names);

} // namespace vanto
