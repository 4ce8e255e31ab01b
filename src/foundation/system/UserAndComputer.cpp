#include "foundation/system/UserAndComputer.h"

#include <array>
#include <pwd.h>
#include <unistd.h>

#include "foundation/system/AssignmentFile.h"
#include "foundation/texts/Utf8.h"

namespace quelm {

std::string GetComputerName(const std::string& machineInfo) {
    const auto pretty = ReadAssignment(machineInfo, "PRETTY_HOSTNAME");
    if (pretty && !pretty->empty() && IsXmlText(*pretty)) return *pretty;
    std::array<char, 256> host = {};
    // the last byte stays 0 whatever happens
    static_cast<void>(gethostname(host.data(), host.size() - 1));
    const std::string name = host.data();
    return name.substr(0, name.find('.'));
}

std::string GetLoginName() {
    std::array<char, 16'384> texts = {};
    passwd entry = {};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
    return found ? found->pw_name : "";
}

}  // namespace quelm
