#pragma once

#include <cstddef>

#include "support/InterfaceElement.h"
#include "support/VarBranding.h"

namespace orv {

/// Takes one brand through interface trees.
class InterfaceBranding {
 public:
    explicit InterfaceBranding(const orv_VarBranding& brand) : brand_(&brand) {}

    /// Rewrites the element and what belongs to it, down to 128 levels.
    void apply(InterfaceElement& element) { apply(element, 0); }

 private:
    void apply(InterfaceElement& element, std::size_t depth);
    void applyText(InterfaceElement& element) const;
    void applyTextColor(InterfaceElement& element) const;
    void applyStyledText(InterfaceElement& element) const;
    void applyImage(InterfaceElement& element) const;

    const orv_VarBranding* brand_;
};

}  // namespace orv
