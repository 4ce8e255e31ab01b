#include "platform/Value.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>

namespace quelm {

namespace {

bool keyBelow(const DictionaryEntry& entry, std::string_view key) {
    return entry.key < key;
}

auto lowerBound(auto& entries, std::string_view key) {
    return std::lower_bound(entries.begin(), entries.end(), key, keyBelow);
}

bool keyLess(const DictionaryEntry& left, const DictionaryEntry& right) {
    return left.key < right.key;
}

void keepLastOfEachKey(std::vector<DictionaryEntry>& entries) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i + 1 < entries.size() && entries[i].key == entries[i + 1].key) continue;
        if (kept != i) entries[kept] = std::move(entries[i]);
        ++kept;
    }
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(kept), entries.end());
}

bool strictlyAscending(const std::vector<DictionaryEntry>& entries) {
    return std::adjacent_find(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
               return !keyLess(a, b);
           }) == entries.end();
}

}  // namespace

Dictionary::Dictionary() = default;
Dictionary::Dictionary(std::initializer_list<DictionaryEntry> entries)
    : Dictionary(std::vector<DictionaryEntry>(entries)) {}
Dictionary::Dictionary(std::vector<DictionaryEntry>&& entries) : entries_(std::move(entries)) {
    if (strictlyAscending(entries_)) return;
    std::stable_sort(entries_.begin(), entries_.end(), keyLess);
    keepLastOfEachKey(entries_);
}
Dictionary::Dictionary(const Dictionary&) = default;
Dictionary::Dictionary(Dictionary&&) noexcept = default;
Dictionary& Dictionary::operator=(const Dictionary&) = default;
Dictionary& Dictionary::operator=(Dictionary&&) noexcept = default;
Dictionary::~Dictionary() = default;

const Value* Dictionary::find(std::string_view key) const {
    const auto found = lowerBound(entries_, key);
    return found != entries_.end() && found->key == key ? &found->value : nullptr;
}

Value* Dictionary::find(std::string_view key) {
    const auto found = lowerBound(entries_, key);
    return found != entries_.end() && found->key == key ? &found->value : nullptr;
}

void Dictionary::set(std::string_view key, Value value) {
    const auto place = lowerBound(entries_, key);
    if (place != entries_.end() && place->key == key) {
        place->value = std::move(value);
    } else {
        entries_.insert(place, DictionaryEntry{std::string(key), std::move(value)});
    }
}

void Dictionary::erase(std::string_view key) {
    const auto found = lowerBound(entries_, key);
    if (found != entries_.end() && found->key == key) entries_.erase(found);
}

std::size_t Dictionary::size() const {
    return entries_.size();
}
Dictionary::const_iterator Dictionary::begin() const {
    return entries_.begin();
}
Dictionary::const_iterator Dictionary::end() const {
    return entries_.end();
}
bool Dictionary::operator==(const Dictionary& other) const {
    return entries_ == other.entries_;
}

std::string_view TypeName(Value::Type type) {
    static constexpr std::array<std::string_view, 8> names = {
        "boolean", "integer", "real", "string", "data", "date", "array", "dictionary"};
    return names.at(static_cast<std::size_t>(type));
}

namespace {

void printHex(std::ostream& out, const std::string& bytes) {
    static constexpr std::string_view digits = "0123456789abcdef";
    out << '<';
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out << digits[byte >> 4U] << digits[byte & 15U];
    }
    out << '>';
}

void printArray(std::ostream& out, const Array& array) {
    out << '[';
    const char* separator = "";
    for (const Value& item : array) {
        out << separator << item;
        separator = ", ";
    }
    out << ']';
}

void printDictionary(std::ostream& out, const Dictionary& dictionary) {
    out << '{';
    const char* separator = "";
    for (const auto& [key, value] : dictionary) {
        out << separator << std::quoted(key) << ": " << value;
        separator = ", ";
    }
    out << '}';
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Value& value) {
    switch (value.type()) {
        case Value::Type::Boolean:
            out << (*value.asBoolean() ? "true" : "false");
            break;
        case Value::Type::Integer:
            out << *value.asInteger();
            break;
        case Value::Type::Real:
            out << *value.asReal();
            break;
        case Value::Type::String:
            out << std::quoted(*value.asString());
            break;
        case Value::Type::Data:
            printHex(out, value.asData()->bytes);
            break;
        case Value::Type::Date:
            out << '@' << value.asDate()->secondsSince1970;
            break;
        case Value::Type::Array:
            printArray(out, *value.asArray());
            break;
        case Value::Type::Dictionary:
            printDictionary(out, *value.asDictionary());
            break;
    }
    return out;
}

}  // namespace quelm
