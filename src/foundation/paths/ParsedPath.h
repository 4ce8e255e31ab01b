#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace quelm {

/// A path split once into components. It refers to the caller's text, which must outlive it and be
/// shorter than 4 GiB.
class CParsedPath {
 public:
    /// The first component begins at `start`: 1 leaves out the leading "/" of an absolute path.
    CParsedPath(std::string_view path, unsigned start) : path_(path) { Parse(start); }
    template <class Text>
    requires std::same_as<std::remove_cv_t<Text>, std::string> CParsedPath(Text&& temporary,
                                                                           unsigned start)
    = delete;

    /// Splits anew. A doubled "/" is not collapsed: the second component of "a//b" is "/b". A "/"
    /// at the end adds no component.
    void Parse(unsigned start);

    [[nodiscard]] std::size_t componentCount() const { return offsets_.size() - 1; }
    [[nodiscard]] std::string_view component(std::size_t index) const {
        return path_.substr(offsets_[index], offsets_[index + 1] - offsets_[index] - 1);
    }

    /// Whether any component begins with ".".
    [[nodiscard]] bool IsHidden() const;
    // Folders are given without a "/" at their end.
    /// Whether the path is a direct child of the folder.
    [[nodiscard]] bool IsInFolder(std::string_view folder) const;
    /// Whether the path is the folder or lies anywhere below it.
    [[nodiscard]] bool IsSubpathOf(std::string_view folder) const;
    [[nodiscard]] bool ContainsComponent(std::string_view name) const;

 private:
    std::string_view path_;
    /// Where each component starts, and then one after the separator that ends the last.
    std::vector<unsigned> offsets_;
};

}  // namespace quelm
