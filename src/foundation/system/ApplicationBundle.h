#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Value.h"

namespace quelm {

/// A folder of resources: one "<language>.lproj" folder of text tables a language, beside images
/// and interface files. Immutable; any thread.
class Bundle {
 public:
    /// `languages` in order of preference ("de_DE", "de"); English stands behind them.
    Bundle(std::string resourcesFolder, const std::vector<std::string>& languages);

    [[nodiscard]] const std::string& resourcesFolder() const { return resourcesFolder_; }

    /// The text under `key` in "<table>.strings" of the first language that has it; none without.
    [[nodiscard]] const std::string* localizedString(std::string_view key,
                                                     std::string_view table) const;

 private:
    struct Table {
        std::string name;
        Dictionary texts;
    };
    void load(const std::string& language);

    std::string resourcesFolder_;
    std::vector<Table> tables_;
};

/// The languages of the environment (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), each followed by its
/// form without the country.
[[nodiscard]] std::vector<std::string> PreferredLanguages();

/// The bundle that texts, images and interface files are taken from; set once when the program
/// starts, before the first thread, and not owned. Null before.
void SetApplicationBundle(const Bundle* bundle);
[[nodiscard]] const Bundle* getBundle();

/// The folder of resources that belongs to the running program: "Contents/Resources" in the
/// application that TIDEWELL_APPLICATION names, else "share/tidewell" beside the program's own
/// folder.
[[nodiscard]] std::string FindResourcesFolder();

}  // namespace quelm
