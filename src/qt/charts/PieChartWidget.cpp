#include "qt/charts/PieChartWidget.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "foundation/system/LocalizedString.h"
#include "qt/binding/QtText.h"
#include "qt/charts/ChartColors.h"

namespace orv {

namespace {

constexpr int usualSide = 168;
constexpr int leastSide = 96;
/// Of the ring, as a part of its diameter.
constexpr qreal thickness = 0.14;
// as QPainter counts angles
constexpr double circle = 360 * 16;
constexpr double top = 90 * 16;
/// Between slices.
constexpr double gap = 2.2 * 16;

/// What of the quota is used; empty without one.
QString usedText(const StorageFigures& figures, const std::vector<PieSlice>& slices) {
    if (figures.quota <= 0 || slices.empty()) return {};
    const auto free = std::ranges::find(slices, StorageRole::Free, &PieSlice::role);
    const bool hasFree = free != slices.end() && free->bytes > 0;
    const double used = hasFree ? 1 - free->fraction : 1;
    // nothing and all are said only when they are exact
    const int percent =
        std::clamp(static_cast<int>(std::lround(used * 100)), used > 0 ? 1 : 0, hasFree ? 99 : 100);
    return ToQt(quelm::FormatLocalizedString("SpaceUsage.PercentUsed", "%d%% used", {percent}));
}

bool isSeen(const PieSlice& slice) {
    return slice.fraction > 0;
}

}  // namespace

void PieChartWidget::setModel(const StorageFigures& figures) {
    slices_ = PieSlices(figures);
    middle_ = usedText(figures, slices_);
    setAccessibleName(ToQt(DescriptionInWords(figures)));
    update();
}

QSize PieChartWidget::sizeHint() const {
    return {usualSide, usualSide};
}

QSize PieChartWidget::minimumSizeHint() const {
    return {leastSide, leastSide};
}

void PieChartWidget::paintEvent(QPaintEvent* /*event*/) {
    const qreal side = std::min({width(), height(), usualSide});
    const qreal thick = side * thickness;
    QRectF ring(0, 0, side - thick, side - thick);
    ring.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawRing(painter, ring, thick);
    drawMiddle(painter, ring.adjusted(thick, thick, -thick, -thick));
}

void PieChartWidget::drawRing(QPainter& painter, const QRectF& ring, qreal thick) const {
    const auto pen = [&](StorageRole role) {
        return QPen(ChartColor(role, palette()), thick, Qt::SolidLine, Qt::FlatCap);
    };
    if (std::ranges::count_if(slices_, isSeen) < 2) {
        const auto only = std::ranges::find_if(slices_, isSeen);
        painter.setPen(pen(only != slices_.end() ? only->role : StorageRole::Free));
        painter.drawEllipse(ring);
        return;
    }
    double start = top;
    for (const PieSlice& slice : slices_) {
        const double span = slice.fraction * circle;
        const double drawn = std::max(span - gap, std::min(span, gap / 2));
        painter.setPen(pen(slice.role));
        if (isSeen(slice)) {
            painter.drawArc(ring, static_cast<int>(start - (span - drawn) / 2),
                            -static_cast<int>(drawn));
        }
        start -= span;
    }
}

void PieChartWidget::drawMiddle(QPainter& painter, const QRectF& middle) const {
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(middle, Qt::AlignCenter | Qt::TextWordWrap, middle_);
}

}  // namespace orv
