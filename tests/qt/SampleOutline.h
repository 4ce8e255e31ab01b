#pragma once

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "widgets/OutlineView.h"

namespace test_support {

/// A small tree in memory that counts what it is asked.
class SampleOutline final : public orv::OutlineDataSource {
 public:
    struct Node {
        orv::OutlineCell cell;
        std::vector<Node*> children{};
        Node* parent = nullptr;
        bool isExpandable = false;
        bool shouldExpand = false;
    };

    /// Below the top rows without a parent.
    Node& add(orv::OutlineCell cell, Node* parent = nullptr);
    /// Whoever asks about it from now on is wrong.
    void remove(Node& node);

    Node root;
    std::vector<const Node*> expanded;
    std::vector<const Node*> toggled;
    mutable std::size_t childrenAsked = 0;
    mutable std::size_t cellsAsked = 0;

    [[nodiscard]] std::size_t numberOfChildrenOfItem(orv::OutlineItem item) const override;
    [[nodiscard]] orv::OutlineItem childOfItem(std::size_t index,
                                               orv::OutlineItem item) const override;
    [[nodiscard]] orv::OutlineItem parentOfItem(orv::OutlineItem item) const override;
    [[nodiscard]] std::size_t indexOfItem(orv::OutlineItem item) const override;
    [[nodiscard]] bool isItemExpandable(orv::OutlineItem item) const override;
    [[nodiscard]] orv::OutlineCell cellOfItem(orv::OutlineItem item) const override;
    void itemWillExpand(orv::OutlineItem item) override;
    void toggleItem(orv::OutlineItem item) override;
    [[nodiscard]] bool takeShouldExpand(orv::OutlineItem item) override;

 private:
    [[nodiscard]] const Node& nodeOf(orv::OutlineItem item) const;
    [[nodiscard]] Node& changeable(orv::OutlineItem item);

    std::deque<Node> nodes_;
    std::set<const void*> removed_;
};

}  // namespace test_support
