#pragma once

#include <QScrollArea>

namespace orv {

/// A column as wide as what stands in it, which scrolls up and down where the window is too low.
class ScrollColumn final : public QScrollArea {
    Q_OBJECT

 public:
    explicit ScrollColumn(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void layOutContents();
    [[nodiscard]] int columnWidth() const;
};

}  // namespace orv
