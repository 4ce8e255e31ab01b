#pragma once

#include <QColor>
#include <QWidget>

namespace orv {

/// The area across the top of a window. A brand may give it a colour; what stands on it then stays
/// readable.
class HeaderBand final : public QWidget {
    Q_OBJECT

 public:
    explicit HeaderBand(QWidget* parent = nullptr);

    void setColor(const QColor& color);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orv
