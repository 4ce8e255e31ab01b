#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orv {

/// What a dialog for choosing files says.
struct OpenPanel {
    std::string title;
    /// On the button that chooses.
    std::string prompt;
    bool allowsSeveral = false;
};

/// Lets the person choose files. Main thread only; nothing waits.
class FilePanels {
 public:
    virtual ~FilePanels() = default;

    /// `chosen` is called later with the absolute paths, none when the person cancels.
    virtual void chooseFiles(const OpenPanel& panel,
                             std::function<void(std::vector<std::string> paths)> chosen) = 0;
};

}  // namespace orv
