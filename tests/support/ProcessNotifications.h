#pragma once

#include <memory>

#include "platform/Services.h"
#include "support/FakeNotificationCenter.h"

namespace test_support {

/// A fake bus in the process's services, which it empties at its end.
class ProcessNotifications {
 public:
    ProcessNotifications() { renew(); }
    ProcessNotifications(const ProcessNotifications&) = delete;
    ProcessNotifications& operator=(const ProcessNotifications&) = delete;
    ~ProcessNotifications() { platform::EndProcessServices(); }

    /// Another one, on which nothing was posted and nobody observes.
    void renew() {
        auto fake = std::make_unique<FakeNotificationCenter>();
        center_ = fake.get();
        platform::ProcessServices().notifications = std::move(fake);
    }
    FakeNotificationCenter& operator*() const { return *center_; }
    FakeNotificationCenter* operator->() const { return center_; }

 private:
    FakeNotificationCenter* center_ = nullptr;
};

}  // namespace test_support
