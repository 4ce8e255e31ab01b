#include "backup/scanner/ScannedFiles.h"

#include <array>

namespace orv {

namespace {

// A number is written in groups of seven bits, the lowest first; all but the last have the high
// bit set.
constexpr unsigned groupBits = 7;
constexpr std::uint64_t more = 1U << groupBits;

/// Bytes that a number takes at most.
constexpr std::size_t longestNumber = 10;

/// Answers what is behind it.
char* packNumber(char* at, std::uint64_t number) {
    for (; number >= more; number >>= groupBits)
        *at++ = static_cast<char>((number & (more - 1)) | more);
    *at++ = static_cast<char>(number);
    return at;
}

std::uint64_t unpackNumber(const char*& at) {
    std::uint64_t number = 0;
    for (unsigned shift = 0;; shift += groupBits) {
        const auto byte = static_cast<unsigned char>(*at++);
        number |= (byte & (more - 1)) << shift;
        if ((byte & more) == 0) return number;
    }
}

/// Moves behind the file.
ScannedFiles::File unpack(const char*& at) {
    const std::uint64_t size = unpackNumber(at);
    const std::uint64_t length = unpackNumber(at);
    const std::string_view name(at, length);
    at += length;
    return {name, size};
}

}  // namespace

void ScannedFiles::pack(std::string& packed, std::string_view name, std::uint64_t size) {
    std::array<char, 2 * longestNumber> numbers{};
    char* const end = packNumber(packNumber(numbers.data(), size), name.size());
    packed.append(numbers.data(), end).append(name);
}

ScannedFiles::File ScannedFiles::Iterator::operator*() const {
    const char* at = at_;
    return unpack(at);
}

ScannedFiles::Iterator& ScannedFiles::Iterator::operator++() {
    unpack(at_);
    return *this;
}

}  // namespace orv
