#pragma once

#include "samplebuffer.h"

namespace vanto
{

/// The pixels of a line in one pixel column, from `top` to `bottom`, both included.
struct PixelSpan {
    int top = 1;
    int bottom = 0;

    bool isEmpty() const { return top > bottom; }
    void add(const PixelSpan& other)
    {
        if (other.isEmpty())
            return;
        const bool isFirst = isEmpty();
        top = isFirst ? other.top : std::min(top, other.top);
        bottom = isFirst ? other.bottom : std::max(bottom, other.bottom);
    }
};

/// A line of which only the extents of its values in equal parts of the time are known.
struct ExtentLine {
    std::vector<Extent> extents;
    double firstTime = 0; ///< seconds, the middle of the first part
    double step = 0;      ///< seconds
    double scale = 1;     ///< of the values
};

/// A pixel is at `origin` + value * `perUnit`.
struct PixelScale {
    double origin = 0;
    double perUnit = 1;

    double at(double value) const { return origin + value * perUnit; }
};

namespace ColumnSpans
{
/// The span of the line in each of `width` pixel columns. Parts of the time are joined unless there
/// is a gap between them.
std::vector<PixelSpan> of(const ExtentLine& line, const PixelScale& x, const PixelScale& y,
                          int width, int height);
} // namespace ColumnSpans

} // namespace vanto
