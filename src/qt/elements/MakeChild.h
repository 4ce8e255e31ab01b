#pragma once

#include <memory>
#include <utility>

namespace orv {

/// Makes an object that its parent, which stands last in its constructor, owns.
template <class Child, class Parent, class... More>
Child* MakeChild(Parent* parent, More&&... more) {
    return std::make_unique<Child>(std::forward<More>(more)..., parent).release();
}

}  // namespace orv
