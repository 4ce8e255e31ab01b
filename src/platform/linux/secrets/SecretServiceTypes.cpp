#include "platform/linux/secrets/SecretServiceTypes.h"

#include <libsecret/secret.h>

namespace platform {

namespace {

constexpr const char* refusal = "a prompt would be needed";

GVariant* refusePrompt(SecretService*, SecretPrompt*, GCancellable*, const GVariantType*,
                       GError** error) {
    g_set_error_literal(error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED, refusal);
    return nullptr;
}

void refusePromptLater(SecretService* self, SecretPrompt*, const GVariantType*,
                       GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    GTask* const task = g_task_new(self, cancellable, callback, data);
    g_task_return_new_error(task, SECRET_ERROR, SECRET_ERROR_IS_LOCKED, "%s", refusal);
    g_object_unref(task);
}

GVariant* refusedPrompt(SecretService*, GAsyncResult* result, GError** error) {
    return static_cast<GVariant*>(g_task_propagate_pointer(G_TASK(result), error));
}

/// libsecret's constructor sets the names and the shared bus, and may: until the outermost
/// constructor returns, the properties for construction can be set.
GObject* constructOnConnection(GType type, guint count, GObjectConstructParam* properties) {
    auto* const parent = static_cast<GObjectClass*>(g_type_class_peek(SECRET_TYPE_SERVICE));
    GObject* const object = parent->constructor(type, count, properties);
    g_object_set(object, "g-bus-type", G_BUS_TYPE_NONE, nullptr);
    return object;
}

void initializePrompting(gpointer memory, gpointer) {
    static_cast<GObjectClass*>(memory)->constructor = constructOnConnection;
}

void initializePromptless(gpointer memory, gpointer) {
    initializePrompting(memory, nullptr);
    auto* const type = static_cast<SecretServiceClass*>(memory);
    type->prompt_sync = refusePrompt;
    type->prompt_async = refusePromptLater;
    type->prompt_finish = refusedPrompt;
}

GType registerType(const char* name, GClassInitFunc initialize) {
    return g_type_register_static_simple(SECRET_TYPE_SERVICE, name, sizeof(SecretServiceClass),
                                         initialize, sizeof(SecretService), nullptr, GTypeFlags{});
}

}  // namespace

GType PromptingServiceType() {
    static const GType type = registerType("OrvPromptingService", initializePrompting);
    return type;
}

GType PromptlessServiceType() {
    static const GType type = registerType("OrvPromptlessService", initializePromptless);
    return type;
}

}  // namespace platform
