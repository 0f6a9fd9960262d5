#pragma once

#include <vector>

namespace vanto
{

/// Keeps Qt's lines out of the report, of this program and those that it starts. To be called
/// before the application object is made.
void silenceLog();

/// The middle of the values, which must not be empty.
double median(std::vector<double> values);

/// One line of the report: a figure against its bar.
struct Figure {
    const char* what;
    double value;
    const char* unit;
    double base; ///< what the value is divided by for the ratio
    double bar;  ///< highest ratio that is good enough
};

/// Prints the line and tells whether the bar holds.
bool report(const Figure& figure);

} // namespace vanto
