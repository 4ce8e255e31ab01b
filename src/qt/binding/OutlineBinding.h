#pragma once

#include "qt/binding/ViewBinding.h"
#include "qt/elements/OutlineTree.h"
#include "widgets/OutlineView.h"

namespace orv {

class OutlineBinding final : public ViewBinding<OutlineView, OutlineTree> {
 public:
    OutlineBinding(FrameUpdates& updates, OutlineView& outlet, OutlineTree& tree,
                   const Icons& icons);
    ~OutlineBinding() override;

 private:
    void show() override;
    void selectionMoved();

    /// What both sides have selected.
    OutlineItem agreed_ = nullptr;
};

}  // namespace orv
