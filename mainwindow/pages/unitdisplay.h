#pragma once

#include "fingers.h"
#include "motionunit.h"

#include <QString>

class QComboBox;
class QLabel;
class QSlider;

namespace vanto
{

/// How positions, in ticks, and angles, in degrees, are shown and typed.
namespace UnitDisplay
{
/// The unit that a mode box shows.
const MotionUnit& chosen(const QComboBox* mode);
/// Sets the unit's name and the ranges of the sliders.
void apply(const MotionUnit& unit, QLabel* name, const PerFinger<QSlider*>& sliders);
/// A value as fields show it.
QString text(const MotionUnit& unit, int value);
/// A value from what was typed.
int value(const MotionUnit& unit, const QString& text);
} // namespace UnitDisplay

} // namespace vanto
