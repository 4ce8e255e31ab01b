#include "foundation/system/SystemVersion.h"

#include <array>
#include <charconv>
#include <optional>
#include <string_view>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/AssignmentFile.h"

namespace quelm {

namespace {

struct Product {
    std::string name;
    std::string version;
};

std::string textOf(const Dictionary& dictionary, std::string_view key) {
    const Value* value = dictionary.find(key);
    const std::string* text = value != nullptr ? value->asString() : nullptr;
    return text != nullptr ? *text : "";
}

std::optional<Product> productFromPropertyList() {
    const auto list =
        ReadPropertyListFile("/System/Library/CoreServices/SystemVersion.plist").value;
    const Dictionary* keys = list ? list->asDictionary() : nullptr;
    if (keys == nullptr) return std::nullopt;
    return Product{textOf(*keys, "ProductName"), textOf(*keys, "ProductVersion")};
}

Product productFromOsRelease() {
    const auto text = [](std::string_view name) {
        return ReadAssignment("/etc/os-release", name).value_or("");
    };
    return {text("NAME"), text("VERSION_ID")};
}

std::optional<Product> readProduct() {
    Product product = productFromPropertyList().value_or(productFromOsRelease());
    if (product.name.empty() || product.version.empty()) return std::nullopt;
    return product;
}

std::optional<std::array<int, 3>> parseVersion(std::string_view text) {
    std::array<int, 3> version = {};
    for (int& part : version) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), part);
        if (error != std::errc()) return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (!text.starts_with('.')) break;
        text.remove_prefix(1);
    }
    return version;
}

}  // namespace

std::string GetSystemVersion() {
    const auto product = readProduct();
    return product ? product->name + " " + product->version : "<unknown>";
}

bool IsSystemVersion(int major, int minor, int bugfix) {
    const auto product = readProduct();
    const auto version = product ? parseVersion(product->version) : std::nullopt;
    return version && *version >= std::array{major, minor, bugfix};
}

}  // namespace quelm
