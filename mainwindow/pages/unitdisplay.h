#pragma once

#include "fingers.h"
#include "motionunit.h"

#include <QString>

class QComboBox;
class QLabel;
class QSlider;

namespace vanto
{

/// Display and input of positions, in ticks, and of angles, in degrees.
namespace UnitDisplay
{
/// The unit selected in a mode box.
const MotionUnit& selectedUnit(const QComboBox* mode);
/// Sets the unit's name and the ranges of the sliders.
void apply(const MotionUnit& unit, QLabel* name, const PerFinger<QSlider*>& sliders);
/// A value as text for a field.
QString text(const MotionUnit& unit, int value);
/// The value of a typed text.
int value(const MotionUnit& unit, const QString& text);
} // namespace UnitDisplay

} // namespace vanto
