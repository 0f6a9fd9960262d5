#pragma once

#include <vector>

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
