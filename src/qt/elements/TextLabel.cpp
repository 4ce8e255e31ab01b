#include "qt/elements/TextLabel.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "qt/binding/ShownText.h"
#include "qt/looks/StatusColors.h"

namespace orv {

namespace {

struct Tone {
    const char* name;
    qreal size;
    QFont::Weight weight;
    QPalette::ColorRole role;
};

/// Why what was entered is not accepted.
constexpr const char* refused = "refused";

constexpr auto tones = std::to_array<Tone>({
    {"muted", 1.0, QFont::Normal, QPalette::PlaceholderText},
    {"strong", 1.0, QFont::DemiBold, QPalette::WindowText},
    {"section", 1.1, QFont::DemiBold, QPalette::WindowText},
    {"headline", 1.6, QFont::DemiBold, QPalette::WindowText},
    {refused, 1.0, QFont::Normal, QPalette::WindowText},
});

QFont scaled(QFont font, qreal size) {
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * size);
    } else {
        font.setPixelSize(static_cast<int>(font.pixelSize() * size));
    }
    return font;
}

}  // namespace

void TextLabel::setTone(const QString& tone) {
    const auto found = std::ranges::find_if(
        tones, [&tone](const Tone& each) { return tone == QLatin1String(each.name); });
    if (found == tones.end() || tone == tone_) return;
    tone_ = tone;
    QFont font = scaled(this->font(), found->size);
    font.setWeight(found->weight);
    setFont(font);
    setForegroundRole(found->role);
    if (found->name != refused) return;
    QPalette own = palette();
    own.setColor(found->role, StatusColor(Status::Refused, own));
    setPalette(own);
}

bool TextLabel::mayBeCut() const {
    return !cut_.isEmpty() && !wordWrap() && textFormat() != Qt::RichText;
}

QString TextLabel::shownText() const {
    const Qt::TextElideMode mode =
        cut_ == QLatin1String("middle") ? Qt::ElideMiddle : Qt::ElideRight;
    return fontMetrics().elidedText(text(), mode, contentsRect().width());
}

QSize TextLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    if (!mayBeCut()) return whole;
    constexpr int leastCharacters = 10;
    const int least = fontMetrics().averageCharWidth() * leastCharacters;
    return {std::min(whole.width(), least), whole.height()};
}

void TextLabel::paintEvent(QPaintEvent* event) {
    if (!mayBeCut()) {
        QLabel::paintEvent(event);
    } else {
        QPainter painter(this);
        style()->drawItemText(&painter, contentsRect(), int(alignment() | Qt::TextSingleLine),
                              palette(), isEnabled(), shownText(), foregroundRole());
    }
    if (!hasFocus() || textFormat() == Qt::RichText) return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void TextLabel::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (textFormat() != Qt::RichText) return;
    if (event->reason() == Qt::TabFocusReason) focusNextPrevChild(true);
    if (event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(false);
}

bool TextLabel::event(QEvent* event) {
    const bool tellsWhole = event->type() == QEvent::ToolTip && toolTip().isEmpty() && mayBeCut() &&
                            shownText() != text();
    if (!tellsWhole) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainToolTip(text()), this);
    return true;
}

}  // namespace orv
