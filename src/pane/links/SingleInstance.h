#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/FileDescriptor.h"
#include "platform/RunLoop.h"

namespace orv {

/// Sees to it that one panel runs for a user's session: a later one hands its link to the first and
/// ends. They meet at a socket in the user's runtime folder. Main thread only.
class SingleInstance {
 public:
    using Opened = std::function<void(const std::string& address)>;
    /// In bytes; a longer link is refused.
    static constexpr std::size_t longestAddress = 4'096;

    /// Whether another panel took the address, which is a link or empty.
    [[nodiscard]] static bool handOver(const std::string& path, const std::string& address);

    /// Takes addresses of later panels from now on; only links of the panel's own are passed on.
    /// Without a usable folder it takes none, with a line in the log.
    SingleInstance(const std::string& path, platform::RunLoop& runLoop, Opened opened);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// "$XDG_RUNTIME_DIR/tidewell-panel"; empty without the variable.
    [[nodiscard]] static std::string defaultPath();

 private:
    void accept();

    std::string path_;
    platform::FileDescriptor lock_;
    platform::FileDescriptor listener_;
    Opened opened_;
    std::unique_ptr<platform::RunLoop::Watch> watch_;
};

}  // namespace orv
