#pragma once

#include "qt/binding/ViewBinding.h"
#include "qt/elements/ImageLabel.h"

namespace orv {

class Icons;

class ImageBinding final : public ViewBinding<ImageView, ImageLabel> {
 public:
    ImageBinding(FrameUpdates& updates, ImageView& outlet, ImageLabel& label, const Icons& icons);

 private:
    void show() override;

    const Icons* icons_;
};

}  // namespace orv
