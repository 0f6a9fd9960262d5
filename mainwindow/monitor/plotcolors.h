#pragma once

#include <QColor>

namespace vanto
{

/// The colors of lines in a plot. Each has a contrast of at least 3 to a white or dark background.
namespace PlotColors
{
/// Of the fingers; distinguishable with all common kinds of color vision.
QColor finger(std::size_t finger, const QColor& background);
/// Of a finger in an earlier recording.
QColor overlay(std::size_t finger, const QColor& background);
} // namespace PlotColors

} // namespace vanto
