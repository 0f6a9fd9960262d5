#pragma once

#include <vector>

namespace vanto
{

/// Turns off log messages of Qt in this program and those that it starts. Must be called before
/// the application object is created.
void silenceLog();

/// The median of the values, which must not be empty.
double median(std::vector<double> values);

/// One line of the report: a measured value and its limit.
struct Figure {
    const char* what;
    double value;
    const char* unit;
    double base; ///< divisor of the ratio
    double bar;  ///< highest acceptable ratio
};

/// Prints the line and returns whether the ratio is acceptable.
bool report(const Figure& figure);

} // namespace vanto
