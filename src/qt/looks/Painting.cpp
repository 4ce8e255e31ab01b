#include "qt/looks/Painting.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <utility>

#include "qt/looks/Spacing.h"

namespace orv::painting {

namespace {

constexpr qreal hairline = 1;

bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

/// Half a pixel inside, so that a line of one pixel is sharp.
QRectF inside(const QRect& rect, qreal pen = hairline) {
    return QRectF(rect).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
}

QColor mixed(const QColor& one, const QColor& other, float share) {
    const auto mix = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

/// As it is, under the pointer, or pressed.
QColor reacting(const QColor& color, const QStyleOption& option) {
    const QColor text = option.palette.color(QPalette::WindowText);
    if (!has(option, QStyle::State_Enabled)) return color;
    if (has(option, QStyle::State_Sunken)) return mixed(color, text, 0.16F);
    if (has(option, QStyle::State_MouseOver)) return mixed(color, text, 0.06F);
    return color;
}

struct Box {
    QColor fill;
    QColor line;
};

void drawBox(QPainter& painter, const QRect& rect, const Box& box, qreal radius = spacing::radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(box.line, hairline));
    painter.setBrush(box.fill);
    painter.drawRoundedRect(inside(rect), radius, radius);
    painter.restore();
}

Box buttonBox(const QStyleOption& option) {
    const QPalette& palette = option.palette;
    if (!has(option, QStyle::State_Enabled))
        return {palette.color(QPalette::Window), palette.color(QPalette::Mid)};
    if (IsAccented(option)) {
        const QColor accent = reacting(palette.color(QPalette::Highlight), option);
        return {accent, accent};
    }
    const QColor line = mixed(palette.color(QPalette::Mid), palette.color(QPalette::Dark), 0.4F);
    return {reacting(palette.color(QPalette::Button), option), line};
}

/// Down, or turned by so many degrees.
void drawChevron(QPainter& painter, const QRectF& place, const QColor& color, qreal turn = 0) {
    const QPointF middle;
    const qreal reach = 4;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center());
    painter.rotate(turn);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF({middle + QPointF(-reach, -reach / 2), middle + QPointF(0, reach / 2),
                   middle + QPointF(reach, -reach / 2)}));
    painter.restore();
}

void drawCheckMark(QPainter& painter, const QRectF& box, const QColor& color) {
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.32)}));
    painter.restore();
}

void drawDash(QPainter& painter, const QRectF& box, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
    const qreal reach = box.width() * 0.24;
    painter.drawLine(box.center() - QPointF(reach, 0), box.center() + QPointF(reach, 0));
    painter.restore();
}

void drawDot(QPainter& painter, const QRectF& box, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const qreal radius = box.width() * 0.2;
    painter.drawEllipse(box.center(), radius, radius);
    painter.restore();
}

struct Indicator {
    Box box;
    QColor mark;
};

Indicator indicatorOf(const QStyleOption& option) {
    const QPalette& palette = option.palette;
    const bool isEnabled = has(option, QStyle::State_Enabled);
    if (!has(option, QStyle::State_On) && !has(option, QStyle::State_NoChange)) {
        const QColor line = palette.color(isEnabled ? QPalette::Dark : QPalette::Mid);
        return {{reacting(palette.color(QPalette::Base), option), line}, {}};
    }
    QColor accent = palette.color(isEnabled ? QPalette::Highlight : QPalette::Dark);
    QColor mark = palette.color(QPalette::HighlightedText);
    // in a row that is selected
    if (has(option, QStyle::State_Selected)) std::swap(accent, mark);
    accent = reacting(accent, option);
    return {{accent, accent}, mark};
}

}  // namespace

bool IsAccented(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button && has(option, QStyle::State_Enabled) &&
           button->features.testFlag(QStyleOptionButton::DefaultButton);
}

void button(const QStyleOption& option, QPainter& painter) {
    drawBox(painter, option.rect, buttonBox(option));
    if (has(option, QStyle::State_HasFocus)) focus(option, painter);
}

void flatButton(const QStyleOption& option, QPainter& painter) {
    const bool reacts = has(option, QStyle::State_MouseOver) || has(option, QStyle::State_Sunken);
    if (!has(option, QStyle::State_Enabled) || !reacts) return;
    QColor fill = option.palette.color(QPalette::WindowText);
    fill.setAlphaF(has(option, QStyle::State_Sunken) ? 0.16F : 0.08F);
    drawBox(painter, option.rect, {fill, Qt::transparent});
}

void checkIndicator(const QStyleOption& option, QPainter& painter) {
    constexpr qreal radius = 4;
    const Indicator colors = indicatorOf(option);
    drawBox(painter, option.rect, colors.box, radius);
    if (has(option, QStyle::State_On)) drawCheckMark(painter, option.rect, colors.mark);
    if (has(option, QStyle::State_NoChange)) drawDash(painter, option.rect, colors.mark);
}

void radioIndicator(const QStyleOption& option, QPainter& painter) {
    const Indicator colors = indicatorOf(option);
    drawBox(painter, option.rect, colors.box, option.rect.width() / 2.0);
    if (has(option, QStyle::State_On)) drawDot(painter, option.rect, colors.mark);
}

