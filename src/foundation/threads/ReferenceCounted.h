#pragma once

#include <atomic>
#include <cstdint>

namespace quelm {

/// Base of objects that count their owners. The creator is the first; the last to call Release()
/// destroys the object. Counting is safe from any thread.
class CReferenceCounted {
 public:
    /// Drops one reference and answers how many are left; at 0 the object is gone.
    std::int32_t Release() noexcept;

 protected:
    CReferenceCounted() = default;
    // the content of a derived object is copied, its owners are not
    CReferenceCounted(const CReferenceCounted&) noexcept {}
    CReferenceCounted& operator=(const CReferenceCounted&) noexcept { return *this; }
    virtual ~CReferenceCounted() = default;

 private:
    friend struct CRefTraits;

    std::atomic<std::int32_t> count_{1};
};

}  // namespace quelm
