#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orv {

/// A message to the person with buttons to answer it.
struct Alert {
    std::string title;
    std::string message;
    /// Smaller, below the message.
    std::optional<std::string> informativeText;
    /// The first is the default one.
    std::vector<std::string> buttons;
};

/// Shows alerts. Main thread only; nothing waits.
class Alerts {
 public:
    virtual ~Alerts() = default;

    /// `answered`, which may be empty, is called later with the index of the button.
    virtual void show(const Alert& alert, std::function<void(int button)> answered) = 0;
};

}  // namespace orv
