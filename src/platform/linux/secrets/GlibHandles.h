#pragma once

#include <gio/gio.h>
#include <memory>

namespace platform {

// Owning handles for what GLib hands out; each takes over one reference.

struct UnrefObject {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename Object>
using GObjectHandle = std::unique_ptr<Object, UnrefObject>;

struct FreeGError {
    void operator()(GError* error) const { g_error_free(error); }
};
using GErrorHandle = std::unique_ptr<GError, FreeGError>;

struct FreeGMemory {
    void operator()(gpointer memory) const { g_free(memory); }
};
using GTextHandle = std::unique_ptr<char, FreeGMemory>;

struct UnrefHashTable {
    void operator()(GHashTable* table) const { g_hash_table_unref(table); }
};
using GHashTableHandle = std::unique_ptr<GHashTable, UnrefHashTable>;

/// A list of objects, with a reference to each.
struct FreeObjectList {
    void operator()(GList* list) const { g_list_free_full(list, g_object_unref); }
};
using GObjectListHandle = std::unique_ptr<GList, FreeObjectList>;

/// For a GError** parameter: when the full expression ends, the owner has the call's error or none.
class GErrorOut {
 public:
    explicit GErrorOut(GErrorHandle& owner) : owner_(owner) { owner_.reset(); }
    GErrorOut(const GErrorOut&) = delete;
    GErrorOut& operator=(const GErrorOut&) = delete;
    ~GErrorOut() {
        if (error_ != nullptr) owner_.reset(error_);
    }
    // NOLINTNEXTLINE(google-explicit-constructor): that is its use
    operator GError**() { return &error_; }

 private:
    GErrorHandle& owner_;
    GError* error_ = nullptr;
};

/// What GLib delivers to this thread meanwhile stays out of the main thread's loop.
class GlibContextScope {
 public:
    GlibContextScope() : context_(g_main_context_new()) {
        g_main_context_push_thread_default(context_);
    }
    GlibContextScope(const GlibContextScope&) = delete;
    GlibContextScope& operator=(const GlibContextScope&) = delete;
    ~GlibContextScope() {
        // what waits to be delivered, also what is to be freed, would keep the context for ever
        while (g_main_context_iteration(context_, FALSE) != FALSE) {
        }
        g_main_context_pop_thread_default(context_);
        g_main_context_unref(context_);
    }

 private:
    GMainContext* context_;
};

}  // namespace platform
