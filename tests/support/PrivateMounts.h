#pragma once

#include <functional>
#include <string>

namespace test_support {

/// Why `WithPrivateMounts` cannot be used here; empty when it can.
[[nodiscard]] std::string WhyNoPrivateMounts();

/// Runs the body in a child process with a mount table of its own, so that it can mount what it
/// likes and leaves nothing behind. Its failed expectations are printed and fail the test.
void WithPrivateMounts(const std::function<void()>& body);

}  // namespace test_support
