#pragma once

#include <glib-object.h>

namespace platform {

// Kinds of libsecret's SecretService that talk over the connection given as "g-connection"; its own
// kind always takes GLib's shared one to the session bus.

/// Prompts as libsecret does.
[[nodiscard]] GType PromptingServiceType();

/// Answers every prompt that the service asks for by SECRET_ERROR_IS_LOCKED, without opening it.
[[nodiscard]] GType PromptlessServiceType();

}  // namespace platform
