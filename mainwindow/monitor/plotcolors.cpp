#include "plotcolors.h"

#include "fingers.h"

namespace vanto
{

namespace
{
constexpr int MiddleLightness = 128;
constexpr double OverlayOpacity = 0.75;

constexpr PerFinger<const char*> OnDark{"#56b4e9", "#e69f00", "#2fc79a",
                                        "#f0e442", "#e08fc0", "#ff7a45"};
constexpr PerFinger<const char*> OnLight{"#0072b2", "#a35a00", "#00704f",
                                         "#7a6a00", "#9c3f77", "#b8331f"};

/// Without transparency, which takes longer to paint.
QColor blended(const QColor& color, const QColor& background, double opacity)
{
    const auto part = [opacity](int front, int back) {
        return static_cast<int>(front * opacity + back * (1 - opacity));
    };
    return {part(color.red(), background.red()), part(color.green(), background.green()),
            part(color.blue(), background.blue())};
}
} // namespace

QColor PlotColors::finger(std::size_t finger, const QColor& background)
{
    const bool dark = background.lightness() < MiddleLightness;
    return QColor(QLatin1String((dark ? OnDark : OnLight).at(finger)));
}

QColor PlotColors::overlay(std::size_t finger, const QColor& background)
{
    return blended(PlotColors::finger(finger, background), background, OverlayOpacity);
}

} // namespace vanto
