#include "columnlines.h"

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int DotPeriod = 4; ///< of a dotted line, in widths of it
constexpr int DotLength = 2;

PixelScale scaleOf(const QCPAxis* axis, double corner, double pixelRatio)
{
    const QCPRange range = axis->range();
    const double lower = (axis->coordToPixel(range.lower) - corner) * pixelRatio;
    const double upper = (axis->coordToPixel(range.upper) - corner) * pixelRatio;
    const double perUnit = (upper - lower) / range.size();
    return {lower - range.lower * perUnit, perUnit};
}

/// Makes a line `width` pixels wide, to the right and down.
void widen(std::vector<PixelSpan>& spans, std::size_t width, int height)
{
    for (std::size_t x = spans.size(); x-- > 0;) {
        for (std::size_t left = x - std::min(x, width - 1); left < x; ++left)
            spans[x].add(spans[left]);
    }
    for (PixelSpan& span : spans) {
        if (!span.isEmpty())
            span.bottom = std::min(span.bottom + static_cast<int>(width) - 1, height - 1);
    }
}
} // namespace

ColumnLines::ColumnLines(QCPAxisRect* row)
    : QCPAbstractPlottable(row->axis(QCPAxis::atBottom), row->axis(QCPAxis::atLeft))
{
    setAntialiased(false); // which would move the image by half a pixel
}

double ColumnLines::selectTest(const QPointF& /*position*/, bool /*onlySelectable*/,
                               QVariant* /*details*/) const
{
    return -1; // cannot be selected
}

QCPRange ColumnLines::getKeyRange(bool& found, QCP::SignDomain /*domain*/) const
{
    found = false; // the axes are scaled by MonitorPlot
    return {};
}

QCPRange ColumnLines::getValueRange(bool& found, QCP::SignDomain /*domain*/,
                                    const QCPRange& /*keyRange*/) const
{
    found = false;
    return {};
}

void ColumnLines::draw(QCPPainter* painter)
{
    const QRect place = clipRect();
    const double ratio = painter->device()->devicePixelRatio() * painter->transform().m11();
    const QSize size = (QSizeF(place.size()) * ratio).toSize();
    if (size.isEmpty())
        return;
    if (m_image.size() != size)
        m_image = QImage(size, QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);
    for (const Line& line : m_lines)
        paint(line, place.topLeft(), ratio);
    m_image.setDevicePixelRatio(ratio);
    painter->drawImage(place.topLeft(), m_image);
}

void ColumnLines::paint(const Line& line, const QPoint& corner, double pixelRatio)
{
    std::vector<PixelSpan> spans = ColumnSpans::of(
        line.values, scaleOf(mKeyAxis, corner.x(), pixelRatio),
        scaleOf(mValueAxis, corner.y(), pixelRatio), m_image.width(), m_image.height());
    const int width = std::max(qRound(pixelRatio), 1); // as a pen of 1
    if (width > 1)
        widen(spans, static_cast<std::size_t>(width), m_image.height());
    const QRgb color = line.color.rgb();
    const auto stride = m_image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(m_image.bits());
    int length = 0; // since the last interruption, so that even a short part is visible
    for (int x = 0; x < m_image.width(); ++x) {
        const PixelSpan& span = spans[static_cast<std::size_t>(x)];
        length = span.isEmpty() ? 0 : length + 1;
        if (line.isDotted && (length - 1) / width % DotPeriod >= DotLength)
            continue;
        QRgb* pixel = pixels + span.top * stride + x;
        for (int y = span.top; y <= span.bottom; ++y, pixel += stride)
            *pixel = color;
    }
}

void ColumnLines::drawLegendIcon(QCPPainter* /*painter*/, const QRectF& /*rect*/) const
{
    // MonitorPlot has a legend of the fingers.
}

} // namespace vanto
