#include "valuetext.h"

#include "vantoprotocol.h"

#include <QCoreApplication>

namespace vanto
{

namespace
{
const QString Dash = QStringLiteral("–");
} // namespace

QString ValueText::quantity(Quantity quantity)
{
    // The catalogues have these texts from the columns of the table.
    constexpr std::array names{"Current (mA)", "Position", "Angle (°)", "Force"};
    return QCoreApplication::translate("vanto::ValueTable",
                                       names.at(static_cast<std::size_t>(quantity)));
}

QString ValueText::value(Quantity quantity, std::int32_t value)
{
    if (value == MissingValue)
        return Dash;
    return quantity == Quantity::Angle ? QString::number(value / HundredthsPerDegree, 'f', 2)
                                       : QString::number(value);
}

QString ValueText::mean(Quantity quantity, double value)
{
    return quantity == Quantity::Angle ? QString::number(value / HundredthsPerDegree, 'f', 2)
                                       : QString::number(value, 'f', 1);
}

QString ValueText::extent(Quantity quantity, const Extent& extent)
{
    const QString low = value(quantity, extent.min);
    return extent.min == extent.max ? low
                                    : low + QStringLiteral(" … ") + value(quantity, extent.max);
}

} // namespace vanto
