#include "qt/SampleOutline.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace test_support {

SampleOutline::Node& SampleOutline::add(orv::OutlineCell cell, Node* parent) {
    Node* const around = parent ? parent : &root;
    Node& node = nodes_.emplace_back(Node{std::move(cell), {}, parent});
    around->children.push_back(&node);
    around->isExpandable = true;
    return node;
}

void SampleOutline::remove(Node& node) {
    Node* const around = node.parent ? node.parent : &root;
    std::erase(around->children, &node);
    removed_.insert(&node);
}

const SampleOutline::Node& SampleOutline::nodeOf(orv::OutlineItem item) const {
    if (!item) return root;
    if (removed_.contains(item)) throw std::logic_error("a row that has gone was asked about");
    return *static_cast<const Node*>(item);
}

SampleOutline::Node& SampleOutline::changeable(orv::OutlineItem item) {
    static_cast<void>(nodeOf(item));
    const auto found = std::ranges::find_if(nodes_, [item](const Node& n) { return &n == item; });
    return found != nodes_.end() ? *found : root;
}

std::size_t SampleOutline::numberOfChildrenOfItem(orv::OutlineItem item) const {
    return nodeOf(item).children.size();
}

orv::OutlineItem SampleOutline::childOfItem(std::size_t index, orv::OutlineItem item) const {
    ++childrenAsked;
    return nodeOf(item).children.at(index);
}

orv::OutlineItem SampleOutline::parentOfItem(orv::OutlineItem item) const {
    return nodeOf(item).parent;
}

std::size_t SampleOutline::indexOfItem(orv::OutlineItem item) const {
    const Node* const parent = nodeOf(item).parent;
    const auto& rows = parent ? parent->children : root.children;
    return static_cast<std::size_t>(std::ranges::find(rows, item) - rows.begin());
}

bool SampleOutline::isItemExpandable(orv::OutlineItem item) const {
    return nodeOf(item).isExpandable;
}

orv::OutlineCell SampleOutline::cellOfItem(orv::OutlineItem item) const {
    ++cellsAsked;
    return nodeOf(item).cell;
}

void SampleOutline::itemWillExpand(orv::OutlineItem item) {
    expanded.push_back(&nodeOf(item));
}

void SampleOutline::toggleItem(orv::OutlineItem item) {
    toggled.push_back(&nodeOf(item));
}

bool SampleOutline::takeShouldExpand(orv::OutlineItem item) {
    return nodeOf(item).shouldExpand && std::exchange(changeable(item).shouldExpand, false);
}

}  // namespace test_support
