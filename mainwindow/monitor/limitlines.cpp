#include "limitlines.h"

#include "fingernames.h"
#include "motionguard.h"

#include <QCoreApplication>
#include <QStringList>

#include <map>

namespace vanto
{

std::vector<LimitLine> limitLines(const FingerLimits& limits,
                                  const std::function<bool(std::size_t)>& isShown)
{
    std::map<int, std::vector<std::size_t>> fingersOf;
    std::size_t shown = 0;
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        if (!isShown(finger))
            continue;
        ++shown;
        if (limits[finger])
            fingersOf[*limits[finger]].push_back(finger);
    }
    const auto translated = [](const char* text) {
        return QCoreApplication::translate("vanto::MonitorPlot", text);
    };
    std::vector<LimitLine> lines;
    for (const auto& [value, fingers] : fingersOf) {
        QString text =
            translated(QT_TRANSLATE_NOOP("vanto::MonitorPlot", "Limit %1 mA")).arg(value);
        if (fingers.size() < shown) {
            QStringList names;
            for (const std::size_t finger : fingers)
                names.append(FingerNames::shown(finger));
            text += QStringLiteral(" (%1)").arg(names.join(QStringLiteral(", ")));
        }
        const bool isOne = fingers.size() == 1;
        lines.push_back({value, text, isOne ? std::optional(fingers.front()) : std::nullopt});
    }
    lines.push_back({MotionGuard::CurrentLimitMa,
                     translated(QT_TRANSLATE_NOOP("vanto::MonitorPlot", "Player %1 mA"))
                         .arg(MotionGuard::CurrentLimitMa),
                     std::nullopt});
    return lines;
}

} // namespace vanto
