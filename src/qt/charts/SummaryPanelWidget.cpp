#include "qt/charts/SummaryPanelWidget.h"

#include <QPainter>
#include <QStringList>
#include <QStyle>
#include <algorithm>

#include "qt/binding/QtText.h"
#include "qt/charts/ChartColors.h"
#include "qt/looks/Spacing.h"

namespace orv {

namespace {

constexpr int dot = 10;
constexpr int textStart = dot + spacing::tight + 2;

}  // namespace

SummaryPanelWidget::SummaryPanelWidget(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SummaryPanelWidget::setModel(const SummaryPanel& panel) {
    rows_.clear();
    QStringList said;
    for (const SummaryRow& row : panel.rows()) {
        rows_.push_back({ToQt(row.label), ToQt(row.size), row.role});
        said << rows_.back().label + QStringLiteral(": ") + rows_.back().size;
    }
    setAccessibleName(said.join(QStringLiteral(", ")));
    updateGeometry();
    update();
}

int SummaryPanelWidget::rowHeight() const {
    return fontMetrics().height() + spacing::tight;
}

QSize SummaryPanelWidget::sizeHint() const {
    int widest = 0;
    for (const Row& row : rows_) {
        const int texts =
            fontMetrics().horizontalAdvance(row.label) + fontMetrics().horizontalAdvance(row.size);
        widest = std::max(widest, textStart + texts + spacing::wide);
    }
    const auto separated = std::ranges::count(rows_, StorageRole::Quota, &Row::role);
    return {widest, rowHeight() * static_cast<int>(rows_.size()) +
                        spacing::tight * static_cast<int>(std::max<std::ptrdiff_t>(separated, 1))};
}

void SummaryPanelWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect place(0, 0, width(), rowHeight());
    for (const Row& row : rows_) {
        if (row.role == StorageRole::Quota) place.translate(0, spacing::tight);
        drawRow(painter, row, place);
        place.translate(0, rowHeight());
    }
}

void SummaryPanelWidget::drawRow(QPainter& painter, const Row& row, const QRect& place) const {
    const auto placed = [&](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const auto aligned = [&](Qt::Alignment alignment) {
        return int(QStyle::visualAlignment(layoutDirection(), alignment | Qt::AlignVCenter));
    };
    if (row.role == StorageRole::Quota && place.top() > 0) {
        const QRect line(0, place.top() - spacing::tight / 2, width(), 1);
        painter.fillRect(line, palette().color(QPalette::Mid));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(ChartColor(row.role, palette()));
    painter.drawEllipse(placed({0, place.center().y() - dot / 2, dot, dot}));

    const QRect texts = placed(place.adjusted(textStart, 0, 0, 0));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(texts, aligned(Qt::AlignLeft), row.label);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(texts, aligned(Qt::AlignRight), row.size);
}

}  // namespace orv
