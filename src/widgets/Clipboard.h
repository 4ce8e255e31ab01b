#pragma once

#include <string>

namespace orv {

/// What is copied, to be pasted elsewhere. Main thread only.
class Clipboard {
 public:
    virtual ~Clipboard() = default;
    /// Replaces what was there.
    virtual void setText(const std::string& text) = 0;
};

}  // namespace orv
