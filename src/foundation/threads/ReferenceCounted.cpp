#include "foundation/threads/ReferenceCounted.h"

namespace quelm {

std::int32_t CReferenceCounted::Release() noexcept {
    const std::int32_t left = count_.fetch_sub(1) - 1;
    if (left == 0) delete this;
    return left;
}

}  // namespace quelm
