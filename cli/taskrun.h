#pragma once

#include "handtask.h"
#include "parameterwriter.h"
#include "tool.h"

namespace vanto
{

/// Runs a task with a progress bar. Returns whether it was completed; otherwise the failure has
/// been reported.
bool runTask(Tool& tool, HandTask& task, Answer& answer);

/// Whether a value was refused or its replies were damaged.
ExitStatus failureStatus(const RefusedParameter& refused);
/// Fails if the replies for a value were damaged, or if the hand has refused all values. A hand may
/// refuse single ones that it does not have.
void reportReading(const ParameterSet& read, Answer& answer);
/// Reports the first parameter that has not been written.
void reportWriting(const ParameterWriter& writer, Answer& answer);

/// A number, or an array if there are several.
QJsonValue toJson(ParameterKind kind, const ParameterValue& value);

/// Of all kinds of parameters.
QStringList parameterNames();

/// The parameters that a list of kinds, fingers and parameters names: "P", "thumb", "P.thumb". All
/// if the list is empty, without the calibration unless it is named.
QList<ParameterKey> selectParameters(Arguments& arguments, const QStringList& names);

} // namespace vanto
