#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/propertylist/PropertyList.h"

namespace quelm {

/// Puts a value together from a reader's events, within the limits. Every operation answers false
/// when the value cannot be completed any more; `finish` says why.
class PropertyListBuilder {
 public:
    explicit PropertyListBuilder(const PropertyListLimits& limits) : limits_(limits) {}

    bool openArray() { return open(false); }
    bool openDictionary() { return open(true); }
    bool key(std::string key);
    bool add(std::string text) { return count(text.size()) && place(std::move(text)); }
    bool add(Data data) { return count(data.bytes.size()) && place(std::move(data)); }
    bool add(Value leaf) { return count(0) && place(std::move(leaf)); }
    bool close();
    bool fail(std::string_view error);

    [[nodiscard]] bool insideDictionary() const {
        return !frames_.empty() && frames_.back().isDictionary;
    }
    /// The value, once everything that was opened is closed.
    [[nodiscard]] PropertyListResult finish();

 private:
    /// A container that is open: its members are those from the first ones to the stacks' ends.
    struct Frame {
        bool isDictionary;
        std::size_t firstValue;
        std::size_t firstKey;
    };

    bool open(bool isDictionary);
    // in the header, because they run for every value
    bool count(std::size_t payloadBytes) {
        payload_ += payloadBytes;
        if (++objects_ > limits_.objects) return fail("it holds too many values");
        // one value may be referred to many times in the binary form
        return payload_ <= limits_.bytes || fail("its values are too large");
    }
    bool mayPlace() {
        if (insideDictionary() && !awaitsValue()) return fail("a value in a dictionary has no key");
        if (frames_.empty() && !values_.empty()) return fail("it holds more than one value");
        return true;
    }
    template <typename Leaf>
    bool place(Leaf&& leaf) {
        if (!mayPlace()) return false;
        values_.emplace_back(std::forward<Leaf>(leaf));
        return true;
    }
    /// Whether the dictionary that is open has a key without a value.
    [[nodiscard]] bool awaitsValue() const {
        const Frame& frame = frames_.back();
        return keys_.size() - frame.firstKey > values_.size() - frame.firstValue;
    }
    [[nodiscard]] Array takeArray(const Frame& frame);
    [[nodiscard]] Dictionary takeDictionary(const Frame& frame);

    const PropertyListLimits limits_;
    std::size_t objects_ = 0;
    std::size_t payload_ = 0;
    std::vector<Frame> frames_;
    // Stacks of the root and the finished members of all open containers.
    std::vector<Value> values_;
    std::vector<std::string> keys_;
    std::string error_;
};

}  // namespace quelm
