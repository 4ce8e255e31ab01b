#include "qt/binding/TextBindings.h"

#include "qt/binding/QtText.h"

namespace orv {

LabelBinding::LabelBinding(FrameUpdates& updates, TextField& outlet, QLabel& label,
                           const LinkOpener& open)
    : ViewBinding(updates, outlet, label), text_(label, receiver(), open) {
    // the interface file's text stands until the controller has another
    if (outlet.stringValue().empty()) outlet.setStringValue(FromQt(label.text()));
}

void LabelBinding::show() {
    text_.show(outlet().text());
}

NoticeBinding::NoticeBinding(FrameUpdates& updates, TextField& outlet, NoticeStrip& strip,
                             const LinkOpener& open)
    : ViewBinding(updates, outlet, strip), text_(strip.label(), receiver(), open) {
    QObject::connect(&strip, &NoticeStrip::dismissed, &receiver(), [this] {
        dismissed_ = this->outlet().stringValue();
        mark();
    });
}

void NoticeBinding::show() {
    const std::string& text = outlet().stringValue();
    text_.show(outlet().text());
    if (text.empty() || text == dismissed_) widget().hide();
    if (outlet().isHidden()) dismissed_.clear();
}

LineEditBinding::LineEditBinding(FrameUpdates& updates, TextField& outlet, QLineEdit& edit)
    : ViewBinding(updates, outlet, edit), selections_(outlet.selections()) {
    QObject::connect(&edit, &QLineEdit::textEdited, &receiver(),
                     [&outlet](const QString& text) { outlet.enterText(FromQt(text)); });
}

void LineEditBinding::show() {
    const QString text = ToQt(outlet().stringValue());
    if (widget().text() != text) widget().setText(text);
    if (selections_ == outlet().selections()) return;
    selections_ = outlet().selections();
    widget().selectAll();
    widget().setFocus(Qt::OtherFocusReason);
}

}  // namespace orv
