#include "qt/binding/LabelText.h"

#include "qt/binding/LinkedTextHtml.h"
#include "qt/binding/QtText.h"
#include "qt/binding/ShownText.h"

namespace orv {

LabelText::LabelText(QLabel& label, const QObject& receiver, const LinkOpener& open)
    : label_(&label),
      interaction_(label.textInteractionFlags() & ~Qt::LinksAccessibleByMouse),
      focus_(label.focusPolicy()) {
    label.setOpenExternalLinks(false);
    QObject::connect(&label, &QLabel::linkActivated, &receiver,
                     [open](const QString& address) { open(FromQt(address)); });
}

void LabelText::show(const LinkedText& text) {
    const bool hasLinks = !text.links.empty();
    const QString shown = hasLinks ? html(text) : ShownText(text.text);
    const Qt::TextFormat format = hasLinks ? Qt::RichText : Qt::PlainText;
    if (label_->text() == shown && label_->textFormat() == format) return;
    label_->setTextFormat(format);
    label_->setText(shown);
    allowInteraction(hasLinks);
}

QString LabelText::html(const LinkedText& text) const {
    const QPalette& palette = label_->palette();
    return LinkedTextHtml(text,
                          {palette.color(QPalette::Link), palette.color(label_->backgroundRole())});
}

void LabelText::allowInteraction(bool hasLinks) {
    constexpr Qt::TextInteractionFlags links =
        Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard;
    const Qt::TextInteractionFlags wanted = hasLinks ? interaction_ | links : interaction_;
    if (label_->textInteractionFlags() != wanted) label_->setTextInteractionFlags(wanted);
    label_->setFocusPolicy(hasLinks ? Qt::StrongFocus : focus_);
    if (label_->focusPolicy() == Qt::NoFocus) label_->clearFocus();
}

}  // namespace orv
