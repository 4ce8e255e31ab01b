#include "foundation/files/OpenFiles.h"

#include <array>
#include <cstdio>
#include <memory>
#include <string_view>
#include <sys/stat.h>

#include "foundation/files/Existence.h"

namespace quelm::os {

namespace {

constexpr std::size_t longestLine = 1'023;

/// Reads one line; a longer one is skipped to its end and reads as empty. False at the end.
bool readLine(FILE* stream, std::string& line) {
    std::array<char, longestLine + 1> buffer;
    line.clear();
    if (std::fgets(buffer.data(), buffer.size(), stream) == nullptr) return false;
    line = buffer.data();
    if (line.ends_with('\n')) {
        line.pop_back();
        return true;
    }
    bool tooLong = false;
    for (int c = std::fgetc(stream); c != EOF && c != '\n'; c = std::fgetc(stream))
        tooLong = true;
    if (tooLong) line.clear();
    return true;
}

}  // namespace

void ListOpenFiles(const std::string& folder, std::set<std::string>& paths) {
    if (folder.find('\'') != std::string::npos || !IsFolder(folder)) return;
    const std::string command = "lsof -F +D '" + folder + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "re"), &pclose);
    if (!output) return;

    const std::string prefix = "n" + folder + "/";
    std::string line;
    while (readLine(output.get(), line)) {
        if (line.size() > prefix.size() && line.starts_with(prefix)) {
            paths.insert(line.substr(prefix.size()));
        }
    }
}

}  // namespace quelm::os
