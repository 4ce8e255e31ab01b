#include "backup/scanner/ExcludePreview.h"

#include "accounts/filters/FilenameFilter.h"
#include "foundation/system/Saturating.h"

namespace orv {

namespace {

/// How many names are compared between two looks at whether to stop.
constexpr std::size_t namesAtOnce = 4'096;

class Previewer {
 public:
    Previewer(const std::string& pattern, std::size_t mostMatches, const std::stop_token& stop)
        : filter_(pattern.c_str(), FILTER_EXCLUDED), mostMatches_(mostMatches), stop_(stop) {}

    /// False once it is to stop.
    bool add(const ScannedFiles& files) {
        for (const auto [name, size] : files) {
            if (compared_++ % namesAtOnce == 0 && stop_.stop_requested()) return false;
            if (filter_.isIncluded(name.data(), static_cast<std::uint32_t>(name.size())))
                count(name, size, files.folder());
        }
        return true;
    }

    [[nodiscard]] ExcludePreview take() { return std::move(preview_); }

 private:
    void count(std::string_view name, std::uint64_t size, const std::string& folder) {
        ++preview_.files;
        preview_.bytes = quelm::SaturatingTotal(preview_.bytes, size);
        if (preview_.first.size() < mostMatches_)
            preview_.first.push_back({std::string(name), size, folder});
    }

    const orv_FilenameFilter filter_;
    const std::size_t mostMatches_;
    const std::stop_token& stop_;
    std::size_t compared_ = 0;
    ExcludePreview preview_;
};

}  // namespace

std::optional<ExcludePreview> PreviewExclude(
    const std::string& pattern, const std::vector<std::shared_ptr<const ScannedFiles>>& folders,
    std::size_t mostMatches, const std::stop_token& stop) {
    Previewer previewer(pattern, mostMatches, stop);
    for (const auto& files : folders) {
        if (!previewer.add(*files)) return std::nullopt;
    }
    return previewer.take();
}

}  // namespace orv
