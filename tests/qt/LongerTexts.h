#pragma once

#include <optional>
#include <string>
#include <vector>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/ApplicationBundle.h"
#include "support/TemporaryFolder.h"

namespace test_support {

/// The text as a translation that is 40 percent longer might be.
[[nodiscard]] inline std::string Longer(const std::string& text) {
    std::string more;
    while (more.size() * 10 < text.size() * 4)
        more += more.size() % 6 == 0 ? ' ' : 'o';
    return text + more;
}

/// A language in which every text is longer, in use while it exists.
class LongerTexts {
 public:
    LongerTexts() {
        const std::string english = quelm::FindResourcesFolder() + "/en.lproj/Localizable.strings";
        const auto read = quelm::ReadPropertyListFile(english);
        quelm::Dictionary texts;
        if (const auto* table = read.value ? read.value->asDictionary() : nullptr)
            for (const auto& [key, text] : *table)
                texts.set(key, Longer(text.asString() ? *text.asString() : ""));
        folder_.makeFile("en.lproj/Localizable.strings",
                         quelm::WritePropertyList(texts).value_or(""));
        bundle_.emplace(folder_.path(), std::vector<std::string>{"en"});
        quelm::SetApplicationBundle(&*bundle_);
    }
    LongerTexts(const LongerTexts&) = delete;
    LongerTexts& operator=(const LongerTexts&) = delete;
    ~LongerTexts() { quelm::SetApplicationBundle(nullptr); }

 private:
    TemporaryFolder folder_;
    std::optional<quelm::Bundle> bundle_;
};

}  // namespace test_support
