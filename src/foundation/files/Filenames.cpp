#include "foundation/files/Filenames.h"

#include <cstdlib>
#include <fcntl.h>
#include <fmt/format.h>
#include <memory>
#include <random>
#include <sys/stat.h>
#include <utf8proc.h>

#include "foundation/files/Existence.h"
#include "foundation/files/FileIo.h"

namespace quelm {

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Letters and digits without "l", which is easily taken for "1".
constexpr std::string_view nameAlphabet = "0123456789abcdefghijkmnopqrstuvwxyz";
constexpr int attempts = 100;

std::string randomText(std::size_t length, std::string_view alphabet) {
    static thread_local std::mt19937 generator{std::random_device{}()};
    std::uniform_int_distribution<std::size_t> position(0, alphabet.size() - 1);
    std::string text(length, ' ');
    for (char& c : text)
        c = alphabet[position(generator)];
    return text;
}

}  // namespace

bool IsPlainFilename(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == name.npos;
}

std::string_view GetFilenameExtension(std::string_view name) {
    if (name.size() < 3) return {};
    for (std::size_t i = name.size(); i-- > 0;) {
        if (isSpace(name[i])) return {};
        if (name[i] == '.') {
            return i > 0 && i + 1 < name.size() ? name.substr(i + 1) : std::string_view();
        }
    }
    return {};
}

std::string CreateTempFilename() {
    constexpr std::string_view uniquePart = "XXXXXXXXXXXX";
    for (int i = 0; i < attempts; ++i) {
        std::string path = "/var/tmp/";
        path += randomText(uniquePart.size(), nameAlphabet);
        if (!IsNameTaken(path)) return path;
    }
    return {};
}

namespace os {

std::string FilenameConvert(const std::string& name) {
    utf8proc_uint8_t* mapped = nullptr;
    const auto length =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(name.data()),
                     static_cast<utf8proc_ssize_t>(name.size()), &mapped,
                     static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
    if (length < 0) return name;
    return {reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(length)};
}

std::string ValidFilename(const std::string& name) {
    std::string valid = FilenameConvert(name);
    if (valid.starts_with('.')) valid.front() = '_';
    for (char& c : valid) {
        if (c == '/' || c == '\0') c = '_';
    }
    return valid;
}

std::string GenerateFilename(const std::string& folder, std::size_t length,
                             const std::string& suffix) {
    for (int i = 0; i < attempts; ++i) {
        std::string name = randomText(length, nameAlphabet) + suffix;
        const FileDescriptor created(open(fmt::format("{}/{}", folder, name).c_str(),
                                          O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (created) return name;
    }
    return {};
}

}  // namespace os

}  // namespace quelm
