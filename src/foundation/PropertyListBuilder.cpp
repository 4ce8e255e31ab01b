#include "foundation/PropertyListBuilder.h"

namespace quelm {

bool PropertyListBuilder::fail(std::string_view error) {
    if (error_.empty()) error_ = error;
    return false;
}

bool PropertyListBuilder::count(std::size_t payloadBytes) {
    payload_ += payloadBytes;
    if (++objects_ > limits_.objects) return fail("it holds too many values");
    // one value may be referred to many times in the binary form
    return payload_ <= limits_.bytes || fail("its values are too large");
}

bool PropertyListBuilder::awaitsValue() const {
    const Frame& frame = frames_.back();
    return keys_.size() - frame.firstKey > values_.size() - frame.firstValue;
}

bool PropertyListBuilder::open(bool isDictionary) {
    if (frames_.size() == limits_.depth) return fail("it is nested too deeply");
    if (!count(0) || !place({})) return false;
    frames_.push_back({isDictionary, values_.size(), keys_.size()});
    return true;
}

bool PropertyListBuilder::key(std::string key) {
    if (!insideDictionary() || awaitsValue()) return fail("a key stands in a wrong place");
    if (!count(key.size())) return false;
    keys_.push_back(std::move(key));
    return true;
}

bool PropertyListBuilder::place(Value value) {
    if (insideDictionary() && !awaitsValue()) return fail("a value in a dictionary has no key");
    if (frames_.empty() && !values_.empty()) return fail("it holds more than one value");
    values_.push_back(std::move(value));
    return true;
}

Array PropertyListBuilder::takeArray(const Frame& frame) {
    Array items;
    items.reserve(values_.size() - frame.firstValue);
    auto value = values_.begin() + static_cast<std::ptrdiff_t>(frame.firstValue);
    for (; value != values_.end(); ++value)
        items.push_back(std::move(*value));
    return items;
}

Dictionary PropertyListBuilder::takeDictionary(const Frame& frame) {
    std::vector<DictionaryEntry> entries;
    entries.reserve(keys_.size() - frame.firstKey);
    auto value = values_.begin() + static_cast<std::ptrdiff_t>(frame.firstValue);
    auto key = keys_.begin() + static_cast<std::ptrdiff_t>(frame.firstKey);
    for (; key != keys_.end(); ++key, ++value) {
        entries.push_back({std::move(*key), std::move(*value)});
    }
    return Dictionary(std::move(entries));
}

bool PropertyListBuilder::close() {
    const Frame frame = frames_.back();
    if (frame.isDictionary && awaitsValue()) {
        return fail("the last key of a dictionary has no value");
    }
    Value& container = values_[frame.firstValue - 1];
    if (frame.isDictionary) {
        container = takeDictionary(frame);
    } else {
        container = takeArray(frame);
    }
    frames_.pop_back();
    values_.resize(frame.firstValue);
    keys_.resize(frame.firstKey);
    return true;
}

PropertyListResult PropertyListBuilder::finish() {
    if (error_.empty() && (values_.empty() || !frames_.empty())) fail("it holds no value");
    if (!error_.empty()) return {std::nullopt, std::move(error_)};
    return {std::move(values_.front()), {}};
}

}  // namespace quelm
