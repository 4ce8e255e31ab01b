#pragma once

#include <QLineEdit>

#include "qt/binding/LabelText.h"
#include "qt/binding/ViewBinding.h"
#include "qt/elements/NoticeStrip.h"

namespace orv {

class LabelBinding final : public ViewBinding<TextField, QLabel> {
 public:
    LabelBinding(FrameUpdates& updates, TextField& outlet, QLabel& label, const LinkOpener& open);

 private:
    void show() override;

    LabelText text_;
};

/// A notice that the person can put away until it says something else.
class NoticeBinding final : public ViewBinding<TextField, NoticeStrip> {
 public:
    NoticeBinding(FrameUpdates& updates, TextField& outlet, NoticeStrip& strip,
                  const LinkOpener& open);

 private:
    void show() override;

    LabelText text_;
    std::string dismissed_;
};

/// A text that the person edits.
class LineEditBinding final : public ViewBinding<TextField, QLineEdit> {
 public:
    LineEditBinding(FrameUpdates& updates, TextField& outlet, QLineEdit& edit);

 private:
    void show() override;

    std::size_t selections_;
};

}  // namespace orv
