#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <functional>

#include "qt/binding/ViewBinding.h"

namespace orv {

/// A push button or a tool button.
class ButtonBinding final : public ViewBinding<Button, QAbstractButton> {
 public:
    /// `titleChanged` is told when mnemonics have to be assigned anew.
    ButtonBinding(FrameUpdates& updates, Button& outlet, QAbstractButton& button,
                  std::function<void()> titleChanged);

 private:
    void show() override;

    std::function<void()> titleChanged_;
};

class CheckBoxBinding final : public ViewBinding<CheckBox, QAbstractButton> {
 public:
    CheckBoxBinding(FrameUpdates& updates, CheckBox& outlet, QAbstractButton& button,
                    std::function<void()> titleChanged);

 private:
    void show() override;
    void clicked(bool on);

    std::function<void()> titleChanged_;
};

/// A list of titles to choose from, also hidden while there is nothing to choose.
class PopUpBinding final : public ViewBinding<PopUpButton, QComboBox> {
 public:
    PopUpBinding(FrameUpdates& updates, PopUpButton& outlet, QComboBox& box);

 private:
    void show() override;
    void showTitles();
};

}  // namespace orv
