#include "support/BrandImages.h"

#include <algorithm>
#include <array>

#include "foundation/system/Log.h"
#include "support/BrandingInfo.h"

namespace orv {

namespace {

constexpr const char* bannerName = "banner-background";
constexpr int bannerTag = 12;

struct ImageRow {
    const char* key;
    const char* name;
    std::optional<int> tag;
};

constexpr std::array images = {ImageRow{"logo_bitmap_url", "logo", 10},
                               ImageRow{"loftmere_folder_icon_url", "loftmere_logo", std::nullopt}};

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
    const bool begins = text.size() >= prefix.size() &&
                        std::equal(prefix.begin(), prefix.end(), text.begin(),
                                   [](char wanted, char given) { return wanted == lower(given); });
    if (begins) text.remove_prefix(prefix.size());
    return begins;
}

void add(BrandImageTable& table, const BrandImage& image, std::optional<int> tag) {
    table[image.name] = image;
    if (tag) table[*tag] = image;
}

}  // namespace

bool IsImageAddress(std::string_view address) {
    constexpr std::size_t mostBytes = 2048;
    const bool isPlain = std::all_of(address.begin(), address.end(), [](unsigned char c) {
        return c > ' ' && c != 0x7F && c != '"' && c != '<' && c != '>' && c != '\\';
    });
    if (!isPlain || address.size() > mostBytes) return false;
    if (takePrefix(address, "file://")) {
        takePrefix(address, "localhost");
        return address.size() > 1 && address[0] == '/';
    }
    if (!takePrefix(address, "https://") && !takePrefix(address, "http://")) return false;
    constexpr std::string_view noHost = "/?#:@";
    return !address.empty() && noHost.find(address[0]) == noHost.npos;
}

BrandImageTable BrandImages(const quelm::Dictionary& info,
                            const std::optional<HexColor>& headerBackground) {
    BrandImageTable table;
    for (const auto& [key, name, tag] : images) {
        const std::string address = BrandingText(info, key);
        if (IsImageAddress(address)) {
            add(table, {name, address}, tag);
        } else if (!address.empty()) {
            quelm::LogWarning(std::string("The branding file's \"") + key +
                              "\" is no address of a picture: " + address +
                              ". Write one that begins with https:// or file:///.");
        }
    }
    if (headerBackground) {
        add(table, {bannerName, FilledRectangle{560, 65, *headerBackground}}, bannerTag);
    }
    return table;
}

}  // namespace orv
