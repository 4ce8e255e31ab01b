#include "qt/elements/NoticeStrip.h"

#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QToolButton>

#include "foundation/system/LocalizedString.h"
#include "qt/binding/QtText.h"
#include "qt/elements/ImageLabel.h"
#include "qt/elements/MakeChild.h"
#include "qt/elements/TextLabel.h"
#include "qt/looks/Icons.h"
#include "qt/looks/Spacing.h"
#include "qt/looks/StatusColors.h"

namespace orv {

namespace {

QToolButton* makeCloseButton(QWidget* parent) {
    auto* close = MakeChild<QToolButton>(parent);
    const QString text = ToQt(quelm::GetLocalizedString("PrefPane.DismissNotice", "Dismiss"));
    close->setAutoRaise(true);
    close->setText(QString(QChar(0x00D7)));
    close->setToolTip(text);
    close->setAccessibleName(text);
    close->setFocusPolicy(Qt::StrongFocus);
    return close;
}

}  // namespace

NoticeStrip::NoticeStrip(QWidget* parent)
    : QFrame(parent), image_(MakeChild<ImageLabel>(this)), label_(MakeChild<TextLabel>(this)) {
    image_->setMinimumSize(spacing::smallIcon, spacing::smallIcon);
    label_->setWordWrap(true);
    QToolButton* close = makeCloseButton(this);
    auto* layout = MakeChild<QHBoxLayout>(this);
    layout->setContentsMargins(spacing::wide, spacing::tight, spacing::usual, spacing::tight);
    layout->addWidget(image_, 0, Qt::AlignTop);
    layout->addWidget(label_, 1);
    layout->addWidget(close, 0, Qt::AlignTop);
    connect(close, &QToolButton::clicked, this, &NoticeStrip::dismissed);
}

void NoticeStrip::setIcons(const Icons& icons) {
    const QString name = QStringLiteral("warning");
    image_->setImage(name, icons.icon(name));
}

void NoticeStrip::paintEvent(QPaintEvent* event) {
    constexpr int thick = 3;
    QColor color = StatusColor(Status::Notice, palette());
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, thick, height()), color);
    color.setAlphaF(0.14F);
    painter.fillRect(event->rect(), color);
}

}  // namespace orv
