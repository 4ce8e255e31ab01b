#pragma once

#include <QWidget>
#include <vector>

#include "widgets/SummaryPanel.h"

namespace orv {

/// The legend of the ring: a line for each part with its colour, name and size.
class SummaryPanelWidget final : public QWidget {
    Q_OBJECT

 public:
    explicit SummaryPanelWidget(QWidget* parent = nullptr);

    void setModel(const SummaryPanel& panel);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    struct Row {
        QString label;
        QString size;
        StorageRole role;
    };

    [[nodiscard]] int rowHeight() const;
    void drawRow(QPainter& painter, const Row& row, const QRect& place) const;

    std::vector<Row> rows_;
};

}  // namespace orv
