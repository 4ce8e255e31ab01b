#include "accounts/ScriptRoutines.h"

#include <atomic>
#include <memory>

#include "foundation/files/Existence.h"
#include "foundation/system/Log.h"
#include "foundation/threads/DetachedThread.h"

namespace orv {

std::optional<quelm::Value> ExecuteApplescript(const std::string& path, const std::string& routine,
                                               const quelm::Array&) {
    if (!quelm::Exists(path)) {
        quelm::LogError("ExecuteApplescript: " + path + " not found");
        return std::nullopt;
    }
    static std::atomic<bool> said = false;
    if (!said.exchange(true)) {
        quelm::LogWarning("This system runs no compiled scripts: the routine " + routine + " of " +
                          path + " was not called, and others will not be.");
    }
    return std::nullopt;
}

void orv_ScriptParams::executeScriptWithPath(const std::string& path, const std::string& routine,
                                             const quelm::Array& params) {
    auto call = std::make_unique<orv_ScriptParams>(path, routine, params);
    quelm::CDetachedThread thread(ExecuteApplescriptOnThread, call.get());
    if (thread.Run() == 0) [[maybe_unused]]
        const auto* taken = call.release();
}

void orv_ScriptParams::executeScriptWithParams(const orv_ScriptParams& call) {
    ExecuteApplescript(call.path_, call.routine_, call.params_);
}

void ExecuteApplescriptOnThread(void* call) {
    const std::unique_ptr<orv_ScriptParams> owned(static_cast<orv_ScriptParams*>(call));
    orv_ScriptParams::executeScriptWithParams(*owned);
}

}  // namespace orv
