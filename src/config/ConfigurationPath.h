#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orv {

// The configuration base path: the folder of the active account, without a "/" at its end. It is
// resolved on first use and kept until it is cleared. Any thread.

/// The account that this process serves. Empty and "1" mean the active account's own folder; any
/// other id a folder "account_ID" in it. Set before the first path is asked for.
extern std::string AgentID;

/// The base path as the list of accounts has it now. Waits for that file.
[[nodiscard]] std::string ResolveConfigBasePath();

/// Replaces the base path.
void SetConfigBasePath(const std::string& path);

/// Makes the next request resolve the base path again, and wait for that: the active account has
/// changed.
void ClearConfigBasePath();

/// The path of a file in the base path; the base path itself for null.
[[nodiscard]] std::string GetConfigurationPath(const char* fileName = nullptr);
std::string& GetConfigurationPath(std::string& path, const char* fileName);
/// Copies min(length + 1, size) bytes: a path longer than the buffer is cut and not terminated.
char* GetConfigurationPath(char* buffer, const char* fileName, std::uint32_t size);

/// The same for a name that may be missing or empty, both meaning the base path itself. Paths end
/// at 1,023 bytes.
[[nodiscard]] std::string GetConfigurationNsPath(const std::optional<std::string>& fileName);

/// Makes an account's folder (mode 0700) and its two first files. When the folder cannot be made,
/// also because it exists, nothing happens.
void CreateUserInfo(const std::string& folder, const std::string& label, const std::string& server,
                    const std::string& webServer, const std::string& updateServer,
                    const std::string& apiServer);

}  // namespace orv
