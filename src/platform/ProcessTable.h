#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace platform {

/// A process as the kernel lists it.
struct ProcessRecord {
    pid_t pid = 0;
    uid_t user = 0;
    std::string name;        // as long as the kernel keeps it
    std::string executable;  // its path; empty for the kernel's own and for other users'
    char state = '?';        // the letter of proc(5)
};

/// The processes of the system. Any thread.
class ProcessTable {
 public:
    virtual ~ProcessTable() = default;

    [[nodiscard]] virtual std::vector<ProcessRecord> processes() const = 0;
    /// 0, or the number (errno) for which no signal was sent. Only a process of this user that is
    /// still the recorded one is sent any.
    [[nodiscard]] virtual int sendSignal(const ProcessRecord& process, int number) const = 0;
};

}  // namespace platform
