#include "foundation/system/AssignmentFile.h"

#include <fstream>

namespace quelm {

namespace {

std::string unquoted(std::string_view text) {
    if (text.size() >= 2 && (text.front() == '"' || text.front() == '\'')) {
        text = text.substr(1, text.size() - 2);
    }
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain;
}

}  // namespace

std::optional<std::string> ReadAssignment(const std::string& path, std::string_view name) {
    std::optional<std::string> value;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const auto equals = line.find('=');
        if (equals == name.size() && line.starts_with(name))
            value = unquoted(line.substr(equals + 1));
    }
    return value;
}

}  // namespace quelm
