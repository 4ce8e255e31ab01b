#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace orv {

/// A turning arc while something goes on; empty, but as large, while nothing does. It stands still
/// where the desktop asks for no animations.
class BusyIndicator final : public QWidget {
    Q_OBJECT

 public:
    explicit BusyIndicator(QWidget* parent = nullptr) : QWidget(parent) {}

    void setAnimating(bool animating);
    [[nodiscard]] bool isAnimating() const { return since_.isValid(); }

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    void turn();

    QElapsedTimer since_;
    QBasicTimer timer_;
};

}  // namespace orv
