#include "platform/linux/FileTypeDatabase.h"

#include <magic.h>
#include <utility>

namespace platform {

void FileTypeDatabase::Close::operator()(magic_set* handle) const {
    magic_close(handle);
}

FileTypeDatabase::FileTypeDatabase(Reporter reporter) : missing_(std::move(reporter)) {}
FileTypeDatabase::~FileTypeDatabase() = default;

std::optional<std::string> FileTypeDatabase::mimeType(int file) {
    const std::lock_guard lock(mutex_);
    const char* const type = loaded() ? magic_descriptor(handle_.get(), file) : nullptr;
    if (type == nullptr) return std::nullopt;
    return type;
}

bool FileTypeDatabase::loaded() {
    if (!std::exchange(tried_, true)) {
        handle_.reset(magic_open(MAGIC_MIME_TYPE | MAGIC_ERROR));
        if (handle_ && magic_load(handle_.get(), nullptr) != 0) handle_.reset();
    }
    if (!handle_) {
        missing_.report(
            "The database of file types is missing: documents without an extension are not "
            "recognised. Install the package libmagic-mgc.");
    }
    return handle_ != nullptr;
}

}  // namespace platform
