#include "qt/binding/OutlineBinding.h"

namespace orv {

OutlineBinding::OutlineBinding(FrameUpdates& updates, OutlineView& outlet, OutlineTree& tree,
                               const Icons& icons)
    : ViewBinding(updates, outlet, tree) {
    tree.setOutlet(&outlet, &icons);
    QObject::connect(&tree, &OutlineTree::selectedItemChanged, &receiver(),
                     [this] { selectionMoved(); });
}

OutlineBinding::~OutlineBinding() {
    QObject::disconnect(&widget(), nullptr, &receiver(), nullptr);
    widget().setOutlet(nullptr, nullptr);
}

void OutlineBinding::selectionMoved() {
    const OutlineItem item = widget().selectedItem();
    // a row that goes takes no other selection with it
    const bool hasOther = outlet().selectedItem() != agreed_;
    if (item == agreed_ || (!item && hasOther)) return;
    agreed_ = item;
    outlet().selectItem(item);
}

void OutlineBinding::show() {
    widget().refresh();
    if (outlet().selectedItem() == agreed_) return;
    agreed_ = outlet().selectedItem();
    widget().selectItem(agreed_);
}

}  // namespace orv
