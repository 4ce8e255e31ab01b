#include "cli/ProjectText.h"

#include <fmt/format.h>

#include "foundation/texts/VisibleText.h"

namespace orv::cli {

quelm::Dictionary TypedProject(const quelm::Dictionary& dictionary) {
    const Project project(dictionary);
    quelm::Dictionary typed = dictionary;
    for (const ProjectKey& key : projectkeys::all) {
        if (!dictionary.find(key.name)) continue;
        if (key.type == ProjectKeyType::Integer) typed.set(key.name, project.number(key));
        if (key.type == ProjectKeyType::Boolean) typed.set(key.name, project.flag(key));
    }
    return typed;
}

std::string ProjectLine(const Project& project) {
    std::string line = fmt::format("{} {}, {}: {}", project.id(), project.name(), project.owner(),
                                   project.text(projectkeys::status));
    if (const std::string path = project.path(); !path.empty()) line += ", " + path;
    return quelm::VisibleText(line);
}

}  // namespace orv::cli
