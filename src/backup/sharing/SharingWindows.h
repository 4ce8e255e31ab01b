#pragma once

namespace orv {

struct SharingOutlets;

/// Makes the window in which the person chooses what to back up, with its sheets. Main thread only.
class SharingWindows {
 public:
    virtual ~SharingWindows() = default;

    /// Shows the outlets, with the dialogs that the window opens, from now on until they are
    /// released, which is before they go away.
    virtual void showSharing(SharingOutlets& outlets) = 0;
    virtual void release(SharingOutlets& outlets) = 0;
};

}  // namespace orv
