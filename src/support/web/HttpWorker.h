#pragma once

#include <functional>

namespace orv {

/// Runs a task that waits for the network on a thread of its own, which nobody joins. False, with
/// nothing run, when no thread can be made. The end of the process waits for tasks, at most a
/// second: what they use, the encryption library above all, would go away under them. The task
/// must not throw.
[[nodiscard]] bool StartHttpWorker(std::function<void()> task);

}  // namespace orv
