#include <cerrno>
#include <dirent.h>
#include <memory>
#include <optional>
#include <pcrecpp.h>
#include <string_view>

#include "foundation/files/Folders.h"

namespace quelm::os {

namespace {

// A name has at most 255 bytes; a pattern that needs more work than this on one is malicious or
// broken, and counts as not matching.
constexpr int matchLimit = 100'000;
constexpr int recursionLimit = 2'000;

pcrecpp::RE compile(const std::string& pattern) {
    pcrecpp::RE_Options options;
    options.set_match_limit(matchLimit).set_match_limit_recursion(recursionLimit);
    return {pattern, options};
}

}  // namespace

EStatusCode ListFolderEntries(std::set<std::string>& names, const std::string& folder,
                              const std::string& pattern) {
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), &closedir);
    if (!stream) return StatusCodeForErrno(errno);

    std::optional<pcrecpp::RE> expression;
    if (!pattern.empty()) {
        expression.emplace(compile(pattern));
        if (!expression->error().empty()) return EStatusCode::FAILURE;
    }
    while (const dirent* entry = readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (!expression || expression->PartialMatch(entry->d_name)) names.emplace(name);
    }
    return EStatusCode::SUCCESS;
}

}  // namespace quelm::os
