#pragma once

#include "fingers.h"

class QComboBox;
class QLabel;
class QSlider;

/// Whether fingers are shown by position, in ticks, or by the angle of a joint, in degrees.
namespace PositionMode
{
bool isChosen(const QComboBox* mode);
/// Sets the unit and the sliders' ranges.
void apply(bool positions, QLabel* unit, const PerFinger<QSlider*>& sliders);
} // namespace PositionMode
