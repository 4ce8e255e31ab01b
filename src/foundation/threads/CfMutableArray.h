#pragma once

#include <utility>

#include "foundation/threads/SmartPtr.h"
#include "platform/Value.h"

namespace quelm {

/// A value shared between owners that count it.
template <class T>
struct CfObject : CReferenceCounted {
    CfObject() = default;
    explicit CfObject(T initial) : value(std::move(initial)) {}

    T value;
};

template <class T>
void CfRetain(CfObject<T>* object) noexcept {
    CRefTraits::AddRef(object);
}

template <class T>
void CfRelease(CfObject<T>* object) noexcept {
    object->Release();
}

/// Owns an array, empty at first.
class CfMutableArray {
 public:
    CfMutableArray(const CfMutableArray&) = delete;
    CfMutableArray& operator=(const CfMutableArray&) = delete;
    CfMutableArray() = default;
    ~CfMutableArray() = default;

    [[nodiscard]] Array& operator*() { return object_->value; }
    [[nodiscard]] Array* operator->() { return &object_->value; }
    /// To share the array beyond this object's life: give it to another pointer's Reset().
    [[nodiscard]] CfObject<Array>* Get() const { return object_.Get(); }

 private:
    CSmartPtr<CfObject<Array>, CfRefTraits> object_ = MakeSmart<CfObject<Array>, CfRefTraits>();
};

}  // namespace quelm
