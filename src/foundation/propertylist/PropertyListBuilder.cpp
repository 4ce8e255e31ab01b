#include "foundation/propertylist/PropertyListBuilder.h"

#include <iterator>

namespace quelm {

bool PropertyListBuilder::fail(std::string_view error) {
    if (error_.empty()) error_ = error;
    return false;
}

bool PropertyListBuilder::open(bool isDictionary) {
    if (frames_.size() == limits_.depth) return fail("it is nested too deeply");
    if (!count(0) || !mayPlace()) return false;
    frames_.push_back({isDictionary, values_.size(), keys_.size()});
    return true;
}

bool PropertyListBuilder::key(std::string key) {
    if (!insideDictionary() || awaitsValue()) return fail("a key stands in a wrong place");
    if (!count(key.size())) return false;
    keys_.push_back(std::move(key));
    return true;
}

Array PropertyListBuilder::takeArray(const Frame& frame) {
    const auto first = values_.begin() + static_cast<std::ptrdiff_t>(frame.firstValue);
    Array items(std::make_move_iterator(first), std::make_move_iterator(values_.end()));
    values_.erase(first, values_.end());
    return items;
}

Dictionary PropertyListBuilder::takeDictionary(const Frame& frame) {
    const auto firstValue = values_.begin() + static_cast<std::ptrdiff_t>(frame.firstValue);
    const auto firstKey = keys_.begin() + static_cast<std::ptrdiff_t>(frame.firstKey);
    std::vector<DictionaryEntry> entries;
    entries.reserve(static_cast<std::size_t>(keys_.end() - firstKey));
    auto value = firstValue;
    for (auto key = firstKey; key != keys_.end(); ++key, ++value) {
        entries.push_back({std::move(*key), std::move(*value)});
    }
    values_.erase(firstValue, values_.end());
    keys_.erase(firstKey, keys_.end());
    return Dictionary(std::move(entries));
}

bool PropertyListBuilder::close() {
    const Frame frame = frames_.back();
    if (frame.isDictionary && awaitsValue()) {
        return fail("the last key of a dictionary has no value");
    }
    frames_.pop_back();
    if (frame.isDictionary) {
        values_.emplace_back(takeDictionary(frame));
    } else {
        values_.emplace_back(takeArray(frame));
    }
    return true;
}

PropertyListResult PropertyListBuilder::finish() {
    if (error_.empty() && (values_.empty() || !frames_.empty())) fail("it holds no value");
    if (!error_.empty()) return {std::nullopt, std::move(error_)};
    return {std::move(values_.front()), {}};
}

}  // namespace quelm
