#include "platform/linux/secrets/SecretServiceKeychain.h"

#include <utility>

#include "platform/linux/secrets/SecretItems.h"

namespace platform {

namespace {

using Status = Keychain::Status;

/// A password or a key, not a document.
constexpr std::size_t largestSecret = std::size_t{1024} * 1024;

struct UnrefSecret {
    void operator()(SecretValue* value) const { secret_value_unref(value); }
};
using SecretHandle = std::unique_ptr<SecretValue, UnrefSecret>;

/// The type is for tools that show items.
SecretHandle secretOf(const std::string& secret) {
    const auto size = static_cast<gssize>(secret.size());
    const bool text = g_utf8_validate(secret.data(), size, nullptr) != FALSE;
    return SecretHandle(
        secret_value_new(secret.data(), size, text ? "text/plain" : "application/octet-stream"));
}

Status load(SecretServiceSession& session, SecretItem* item, std::string& secret) {
    secret_item_load_secret_sync(item, session.cancellable(), session.error());
    if (session.status() != Status::Done) return session.status();
    const SecretHandle value(secret_item_get_secret(item));
    if (!value) return Status::Locked;  // by someone else, meanwhile
    gsize size = 0;
    const char* const bytes = secret_value_get(value.get(), &size);
    if (size > largestSecret) return Status::Failed;
    secret.assign(bytes, size);
    return Status::Done;
}

Status setSecret(SecretServiceSession& session, SecretItem* item, const std::string& secret) {
    const auto value = secretOf(secret);
    secret_item_set_secret_sync(item, value.get(), session.cancellable(), session.error());
    return session.status();
}

Status setSecretAndLabel(SecretServiceSession& session, SecretItem* item, const std::string& secret,
                         const std::string& label) {
    const Status status = setSecret(session, item, secret);
    if (status != Status::Done) return status;
    secret_item_set_label_sync(item, label.c_str(), session.cancellable(), session.error());
    return session.status();
}

/// The service would replace every item that has at least the attributes, so one with a path when
/// none is meant: only where that cannot be does it replace what another program has just made.
Status addItem(SecretServiceSession& session, SecretCollection* collection,
               const SecretAttributes& attributes, const std::string& secret,
               const std::string& label) {
    const bool mayBePartOfAnother = attributes.contains("server") && !attributes.contains("path");
    const auto value = secretOf(secret);
    const auto table = TableOf(attributes);
    const GObjectHandle<SecretItem> made(secret_item_create_sync(
        collection, nullptr, table.get(), label.c_str(), value.get(),
        mayBePartOfAnother ? SECRET_ITEM_CREATE_NONE : SECRET_ITEM_CREATE_REPLACE,
        session.cancellable(), session.error()));
    return session.status();
}

Status removeAll(SecretServiceSession& session, const SecretItems& items) {
    for (const auto& item : items) {
        secret_item_delete_sync(item.get(), session.cancellable(), session.error());
        const Status status = session.status();
        if (status != Status::Done && status != Status::NotFound) return status;
    }
    return Status::Done;
}

}  // namespace

SecretServiceKeychain::SecretServiceKeychain(Reporter reporter, std::string busAddress,
                                             std::chrono::milliseconds limit)
    : reporter_(std::move(reporter)), busAddress_(std::move(busAddress)), limit_(limit) {}

template <typename Work>
Status SecretServiceKeychain::withSession(Interaction interaction, Work work) {
    const bool mayPrompt = interaction == Interaction::Allowed;
    SecretServiceSession session(busAddress_, mayPrompt ? std::nullopt : std::optional(limit_));
    const Status status =
        session.service() != nullptr ? work(session, mayPrompt) : session.status();
    if (status == Status::Unavailable) {
        reporter_.report(
            "Passwords cannot be kept: no Secret Service answers on the session bus (" +
            session.problem() +
            "). Install one and start it, for example the package gnome-keyring.");
    }
    return status;
}

Status SecretServiceKeychain::state() {
    return withSession(Interaction::Forbidden, [](SecretServiceSession& session, bool mayPrompt) {
        GObjectHandle<SecretCollection> collection;
        return DefaultCollection(session, mayPrompt, collection);
    });
}

Status SecretServiceKeychain::read(const KeychainItem& item, std::string& secret,
                                   Interaction interaction) {
    const auto attributes = AttributesOf(item);
    if (!AreSendable(attributes)) return Status::Failed;
    return withSession(interaction, [&](SecretServiceSession& session, bool mayPrompt) {
        SecretItems items;
        const Status status = FindUnlockedItems(session, attributes, mayPrompt, items);
        return status == Status::Done ? load(session, items.front().get(), secret) : status;
    });
}

Status SecretServiceKeychain::replace(const KeychainItem& item, const std::string& secret,
                                      Interaction interaction) {
    const auto attributes = AttributesOf(item);
    if (!AreSendable(attributes) || secret.size() > largestSecret) return Status::Failed;
    return withSession(interaction, [&](SecretServiceSession& session, bool mayPrompt) {
        SecretItems items;
        const Status status = FindUnlockedItems(session, attributes, mayPrompt, items);
        return status == Status::Done ? setSecret(session, items.front().get(), secret) : status;
    });
}

Status SecretServiceKeychain::create(const KeychainItem& item, const std::string& label,
                                     const KeychainAccess&, const std::string& secret,
                                     Interaction interaction) {
    const auto attributes = AttributesOf(item);
    const bool fits = AreSendable(attributes) && IsSendable(label);
    if (!fits || secret.size() > largestSecret) return Status::Failed;
    return withSession(interaction, [&](SecretServiceSession& session, bool mayPrompt) {
        SecretItems items;
        Status status = FindUnlockedItems(session, attributes, mayPrompt, items);
        if (status == Status::Done) {
            return setSecretAndLabel(session, items.front().get(), secret, label);
        }
        if (status != Status::NotFound) return status;
        GObjectHandle<SecretCollection> collection;
        status = DefaultCollection(session, mayPrompt, collection);
        if (status != Status::Done) return status;
        return addItem(session, collection.get(), attributes, secret, label);
    });
}

Status SecretServiceKeychain::remove(const KeychainItem& item, Interaction interaction) {
    const auto attributes = AttributesOf(item);
    if (!AreSendable(attributes)) return Status::Failed;
    return withSession(interaction, [&](SecretServiceSession& session, bool mayPrompt) {
        SecretItems items;
        const Status status = FindUnlockedItems(session, attributes, mayPrompt, items);
        return status == Status::Done ? removeAll(session, items) : status;
    });
}

}  // namespace platform
