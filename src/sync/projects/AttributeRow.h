#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// Texts under names, for records that come by the thousand with the same names: these are shared,
/// and the texts stand in one piece. Never changes.
class AttributeRow {
 public:
    using Names = std::vector<std::string>;

    /// `ends` are the ends of the texts in `texts`, one for each name.
    AttributeRow(std::shared_ptr<const Names> names, std::string texts,
                 std::vector<std::uint32_t> ends);

    [[nodiscard]] std::size_t size() const { return ends_.size(); }
    [[nodiscard]] const std::string& name(std::size_t index) const { return (*names_)[index]; }
    [[nodiscard]] std::string_view text(std::size_t index) const;
    /// The last of a name that repeats; none without one.
    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const;

    bool operator==(const AttributeRow& other) const;

 private:
    std::shared_ptr<const Names> names_;
    std::string texts_;
    std::vector<std::uint32_t> ends_;
};

/// Makes one row after the other.
class AttributeRowBuilder {
 public:
    /// Begins the next attribute of the row, with an empty text.
    void add(std::string_view name);
    void appendText(std::string_view text) { texts_.append(text); }
    /// Of the attributes so far.
    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const;
    /// Replaces the text of each attribute of the name.
    void replace(std::string_view name, std::string_view text);
    /// Ends the row; the next one begins empty.
    [[nodiscard]] AttributeRow take();

 private:
    [[nodiscard]] const std::string& name(std::size_t index) const {
        return isShared_ ? (*shared_)[index] : own_[index];
    }
    [[nodiscard]] std::size_t endOf(std::size_t index) const {
        return index + 1 < starts_.size() ? starts_[index + 1] : texts_.size();
    }
    void stopSharing();

    /// The names of the row before, as long as those of this one are the same.
    std::shared_ptr<const AttributeRow::Names> shared_ =
        std::make_shared<const AttributeRow::Names>();
    bool isShared_ = true;
    AttributeRow::Names own_;
    std::string texts_;
    std::vector<std::uint32_t> starts_;
};

}  // namespace orv
