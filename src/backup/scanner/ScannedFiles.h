#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace orv {

/// The files of one folder that count, by name and size, packed into some four bytes a file beside
/// its name. What iterates and what it answers are valid while this lives. Any thread.
class ScannedFiles {
 public:
    struct File {
        /// Without a path; any bytes.
        std::string_view name;
        /// In bytes.
        std::uint64_t size;
    };

    class Iterator {
     public:
        using iterator_category = std::input_iterator_tag;
        using value_type = File;
        using difference_type = std::ptrdiff_t;
        using pointer = const File*;
        using reference = File;

        [[nodiscard]] File operator*() const;
        Iterator& operator++();
        bool operator==(const Iterator&) const = default;

     private:
        friend class ScannedFiles;
        explicit Iterator(const char* at) : at_(at) {}
        const char* at_;
    };

    /// `packed` is made by `pack`.
    ScannedFiles(std::string folder, std::string packed)
        : folder_(std::move(folder)), packed_(std::move(packed)) {}

    /// Adds a file to what will be the files of one folder.
    static void pack(std::string& packed, std::string_view name, std::uint64_t size);

    /// Its path.
    [[nodiscard]] const std::string& folder() const { return folder_; }
    [[nodiscard]] Iterator begin() const { return Iterator(packed_.data()); }
    [[nodiscard]] Iterator end() const { return Iterator(packed_.data() + packed_.size()); }

 private:
    std::string folder_;
    std::string packed_;
};

}  // namespace orv
