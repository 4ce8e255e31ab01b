#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/Value.h"

namespace orv {

/// Calls a routine of a compiled script with parameters, and answers its result. This platform has
/// no such scripts: none, and one line in the log. Any thread; a call may take long.
std::optional<quelm::Value> ExecuteApplescript(const std::string& path, const std::string& routine,
                                               const quelm::Array& params);

/// Calls without waiting for the result.
class orv_ScriptParams {
 public:
    /// On a detached thread of its own.
    static void executeScriptWithPath(const std::string& path, const std::string& routine,
                                      const quelm::Array& params);
    static void executeScriptWithParams(const orv_ScriptParams& call);

    orv_ScriptParams(std::string path, std::string routine, quelm::Array params)
        : path_(std::move(path)), routine_(std::move(routine)), params_(std::move(params)) {}

 private:
    std::string path_;
    std::string routine_;
    quelm::Array params_;
};

/// The thread's function; takes over the orv_ScriptParams that `call` points to.
void ExecuteApplescriptOnThread(void* call);

}  // namespace orv
