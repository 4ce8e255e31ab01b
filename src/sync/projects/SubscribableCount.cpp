#include <algorithm>
#include <utility>

#include "foundation/system/Log.h"
#include "sync/projects/ProjectsList.h"

// How many projects the user could subscribe to, which waits for the agent's first answer.

namespace orv {

namespace {

constexpr std::chrono::seconds patience(1);
/// So that nobody is told that there are none.
constexpr std::size_t failsafe = 1;

}  // namespace

std::size_t ProjectsList::countSubscribable(bool known) const {
    return static_cast<std::size_t>(
        std::ranges::count_if(notSubscribedProjects_, [known](const ProjectPtr& project) {
            return project->text(projectkeys::archived) != "1" &&
                   (known || project->text(projectkeys::known) == "0");
        }));
}

void ProjectsList::subscribableProjectsCount(bool known, std::function<void(std::size_t)> answer) {
    if (notSubscribedProjectsReceived_) return answer(countSubscribable(known));
    const auto place = waiting_.insert(waiting_.end(), {known, std::move(answer)});
    place->timer = environment_.runLoop.after(patience, [this, place] {
        quelm::LogWarning(
            "Subscribable projects count still not received, failsafe returning count 1");
        const Waiting gaveUp = std::move(*place);
        waiting_.erase(place);
        gaveUp.answer(failsafe);
    });
}

void ProjectsList::answerWaiting() {
    auto waiting = std::exchange(waiting_, {});
    // an answer may run the loop, and none of these is to time out there any more
    for (Waiting& one : waiting)
        one.timer.reset();
    for (const Waiting& one : waiting)
        one.answer(countSubscribable(one.known));
}

std::size_t ProjectsList::subscribableProjectsCountWithKnown(bool known) {
    std::size_t count = failsafe;
    bool isAnswered = false;
    bool isWaiting = false;
    subscribableProjectsCount(known, [&](std::size_t answer) {
        count = answer;
        isAnswered = true;
        if (isWaiting) environment_.runLoop.stopModal(0);
    });
    if (isAnswered) return count;
    isWaiting = true;
    environment_.runLoop.runModal();
    return count;
}

}  // namespace orv
