#pragma once

#include "recording.h"

#include <QWidget>

#include <functional>

namespace vanto
{

namespace RecordingOpener
{
/// Reads a recording that the user chooses in the background, with a progress dialog for a large
/// one. `parent` shows the reason of a failure; a file without samples
/// is a failure, too.
void choose(const QString& caption, QWidget* parent,
            std::function<void(Recording, const QString& path)> opened);
} // namespace RecordingOpener

} // namespace vanto
