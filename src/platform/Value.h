#pragma once

#include <concepts>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quelm {

class Value;
struct DictionaryEntry;

using Array = std::vector<Value>;

/// Bytes of any content.
struct Data {
    std::string bytes;
    bool operator==(const Data&) const = default;
};

/// A point in time, in seconds since 1970-01-01T00:00:00Z, fractions allowed.
struct Date {
    double secondsSince1970 = 0;
    bool operator==(const Date&) const = default;
};

/// Values under unique keys, kept sorted by key (bytewise), so that the same content is always
/// written the same way. Pointers and iterators are valid until the next change.
class Dictionary {
 public:
    using const_iterator = std::vector<DictionaryEntry>::const_iterator;

    Dictionary();
    Dictionary(std::initializer_list<DictionaryEntry> entries);
    /// Takes entries in any order; of entries with one key the last wins.
    explicit Dictionary(std::vector<DictionaryEntry>&& entries);
    Dictionary(const Dictionary&);
    Dictionary(Dictionary&&) noexcept;
    Dictionary& operator=(const Dictionary&);
    Dictionary& operator=(Dictionary&&) noexcept;
    ~Dictionary();

    [[nodiscard]] const Value* find(std::string_view key) const;
    [[nodiscard]] Value* find(std::string_view key);
    void set(std::string_view key, Value value);
    void erase(std::string_view key);

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool empty() const { return size() == 0; }
    [[nodiscard]] const_iterator begin() const;
    [[nodiscard]] const_iterator end() const;

    bool operator==(const Dictionary& other) const;

 private:
    std::vector<DictionaryEntry> entries_;
};

/// A property value: what property files hold and what crosses the ports. Copies are deep.
/// Booleans are never numbers, and an integer never equals a real.
class Value {
 public:
    enum class Type { Boolean, Integer, Real, String, Data, Date, Array, Dictionary };

    Value() : content_(false) {}
    Value(bool value) : content_(value) {}
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool>) Value(Integer value)
        : content_(static_cast<std::int64_t>(value)) {}
    Value(double value) : content_(value) {}
    Value(std::string value) : content_(std::move(value)) {}
    Value(std::string_view value) : content_(std::string(value)) {}
    Value(const char* value) : content_(std::string(value)) {}
    Value(Data value) : content_(std::move(value)) {}
    Value(Date value) : content_(value) {}
    Value(Array value) : content_(std::move(value)) {}
    Value(Dictionary value) : content_(std::move(value)) {}

    [[nodiscard]] Type type() const { return static_cast<Type>(content_.index()); }

    // Each answers null when the value is of another type.
    [[nodiscard]] const bool* asBoolean() const { return std::get_if<bool>(&content_); }
    [[nodiscard]] const std::int64_t* asInteger() const {
        return std::get_if<std::int64_t>(&content_);
    }
    [[nodiscard]] const double* asReal() const { return std::get_if<double>(&content_); }
    [[nodiscard]] const std::string* asString() const {
        return std::get_if<std::string>(&content_);
    }
    [[nodiscard]] const Data* asData() const { return std::get_if<Data>(&content_); }
    [[nodiscard]] const Date* asDate() const { return std::get_if<Date>(&content_); }
    [[nodiscard]] const Array* asArray() const { return std::get_if<Array>(&content_); }
    [[nodiscard]] Array* asArray() { return std::get_if<Array>(&content_); }
    [[nodiscard]] const Dictionary* asDictionary() const {
        return std::get_if<Dictionary>(&content_);
    }
    [[nodiscard]] Dictionary* asDictionary() { return std::get_if<Dictionary>(&content_); }

    bool operator==(const Value&) const = default;

 private:
    std::variant<bool, std::int64_t, double, std::string, Data, Date, Array, Dictionary> content_;
};

struct DictionaryEntry {
    std::string key;
    Value value;
    bool operator==(const DictionaryEntry&) const = default;
};

/// The type's name in lower case, "boolean" to "dictionary".
[[nodiscard]] std::string_view TypeName(Value::Type type);

/// One line for logs and test failures: true, 12, 1.5, "text", <00ff>, @1700000000, [..], {..}.
std::ostream& operator<<(std::ostream& out, const Value& value);

}  // namespace quelm
