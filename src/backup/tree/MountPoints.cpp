#include "backup/tree/MountPoints.h"

#include <map>
#include <string>
#include <utility>

namespace orv {

std::vector<platform::Volume> VolumesInSight(platform::Volumes& volumes) {
    std::vector<platform::Volume> inSight;
    std::map<std::string, std::size_t> places;
    for (platform::Volume& volume : volumes.mounted()) {
        const auto [place, isNew] = places.emplace(volume.mountPoint, inSight.size());
        if (isNew) {
            inSight.push_back(std::move(volume));
        } else {
            inSight[place->second] = std::move(volume);
        }
    }
    return inSight;
}

}  // namespace orv
