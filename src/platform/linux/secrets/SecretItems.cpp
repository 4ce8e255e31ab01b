#include "platform/linux/secrets/SecretItems.h"

#include <algorithm>
#include <span>

namespace platform {

namespace {

using Status = Keychain::Status;

SecretAttributes attributesOf(SecretItem* item) {
    SecretAttributes attributes;
    const GHashTableHandle table(secret_item_get_attributes(item));
    if (!table) return attributes;
    GHashTableIter row;
    gpointer key = nullptr;
    gpointer value = nullptr;
    g_hash_table_iter_init(&row, table.get());
    while (g_hash_table_iter_next(&row, &key, &value) != FALSE) {
        attributes.emplace(static_cast<const char*>(key), static_cast<const char*>(value));
    }
    return attributes;
}

Status findItems(SecretServiceSession& session, const SecretAttributes& wanted,
                 SecretItems& items) {
    items.clear();
    const auto table = TableOf(wanted);
    const GObjectListHandle found(
        secret_service_search_sync(session.service(), nullptr, table.get(), SECRET_SEARCH_ALL,
                                   session.cancellable(), session.error()));
    if (session.status() != Status::Done) return session.status();
    for (const GList* link = found.get(); link != nullptr; link = link->next) {
        auto* const item = static_cast<SecretItem*>(link->data);
        if (!IsMeant(attributesOf(item), wanted)) continue;
        items.emplace_back(static_cast<SecretItem*>(g_object_ref(item)));
    }
    return items.empty() ? Status::NotFound : Status::Done;
}

bool isLocked(const GObjectHandle<SecretItem>& item) {
    return secret_item_get_locked(item.get()) != FALSE;
}

/// Asks the user. What is locked afterwards tells whether it worked: some services report success
/// after a wrong password.
template <typename Object>
void unlock(SecretServiceSession& session, std::span<const GObjectHandle<Object>> objects) {
    GList* list = nullptr;
    for (const auto& object : objects)
        list = g_list_prepend(list, g_object_ref(object.get()));
    const GObjectListHandle wanted(list);
    secret_service_unlock_sync(session.service(), wanted.get(), session.cancellable(), nullptr,
                               session.error());
}

void makeDefaultCollection(SecretServiceSession& session) {
    // the name that keyrings themselves give to it
    const GObjectHandle<SecretCollection> made(secret_collection_create_sync(
        session.service(), "Login", "default", SECRET_COLLECTION_CREATE_NONE, session.cancellable(),
        session.error()));
}

/// NotFound when there is none.
Status findCollection(SecretServiceSession& session, GObjectHandle<SecretCollection>& collection) {
    collection.reset(secret_collection_for_alias_sync(session.service(), SECRET_COLLECTION_DEFAULT,
                                                      SECRET_COLLECTION_NONE, session.cancellable(),
                                                      session.error()));
    if (collection) return Status::Done;
    return session.status() == Status::Done ? Status::NotFound : session.status();
}

bool isLockedCollection(const GObjectHandle<SecretCollection>& collection) {
    return secret_collection_get_locked(collection.get()) != FALSE;
}

Status unlockCollection(SecretServiceSession& session, bool mayPrompt,
                        GObjectHandle<SecretCollection>& collection) {
    if (!mayPrompt) return Status::Locked;
    unlock<SecretCollection>(session, {&collection, 1});
    const Status status = findCollection(session, collection);
    if (status != Status::Done) return status;
    return isLockedCollection(collection) ? Status::Locked : Status::Done;
}

/// A service may know nothing of what is in a collection that was never unlocked since it started:
/// only an unlocked collection proves that an item is not there.
Status findBehindLock(SecretServiceSession& session, const SecretAttributes& attributes,
                      bool mayPrompt, SecretItems& items) {
    GObjectHandle<SecretCollection> collection;
    Status status = findCollection(session, collection);
    if (status != Status::Done) return status;
    if (!isLockedCollection(collection)) return Status::NotFound;
    status = unlockCollection(session, mayPrompt, collection);
    return status == Status::Done ? findItems(session, attributes, items) : status;
}

}  // namespace

GHashTableHandle TableOf(const SecretAttributes& attributes) {
    GHashTableHandle table(g_hash_table_new(g_str_hash, g_str_equal));
    for (const auto& [name, value] : attributes) {
        // borrowed, and only read
        g_hash_table_insert(table.get(), const_cast<char*>(name.c_str()),
                            const_cast<char*>(value.c_str()));
    }
    return table;
}

Status FindUnlockedItems(SecretServiceSession& session, const SecretAttributes& attributes,
                         bool mayPrompt, SecretItems& items) {
    Status status = findItems(session, attributes, items);
    if (status == Status::NotFound) {
        status = findBehindLock(session, attributes, mayPrompt, items);
    }
    if (status == Status::Done && mayPrompt && std::ranges::all_of(items, isLocked)) {
        unlock<SecretItem>(session, items);
        status = findItems(session, attributes, items);
    }
    if (status != Status::Done) return status;
    std::erase_if(items, isLocked);
    return items.empty() ? Status::Locked : Status::Done;
}

Status DefaultCollection(SecretServiceSession& session, bool mayPrompt,
                         GObjectHandle<SecretCollection>& collection) {
    Status status = findCollection(session, collection);
    if (status == Status::NotFound && mayPrompt) {
        makeDefaultCollection(session);
        status = findCollection(session, collection);
    }
    if (status != Status::Done || !isLockedCollection(collection)) return status;
    return unlockCollection(session, mayPrompt, collection);
}

}  // namespace platform
