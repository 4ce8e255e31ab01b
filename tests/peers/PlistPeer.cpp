// plist_peer dump FILE ...         one line a file: its value in a form that tells types and bits
//                                  apart, or "unparsable"
// plist_peer make SEED COUNT DIR   writes generated values to DIR/0.plist and so on, as XML, and
//                                  prints the same lines for them
#include <bit>
#include <cstdlib>
#include <fmt/format.h>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/texts/HexEncoding.h"

namespace {

using quelm::Value;

std::string hex(const std::string& bytes) {
    return quelm::CHexEncoding::Encode(bytes);
}

std::string line(const Value& value) {
    switch (value.type()) {
        case Value::Type::Boolean:
            return fmt::format("b:{:d}", *value.asBoolean());
        case Value::Type::Integer:
            return fmt::format("i:{}", *value.asInteger());
        case Value::Type::Real:
            return fmt::format("r:{:016x}", std::bit_cast<std::uint64_t>(*value.asReal()));
        case Value::Type::String:
            return "s:" + hex(*value.asString());
        case Value::Type::Data:
            return "d:" + hex(value.asData()->bytes);
        case Value::Type::Date:
            return fmt::format("t:{:.0f}", value.asDate()->secondsSince1970);
        default:
            break;
    }
    std::string members;
    if (const auto* array = value.asArray()) {
        for (const Value& item : *array)
            members += line(item) + ",";
        return "[" + members + "]";
    }
    for (const auto& [key, item] : *value.asDictionary()) {
        members += hex(key) + "=" + line(item) + ",";
    }
    return "{" + members + "}";
}

class Generator {
 public:
    explicit Generator(unsigned seed) : random_(seed) {}

    Value value(unsigned depth) {
        switch (random_() % (depth > 0 ? 9 : 7)) {
            case 0:
                return random_() % 2 == 0;
            case 1:
                return static_cast<std::int64_t>(random_());
            case 2:
                return static_cast<std::int64_t>(random_() % 200) - 100;
            case 3:
                return real();
            case 4:
                return text();
            case 5:
                return quelm::Data{bytes()};
            case 6:
                return quelm::Date{static_cast<double>(random_() % 4'000'000'000)};
            case 7:
                return array(depth - 1);
            default:
                return dictionary(depth - 1);
        }
    }

    quelm::Dictionary dictionary(unsigned depth) {
        quelm::Dictionary result;
        for (auto n = random_() % 6; n > 0; --n)
            result.set("k" + text(), value(depth));
        return result;
    }

 private:
    double real() {
        const auto number = std::bit_cast<double>(random_());
        // the peers write what is no number in ways of their own
        return number - number == 0 ? number : 0.5;
    }

    std::string text() {
        static const std::vector<std::string> pieces = {
            "a", "Z", " ", "&", "<", ">", "\"", "'", "]]>", "\t", "\n", "\r", "é", "中", "😀", "%"};
        std::string result;
        for (auto n = random_() % 12; n > 0; --n)
            result += pieces[random_() % pieces.size()];
        return result;
    }

    std::string bytes() {
        std::string result;
        for (auto n = random_() % 40; n > 0; --n)
            result += static_cast<char>(random_());
        return result;
    }

    quelm::Array array(unsigned depth) {
        quelm::Array result;
        for (auto n = random_() % 6; n > 0; --n)
            result.push_back(value(depth));
        return result;
    }

    std::mt19937_64 random_;
};

int make(unsigned seed, int count, const std::string& folder) {
    Generator generator(seed);
    for (int i = 0; i < count; ++i) {
        const Value value = generator.dictionary(4);
        const auto text = quelm::WritePropertyList(value);
        if (!text) return 1;
        std::ofstream(fmt::format("{}/{}.plist", folder, i), std::ios::binary) << *text;
        fmt::print("{}\n", line(value));
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 4 && arguments[0] == "make") {
        return make(static_cast<unsigned>(std::stoul(arguments[1])), std::stoi(arguments[2]),
                    arguments[3]);
    }
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const auto result = quelm::ReadPropertyListFile(arguments[i]);
        fmt::print("{}\n", result.value ? line(*result.value) : "unparsable");
    }
    return 0;
}
