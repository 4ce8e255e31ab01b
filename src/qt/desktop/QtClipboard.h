#pragma once

#include "widgets/Clipboard.h"

namespace orv {

/// The desktop's clipboard.
class QtClipboard final : public Clipboard {
 public:
    void setText(const std::string& text) override;
};

}  // namespace orv
