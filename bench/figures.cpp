#include "figures.h"

#include <QByteArray>

#include <algorithm>
#include <cstdio>

namespace vanto
{

void silenceLog()
{
    // The offscreen platform warns about every window.
    qputenv("QT_LOGGING_RULES", "default.debug=false;default.warning=false");
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

bool report(const Figure& figure)
{
    const double ratio = figure.value / figure.base;
    const bool holds = ratio <= figure.bar;
    std::printf("%-4s %-50s %9.3f %-5s / %8.3f = %5.3f  (limit %.2f)\n", holds ? "ok" : "OVER",
                figure.what, figure.value, figure.unit, figure.base, ratio, figure.bar);
    std::fflush(stdout);
    return holds;
}

} // namespace vanto
