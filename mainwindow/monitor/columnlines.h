#pragma once

#include "columnspans.h"
#include "plotlibrary.h"

#include <QImage>

namespace vanto
{

/// All lines of a row of a plot. They are painted as vertical spans into one image: lines of noise
/// fill most of their row, and the library needs four times as long for them.
class ColumnLines : public QCPAbstractPlottable
{
public:
    explicit ColumnLines(QCPAxisRect* row);

    struct Line {
        ExtentLine values;
        QColor color;
        bool isDotted = false;
    };
    /// The later ones are painted over the earlier ones.
    void setLines(std::vector<Line> lines) { m_lines = std::move(lines); }

    double selectTest(const QPointF& position, bool onlySelectable,
                      QVariant* details) const override;
    QCPRange getKeyRange(bool& found, QCP::SignDomain domain) const override;
    QCPRange getValueRange(bool& found, QCP::SignDomain domain,
                           const QCPRange& keyRange) const override;

protected:
    void draw(QCPPainter* painter) override;
    void drawLegendIcon(QCPPainter* painter, const QRectF& rect) const override;

private:
    void paint(const Line& line, const QPoint& corner, double pixelRatio);

    std::vector<Line> m_lines;
    QImage m_image; ///< kept for the next time
};

} // namespace vanto
