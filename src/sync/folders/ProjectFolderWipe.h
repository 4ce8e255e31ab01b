#pragma once

#include <string>

namespace quelm::sync {

enum EWipeResult : int {
    /// Nothing is left to do. The master folder itself stays when something of others is in it.
    WIPE_DONE = 0,
    /// Something is left that should have gone; the log names it.
    WIPE_FAILED = 1,
    /// The caller may remove the master folder: nothing but the sync's own hidden folders is in it.
    WIPE_FOLDER_REMAINS = 2,
};

/// Removes the project folders that the user's own list file names: those in the master folder, and
/// elsewhere those whose cache folder has a list file of the user. Nothing of `configurationPath`
/// is touched and no link is followed. Without a list file of the user nothing is removed. Takes as
/// long as removing does: not for the main thread of a program with windows.
[[nodiscard]] EWipeResult WipeProjectFolders(const std::string& userId,
                                             const std::string& configurationPath,
                                             const std::string& masterFolder);

}  // namespace quelm::sync
