#include "qt/binding/Bindings.h"

#include <QLabel>

#include "qt/binding/BusyBinding.h"
#include "qt/binding/ButtonBindings.h"
#include "qt/binding/DialogBinding.h"
#include "qt/binding/ImageBinding.h"
#include "qt/binding/Mnemonics.h"
#include "qt/binding/OutlineBinding.h"
#include "qt/binding/TabBinding.h"
#include "qt/binding/TableBinding.h"
#include "qt/binding/TextBindings.h"

namespace orv {

Bindings::Bindings(const WindowContext& context, QWidget& window)
    : context_(&context), mnemonics_(context.updates, window) {
    for (QLabel* label : window.findChildren<QLabel*>())
        if (label->buddy()) labels_.insert(label->buddy(), label);
    mnemonics_.titleChanged();
}

Bindings::~Bindings() = default;

void Bindings::MnemonicUpdate::apply() {
    AssignMnemonics(*window_);
}

std::function<void()> Bindings::titleChanged() {
    return [this] { mnemonics_.titleChanged(); };
}

void Bindings::bind(TextField& outlet, QLabel* label) {
    add<LabelBinding>(outlet, *label, context_->openAddress);
}

void Bindings::bind(TextField& outlet, QLineEdit* edit) {
    add<LineEditBinding>(outlet, *edit);
}

void Bindings::bind(TextField& outlet, NoticeStrip* strip) {
    add<NoticeBinding>(outlet, *strip, context_->openAddress);
}

void Bindings::bind(Button& outlet, QAbstractButton* button) {
    add<ButtonBinding>(outlet, *button, titleChanged());
}

void Bindings::bind(CheckBox& outlet, QAbstractButton* button) {
    add<CheckBoxBinding>(outlet, *button, titleChanged());
}

void Bindings::bind(PopUpButton& outlet, QComboBox* box) {
    add<PopUpBinding>(outlet, *box);
}

void Bindings::bind(ImageView& outlet, ImageLabel* label) {
    add<ImageBinding>(outlet, *label, context_->icons);
}

void Bindings::bind(TabView& outlet, QTabWidget* tabs) {
    add<TabBinding>(outlet, *tabs, titleChanged());
}

void Bindings::bind(TableView& outlet, RowTable* table) {
    add<TableBinding>(outlet, *table);
}

void Bindings::bind(OutlineView& outlet, OutlineTree* tree) {
    add<OutlineBinding>(outlet, *tree, context_->icons);
}

void Bindings::bind(ProgressIndicator& outlet, BusyIndicator* indicator) {
    add<BusyBinding>(outlet, *indicator);
}

void Bindings::bind(DialogWindow& outlet, QDialog* dialog) {
    add<DialogBinding>(outlet, *dialog);
}

}  // namespace orv
