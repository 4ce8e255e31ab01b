#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "sync/folders/ProjectListEntry.h"

// A line is read to an entry that is written to a line which reads as the same entry.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quelm::sync;
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    if (line.find('\n') != line.npos) return 0;
    static_cast<void>(ParseOldProjectLine(line));
    const auto entry = ParseProjectLine(line);
    if (!entry) return 0;
    const auto written = ProjectLineOf(*entry);
    if (!written || ParseProjectLine(*written) != entry) std::abort();
    return 0;
}
