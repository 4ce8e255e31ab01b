#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "foundation/system/Log.h"
#include "sync/projects/ProjectListParser.h"

// An answer is read to projects whose dictionaries equal themselves, before and after a change.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelm::SetLogSink([](std::string_view) {});
    const std::string_view xml(reinterpret_cast<const char*>(data), size);
    const auto parsed = orv::ParseProjectList(xml, orv::ProjectListKind::Subscribed, {"anna"});
    if (!parsed) return 0;
    for (const auto& project : parsed->sync) {
        orv::Project copy(project->dictionary());
        if (!(copy == *project) || copy.path() != project->path() ||
            copy.external() != project->external() || copy.syncedSize() != project->syncedSize()) {
            std::abort();
        }
    }
    return 0;
}
