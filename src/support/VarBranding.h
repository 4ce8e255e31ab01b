#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Value.h"
#include "support/BrandImages.h"
#include "support/InterfaceElement.h"
#include "support/StyledText.h"
#include "support/TextVariables.h"
#include "widgets/HexColor.h"

namespace orv {

/// The brand under which the product shows itself: what its variables mean, its images and colours.
/// Main thread only.
class orv_VarBranding {
 public:
    /// The shared one, made and loaded on first use.
    [[nodiscard]] static std::shared_ptr<orv_VarBranding> instance();
    /// Merges into the branding file and drops the shared one, so that the next request loads it
    /// anew. False when the file cannot be written.
    static bool storeParams(const quelm::Dictionary& params);
    /// The long name of the service.
    [[nodiscard]] static std::string createLoftmereFolderString();

    /// The built-in brand, which has no images and no colours.
    orv_VarBranding();

    /// Takes over the branding file; without one nothing changes. Sets the application names, and
    /// the name of the web server where the file has one.
    void load();

    /// Empty for none.
    [[nodiscard]] std::string processString(const std::optional<std::string>& text) const;
    void processAttributedString(StyledText& text) const;
    /// Rewrites an interface tree.
    void process(InterfaceElement& element) const;

    [[nodiscard]] const BrandImageTable& images() const { return _images; }
    [[nodiscard]] const std::optional<HexColor>& headerTextColor() const {
        return _headerTextColor;
    }
    [[nodiscard]] const std::optional<HexColor>& headerTextBgColor() const {
        return _headerTextBgColor;
    }

 private:
    TextVariables _strings;
    BrandImageTable _images;
    std::optional<HexColor> _headerTextColor;
    std::optional<HexColor> _headerTextBgColor;
};

/// The text in the shared brand: the hook for lower rooms.
[[nodiscard]] std::string BrandText(const std::string& text);

}  // namespace orv
