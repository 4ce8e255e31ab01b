#pragma once

#include <memory>
#include <utility>

#include "foundation/threads/ReferenceCounted.h"

namespace quelm {

/// How CSmartPtr takes and drops objects derived from CReferenceCounted.
struct CRefTraits {
    static void AddRef(CReferenceCounted* object) noexcept { object->count_.fetch_add(1); }
    static void Release(CReferenceCounted* object) noexcept { object->Release(); }
};

/// The same for C-style objects that come with functions CfRetain(p) and CfRelease(p), found by the
/// type of p.
struct CfRefTraits {
    template <class T>
    static void AddRef(T* object) noexcept {
        CfRetain(object);
    }
    template <class T>
    static void Release(T* object) noexcept {
        CfRelease(object);
    }
};

/// Owns one reference to an object; copies share the object.
template <class T, class Traits = CRefTraits>
class CSmartPtr {
 public:
    CSmartPtr() = default;
    /// Adopts the creator's reference.
    explicit CSmartPtr(T* created) noexcept : pointer_(created) {}
    CSmartPtr(const CSmartPtr& other) noexcept : pointer_(other.pointer_) { take(pointer_); }
    CSmartPtr(CSmartPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    CSmartPtr& operator=(CSmartPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~CSmartPtr() { drop(std::exchange(pointer_, nullptr)); }

    /// Takes a reference of its own to `pointer`, then drops the one it had.
    void Reset(T* pointer = nullptr) noexcept {
        take(pointer);
        drop(std::exchange(pointer_, pointer));
    }

    [[nodiscard]] T* Get() const { return pointer_; }
    [[nodiscard]] T& operator*() const { return *pointer_; }
    [[nodiscard]] T* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    bool operator==(const CSmartPtr&) const = default;

 private:
    static void take(T* pointer) noexcept {
        if (pointer != nullptr) Traits::AddRef(pointer);
    }
    static void drop(T* pointer) noexcept {
        if (pointer != nullptr) Traits::Release(pointer);
    }

    T* pointer_ = nullptr;
};

/// A new object in the hands of its first owner.
template <class T, class Traits = CRefTraits, class... Arguments>
[[nodiscard]] CSmartPtr<T, Traits> MakeSmart(Arguments&&... arguments) {
    return CSmartPtr<T, Traits>(
        std::make_unique<T>(std::forward<Arguments>(arguments)...).release());
}

}  // namespace quelm
