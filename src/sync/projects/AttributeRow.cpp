#include "sync/projects/AttributeRow.h"

#include <utility>

namespace orv {

AttributeRow::AttributeRow(std::shared_ptr<const Names> names, std::string texts,
                           std::vector<std::uint32_t> ends)
    : names_(std::move(names)), texts_(std::move(texts)), ends_(std::move(ends)) {}

std::string_view AttributeRow::text(std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(texts_).substr(start, ends_[index] - start);
}

std::optional<std::string_view> AttributeRow::find(std::string_view wanted) const {
    for (std::size_t i = size(); i-- > 0;) {
        if (name(i) == wanted) return text(i);
    }
    return std::nullopt;
}

bool AttributeRow::operator==(const AttributeRow& other) const {
    return texts_ == other.texts_ && ends_ == other.ends_ &&
           (names_ == other.names_ || *names_ == *other.names_);
}

void AttributeRowBuilder::stopSharing() {
    const auto count = static_cast<std::ptrdiff_t>(starts_.size());
    own_.assign(shared_->begin(), shared_->begin() + count);
    isShared_ = false;
}

void AttributeRowBuilder::add(std::string_view name) {
    const std::size_t index = starts_.size();
    if (isShared_ && (index >= shared_->size() || (*shared_)[index] != name)) stopSharing();
    if (!isShared_) own_.emplace_back(name);
    starts_.push_back(static_cast<std::uint32_t>(texts_.size()));
}

std::optional<std::string_view> AttributeRowBuilder::find(std::string_view wanted) const {
    for (std::size_t i = starts_.size(); i-- > 0;) {
        if (name(i) != wanted) continue;
        return std::string_view(texts_).substr(starts_[i], endOf(i) - starts_[i]);
    }
    return std::nullopt;
}

void AttributeRowBuilder::replace(std::string_view wanted, std::string_view text) {
    for (std::size_t i = 0; i < starts_.size(); ++i) {
        if (name(i) != wanted) continue;
        const std::size_t length = endOf(i) - starts_[i];
        texts_.replace(starts_[i], length, text);
        const auto shift = static_cast<std::uint32_t>(text.size() - length);  // modulo 2^32
        for (std::size_t later = i + 1; later < starts_.size(); ++later)
            starts_[later] += shift;
    }
}

AttributeRow AttributeRowBuilder::take() {
    if (isShared_ && starts_.size() != shared_->size()) stopSharing();
    if (!std::exchange(isShared_, true)) {
        shared_ = std::make_shared<const AttributeRow::Names>(std::exchange(own_, {}));
    }
    std::vector<std::uint32_t> ends;
    ends.reserve(starts_.size());
    for (std::size_t i = 0; i < starts_.size(); ++i)
        ends.push_back(static_cast<std::uint32_t>(endOf(i)));
    AttributeRow row(shared_, std::string(std::string_view(texts_)), std::move(ends));
    texts_.clear();
    starts_.clear();
    return row;
}

}  // namespace orv
