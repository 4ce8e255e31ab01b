#pragma once

#include <QWidget>

#include "widgets/PieChart.h"

namespace orv {

/// A ring of who takes up how much of the storage, with the part that is used in its middle.
class PieChartWidget final : public QWidget {
    Q_OBJECT

 public:
    explicit PieChartWidget(QWidget* parent = nullptr) : QWidget(parent) {}

    void setModel(const StorageFigures& figures);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void drawRing(QPainter& painter, const QRectF& ring, qreal thick) const;
    void drawMiddle(QPainter& painter, const QRectF& middle) const;

    std::vector<PieSlice> slices_;
    QString middle_;
};

}  // namespace orv
