#pragma once

namespace orv {

class FrameUpdates;

/// Something on the screen that follows something else, at most once a frame. Main thread only.
class Binding {
 public:
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;
    virtual ~Binding();

    /// Brings the screen up to date now. It must not throw.
    virtual void apply() = 0;

 protected:
    /// The updates outlive the binding.
    explicit Binding(FrameUpdates& updates) : updates_(&updates) {}
    /// Applies it with the next frame; costs nothing when that is due already.
    void mark();
    [[nodiscard]] FrameUpdates& updates() const { return *updates_; }

 private:
    friend class FrameUpdates;

    FrameUpdates* updates_;
    bool isDue_ = false;
};

}  // namespace orv
