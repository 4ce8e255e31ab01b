#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QString>

namespace orv {

/// Draws an icon from SVG at whatever size and density is asked for.
class SvgIconEngine final : public QIconEngine {
 public:
    /// `name` tells it from other icons in the process's cache of pixmaps.
    SvgIconEngine(QString name, QByteArray svg);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;
    [[nodiscard]] QIconEngine* clone() const override;
    [[nodiscard]] bool isNull() override { return svg_.isEmpty(); }

 private:
    [[nodiscard]] QPixmap render(const QSize& size, QIcon::Mode mode) const;

    QString name_;
    QByteArray svg_;
};

}  // namespace orv
