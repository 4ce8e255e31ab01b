#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orv {

enum class AlertStyle {
    Informational,
    /// Something would be lost, or has failed.
    Critical,
};

/// A message to the person with buttons to answer it.
struct Alert {
    std::string title;
    std::string message;
    /// Smaller, below the message.
    std::optional<std::string> informativeText;
    /// The first is the default one; it is also the answer to closing the alert unless
    /// `cancelButton` says otherwise.
    std::vector<std::string> buttons;
    AlertStyle style = AlertStyle::Informational;
    int cancelButton = 0;
};

/// Shows alerts. Main thread only; nothing waits.
class Alerts {
 public:
    virtual ~Alerts() = default;

    /// `answered`, which may be empty, is called later with the index of the button.
    virtual void show(const Alert& alert, std::function<void(int button)> answered) = 0;
};

}  // namespace orv
