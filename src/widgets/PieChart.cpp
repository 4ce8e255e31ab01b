#include "widgets/PieChart.h"

#include <algorithm>
#include <array>

#include "foundation/system/LocalizedString.h"
#include "foundation/system/Saturating.h"
#include "widgets/SizeText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;
using quelm::LocalizedText;

struct Words {
    LocalizedText label;
    // Of a sentence; none where the part never stands.
    LocalizedText beginning;
    LocalizedText continuation;
};
// in the order of the roles
constexpr std::array words = {
    Words{{"SpaceUsage.ThisComputer", "This computer"},
          {"SpaceUsage.ThisComputerFirst", "This computer %@"},
          {}},
    Words{{"SpaceUsage.OtherComputers", "Other computers"},
          {"SpaceUsage.OtherComputersFirst", "Other computers %@"},
          {"SpaceUsage.OtherComputersNext", "other computers %@"}},
    Words{{"SpaceUsage.Projects", "Projects"},
          {"SpaceUsage.ProjectsFirst", "Projects %@"},
          {"SpaceUsage.ProjectsNext", "projects %@"}},
    Words{{"SpaceUsage.Free", "Free"},
          {"SpaceUsage.FreeFirst", "Free %@ of %@"},
          {"SpaceUsage.FreeNext", "free %@ of %@"}},
    Words{{"SpaceUsage.OverQuota", "Over the quota"},
          {},
          {"SpaceUsage.OverQuotaNext", "%@ over the quota of %@"}},
    Words{{"SpaceUsage.Quota", "Quota"},
          {"SpaceUsage.UnlimitedFirst", "No limit"},
          {"SpaceUsage.UnlimitedNext", "no limit"}},
};

const Words& wordsOf(StorageRole role) {
    return words[static_cast<std::size_t>(role)];
}

struct Consumer {
    StorageRole role;
    std::int64_t StorageFigures::*bytes;
    /// Shows it without any bytes.
    bool StorageFigures::*enabled;
};
constexpr std::array consumers = {
    Consumer{StorageRole::ThisComputer, &StorageFigures::thisComputer,
             &StorageFigures::backupEnabled},
    Consumer{StorageRole::OtherComputers, &StorageFigures::otherComputers, nullptr},
    Consumer{StorageRole::Projects, &StorageFigures::projects, &StorageFigures::syncEnabled},
};

std::int64_t storedBytes(const StorageFigures& figures) {
    std::int64_t stored = 0;
    for (const Consumer& consumer : consumers)
        stored = quelm::SaturatingSum(stored, std::max<std::int64_t>(figures.*consumer.bytes, 0));
    return stored;
}

/// Appends a part to a sentence.
void say(std::string& sentence, const StoragePart& part, std::int64_t quota) {
    const Words& text = wordsOf(part.role);
    const auto& [key, defaultText] = sentence.empty() ? text.beginning : text.continuation;
    const std::string size = FileSizeString(part.bytes);
    const bool isOfQuota = part.role >= StorageRole::Free;
    const std::string said =
        isOfQuota ? FormatLocalizedString(key, defaultText, {size, FileSizeString(quota)})
                  : FormatLocalizedString(key, defaultText, {size});
    sentence = sentence.empty()
                   ? said
                   : FormatLocalizedString("SpaceUsage.List", "%@, %@", {sentence, said});
}

}  // namespace

std::vector<StoragePart> StorageParts(const StorageFigures& figures) {
    std::vector<StoragePart> parts;
    for (const auto& [role, bytes, enabled] : consumers) {
        const std::int64_t size = std::max<std::int64_t>(figures.*bytes, 0);
        if (size > 0 || (enabled != nullptr && figures.*enabled)) parts.push_back({role, size});
    }
    if (figures.quota > 0) {
        const std::int64_t stored = storedBytes(figures);
        parts.push_back(stored > figures.quota
                            ? StoragePart{StorageRole::OverQuota, stored - figures.quota}
                            : StoragePart{StorageRole::Free, figures.quota - stored});
    }
    return parts;
}

std::vector<PieSlice> PieSlices(const StorageFigures& figures) {
    std::vector<PieSlice> slices;
    double whole = 0;
    for (const auto& [role, bytes] : StorageParts(figures)) {
        if (role > StorageRole::Free) continue;
        slices.push_back({LabelOf(role), bytes, static_cast<double>(bytes), role});
        whole += static_cast<double>(bytes);
    }
    if (whole == 0) return {};
    for (PieSlice& slice : slices)
        slice.fraction /= whole;
    return slices;
}

bool IsOverQuota(const StorageFigures& figures) {
    return figures.quota > 0 && storedBytes(figures) > figures.quota;
}

std::string DescriptionInWords(const StorageFigures& figures) {
    std::string sentence;
    for (const StoragePart& part : StorageParts(figures))
        say(sentence, part, figures.quota);
    if (figures.quota == -1) say(sentence, {StorageRole::Quota, 0}, 0);
    if (!sentence.empty()) return sentence;
    return GetLocalizedString("SpaceUsage.Unknown", "It is not known what is stored");
}

std::string LabelOf(StorageRole role) {
    const LocalizedText& label = wordsOf(role).label;
    return GetLocalizedString(label.key, label.defaultText);
}

}  // namespace orv
