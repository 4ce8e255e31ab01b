#include "qt/binding/ButtonBindings.h"

#include <QSignalBlocker>
#include <QStringList>
#include <utility>

#include "qt/binding/Mnemonics.h"
#include "qt/binding/QtText.h"
#include "qt/binding/ShownText.h"

namespace orv {

namespace {

/// The interface file's title stands until the controller has another.
void takeTitle(Button& outlet, const QAbstractButton& button) {
    if (outlet.title().empty()) outlet.setTitle(FromQt(PlainTitle(button)));
}

bool showTitle(const Button& outlet, QAbstractButton& button) {
    const QString title = ShownLine(outlet.title());
    if (PlainTitle(button) == title) return false;
    SetPlainTitle(button, title);
    return true;
}

}  // namespace

ButtonBinding::ButtonBinding(FrameUpdates& updates, Button& outlet, QAbstractButton& button,
                             std::function<void()> titleChanged)
    : ViewBinding(updates, outlet, button), titleChanged_(std::move(titleChanged)) {
    takeTitle(outlet, button);
    QObject::connect(&button, &QAbstractButton::clicked, &receiver(),
                     [&outlet] { outlet.performClick(); });
}

void ButtonBinding::show() {
    if (showTitle(outlet(), widget())) titleChanged_();
}

CheckBoxBinding::CheckBoxBinding(FrameUpdates& updates, CheckBox& outlet, QAbstractButton& button,
                                 std::function<void()> titleChanged)
    : ViewBinding(updates, outlet, button), titleChanged_(std::move(titleChanged)) {
    takeTitle(outlet, button);
    QObject::connect(&button, &QAbstractButton::clicked, &receiver(),
                     [this](bool on) { clicked(on); });
}

void CheckBoxBinding::clicked(bool on) {
    mark();  // the button has moved already, and the outlet may stay as it is
    if (outlet().isHidden() || !outlet().isEnabled()) return;
    // what the person saw counts, even if the outlet has changed since the last frame
    outlet().setOn(!on);
    outlet().performClick();
}

void CheckBoxBinding::show() {
    widget().setChecked(outlet().isOn());
    if (showTitle(outlet(), widget())) titleChanged_();
}

PopUpBinding::PopUpBinding(FrameUpdates& updates, PopUpButton& outlet, QComboBox& box)
    : ViewBinding(updates, outlet, box) {
    QObject::connect(&box, &QComboBox::activated, &receiver(), [this](int index) {
        mark();
        this->outlet().choose(static_cast<std::size_t>(index));
    });
}

void PopUpBinding::show() {
    const QSignalBlocker silent(widget());
    showTitles();
    if (widget().property("hiddenWithOneItem").toBool() && outlet().titles().size() < 2) {
        widget().hide();
    }
    widget().setCurrentIndex(
        outlet().titles().empty() ? -1 : static_cast<int>(outlet().indexOfSelectedItem()));
}

void PopUpBinding::showTitles() {
    QStringList wanted;
    QStringList shown;
    for (const std::string& title : outlet().titles())
        wanted << ShownLine(title);
    for (int i = 0; i < widget().count(); ++i)
        shown << widget().itemText(i);
    if (wanted == shown) return;
    widget().clear();
    widget().addItems(wanted);
}

}  // namespace orv
