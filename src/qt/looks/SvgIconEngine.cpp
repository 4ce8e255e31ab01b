#include "qt/looks/SvgIconEngine.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <memory>
#include <utility>

namespace orv {

SvgIconEngine::SvgIconEngine(QString name, QByteArray svg)
    : name_(std::move(name)), svg_(std::move(svg)) {}

QIconEngine* SvgIconEngine::clone() const {
    return std::make_unique<SvgIconEngine>(name_, svg_).release();
}

void SvgIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                          QIcon::State state) {
    const qreal scale = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
}

QPixmap SvgIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    return scaledPixmap(size, mode, state, 1);
}

/// `size` is in the pixels of the screen.
QPixmap SvgIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/,
                                    qreal scale) {
    const QString key = QStringLiteral("%1@%2x%3/%4")
                            .arg(name_)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(int(mode));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = render(size, mode);
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QPixmap SvgIconEngine::render(const QSize& size, QIcon::Mode mode) const {
    constexpr qreal disabledOpacity = 0.45;
    // to be told from the selection behind it
    constexpr float selectedTint = 0.7F;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(svg_);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    if (mode == QIcon::Disabled) painter.setOpacity(disabledOpacity);
    renderer.render(&painter);
    if (mode == QIcon::Selected) {
        QColor tint = QGuiApplication::palette().color(QPalette::HighlightedText);
        tint.setAlphaF(selectedTint);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.fillRect(image.rect(), tint);
    }
    painter.end();
    return QPixmap::fromImage(image);
}

}  // namespace orv