void comboBox(const QStyleOptionComboBox& option, QPainter& painter) {
    drawBox(painter, option.rect, buttonBox(option));
    QRect arrow = option.rect;
    arrow.setLeft(arrow.right() - chevronWidth + 1);
    arrow = QStyle::visualRect(option.direction, option.rect, arrow);
    drawChevron(painter, arrow, option.palette.color(QPalette::PlaceholderText));
    if (has(option, QStyle::State_HasFocus)) focus(option, painter);
}

void field(const QStyleOption& option, QPainter& painter) {
    const QPalette& palette = option.palette;
    const bool isFocused = has(option, QStyle::State_HasFocus);
    drawBox(painter, option.rect,
            {palette.color(QPalette::Base),
             palette.color(isFocused ? QPalette::Highlight : QPalette::Dark)});
    if (isFocused) focus(option, painter);
}

void frame(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setPen(QPen(option.palette.color(QPalette::Mid), hairline));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(inside(option.rect));
    painter.restore();
    if (has(option, QStyle::State_HasFocus)) focus(option, painter);
}

void focus(const QStyleOption& option, QPainter& painter) {
    constexpr qreal pen = 2;
    if (!has(option, QStyle::State_KeyboardFocusChange)) return;
    const QColor color = option.palette.color(QPalette::Link);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, pen));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inside(option.rect, pen), spacing::radius, spacing::radius);
    painter.restore();
}

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
    constexpr int leastLength = 32;
    const bool isFlat = option.orientation == Qt::Horizontal;
    const QRect& groove = option.rect;
    const int whole = isFlat ? groove.width() : groove.height();
    const auto range = static_cast<qint64>(option.maximum) - option.minimum;
    const auto share =
        whole * static_cast<qint64>(option.pageStep) / std::max<qint64>(range + option.pageStep, 1);
    const int length =
        range > 0 ? std::clamp(static_cast<int>(share), std::min(leastLength, whole), whole)
                  : whole;
    const int start = QStyle::sliderPositionFromValue(
        option.minimum, option.maximum, option.sliderPosition, whole - length, option.upsideDown);
    const auto along = [&](int from, int to) {
        return isFlat ? QRect(groove.left() + from, groove.top(), to - from, groove.height())
                      : QRect(groove.left(), groove.top() + from, groove.width(), to - from);
    };
    switch (part) {
        case QStyle::SC_ScrollBarGroove:
            return groove;
        case QStyle::SC_ScrollBarSlider:
            return along(start, start + length);
        case QStyle::SC_ScrollBarSubPage:
            return along(0, start);
        case QStyle::SC_ScrollBarAddPage:
            return along(start + length, whole);
        default:
            return {};
    }
}

void scrollBar(const QStyleOptionSlider& option, QPainter& painter) {
    constexpr int margin = 3;
    painter.fillRect(option.rect, option.palette.color(QPalette::Base));
    if (option.maximum <= option.minimum) return;
    const QRect slider = scrollBarPart(option, QStyle::SC_ScrollBarSlider)
                             .adjusted(margin, margin, -margin, -margin);
    const bool reacts = has(option, QStyle::State_MouseOver) || has(option, QStyle::State_Sunken);
    const QColor color = option.palette.color(reacts ? QPalette::Dark : QPalette::Mid);
    drawBox(painter, slider, {color, color}, std::min(slider.width(), slider.height()) / 2.0);
}

void branch(const QStyleOption& option, QPainter& painter) {
    if (!has(option, QStyle::State_Children)) return;
    const QPalette::ColorRole role =
        has(option, QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::PlaceholderText;
    const qreal aside = option.direction == Qt::RightToLeft ? 90 : -90;
    drawChevron(painter, option.rect, option.palette.color(role),
                has(option, QStyle::State_Open) ? 0 : aside);
}

void tab(const QStyleOption& option, QPainter& painter) {
    constexpr int thick = 3;
    const bool isSelected = has(option, QStyle::State_Selected);
    if (has(option, QStyle::State_HasFocus)) {
        QStyleOption ring = option;
        ring.rect.adjust(spacing::usual, spacing::tight / 2, -spacing::usual, -spacing::tight);
        focus(ring, painter);
    }
    if (!isSelected && !has(option, QStyle::State_MouseOver)) return;
    QRect line = option.rect.adjusted(spacing::wide, 0, -spacing::wide, 0);
    line.setTop(line.bottom() - thick + 1);
    painter.fillRect(line, option.palette.color(isSelected ? QPalette::Highlight : QPalette::Mid));
}

void tabBase(const QStyleOption& option, QPainter& painter) {
    QRect line = option.rect;
    line.setTop(line.bottom());
    painter.fillRect(line, option.palette.color(QPalette::Mid));
}

void header(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(option.rect, option.palette.color(QPalette::AlternateBase));
    QRect line = option.rect;
    line.setTop(line.bottom());
    painter.fillRect(line, option.palette.color(QPalette::Mid));
}

void nothing(const QStyleOption& /*option*/, QPainter& /*painter*/) {}

}  // namespace orv::painting
