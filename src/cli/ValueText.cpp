#include "cli/ValueText.h"

#include <fmt/format.h>
#include <fmt/ostream.h>
#include <nlohmann/json.hpp>
#include <ostream>

#include "foundation/texts/Base64.h"
#include "foundation/texts/IsoDate.h"

namespace orv::cli {

namespace {

using nlohmann::json;
using quelm::Value;

std::string dateText(const quelm::Date& date) {
    // the binary form can hold dates that no calendar text can
    return quelm::FormatIsoDate(date.secondsSince1970)
        .value_or(fmt::format("{}", date.secondsSince1970));
}

json toJson(const Value& value) {
    switch (value.type()) {
        case Value::Type::Boolean:
            return *value.asBoolean();
        case Value::Type::Integer:
            return *value.asInteger();
        case Value::Type::Real:
            return *value.asReal();
        case Value::Type::String:
            return *value.asString();
        case Value::Type::Data:
            return {{"data", quelm::EncodeBase64(value.asData()->bytes)}};
        case Value::Type::Date:
            return {{"date", dateText(*value.asDate())}};
        case Value::Type::Array: {
            json array = json::array();
            for (const Value& item : *value.asArray())
                array.push_back(toJson(item));
            return array;
        }
        case Value::Type::Dictionary: {
            json object = json::object();
            for (const auto& [key, item] : *value.asDictionary())
                object[key] = toJson(item);
            return object;
        }
    }
    return nullptr;
}

std::string leafText(const Value& value) {
    switch (value.type()) {
        case Value::Type::Boolean:
            return *value.asBoolean() ? "true" : "false";
        case Value::Type::Integer:
            return fmt::format("{}", *value.asInteger());
        case Value::Type::Real:
            return fmt::format("{}", *value.asReal());
        case Value::Type::String:
            return json(*value.asString()).dump();
        case Value::Type::Data:
            return quelm::EncodeBase64(value.asData()->bytes);
        case Value::Type::Date:
            return dateText(*value.asDate());
        default:
            return {};
    }
}

void print(std::ostream& out, const std::string& label, const Value& value, std::size_t indent);

void printMembers(std::ostream& out, const Value& value, std::size_t indent) {
    if (const auto* array = value.asArray()) {
        for (std::size_t i = 0; i < array->size(); ++i) {
            print(out, fmt::format("[{}]", i), (*array)[i], indent);
        }
    } else {
        for (const auto& [key, item] : *value.asDictionary()) {
            print(out, json(key).dump(), item, indent);
        }
    }
}

void print(std::ostream& out, const std::string& label, const Value& value, std::size_t indent) {
    const std::string start = fmt::format("{:{}}{}{}{}", "", indent * 2, label,
                                          label.empty() ? "" : ": ", quelm::TypeName(value.type()));
    const bool isArray = value.asArray() != nullptr;
    if (!isArray && value.asDictionary() == nullptr) {
        fmt::print(out, "{} {}\n", start, leafText(value));
        return;
    }
    fmt::print(out, "{} ({})\n", start,
               isArray ? value.asArray()->size() : value.asDictionary()->size());
    printMembers(out, value, indent + 1);
}

}  // namespace

void PrintValue(std::ostream& out, const Value& value) {
    print(out, "", value, 0);
}

std::string ValueAsJson(const Value& value) {
    return toJson(value).dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace orv::cli
