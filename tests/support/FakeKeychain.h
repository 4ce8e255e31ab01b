#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/Keychain.h"

namespace test_support {

/// A keychain in memory that notes what it is asked.
class FakeKeychain final : public platform::Keychain {
 public:
    using Item = platform::KeychainItem;
    struct Entry {
        std::string secret;
        std::string label;
        platform::KeychainAccess access;
    };
    struct Call {
        std::string name;
        Interaction interaction;
    };

    /// What every call answers instead of doing its work.
    std::optional<Status> fault;
    /// How many of the next calls of a name fail ("create").
    std::map<std::string, int> failures;
    /// A locked one answers Locked with interaction forbidden, and is unlocked by an allowed call.
    bool locked = false;
    std::vector<Call> calls;

    /// Nullptr for a missing item.
    [[nodiscard]] const Entry* find(const Item& item) const {
        const auto found = entries_.find(keyOf(item));
        return found != entries_.end() ? &found->second : nullptr;
    }
    [[nodiscard]] std::size_t size() const { return entries_.size(); }

    Status state() override {
        if (fault) return *fault;
        return locked ? Status::Locked : Status::Done;
    }
    Status read(const Item& item, std::string& secret, Interaction interaction) override {
        return run("read", interaction, [&] {
            const Entry* const entry = find(item);
            if (entry != nullptr) secret = entry->secret;
            return entry != nullptr;
        });
    }
    Status replace(const Item& item, const std::string& secret, Interaction interaction) override {
        return run("replace", interaction, [&] {
            const auto found = entries_.find(keyOf(item));
            if (found != entries_.end()) found->second.secret = secret;
            return found != entries_.end();
        });
    }
    Status create(const Item& item, const std::string& label,
                  const platform::KeychainAccess& access, const std::string& secret,
                  Interaction interaction) override {
        return run("create", interaction, [&] {
            entries_[keyOf(item)] = {secret, label, access};
            return true;
        });
    }
    Status remove(const Item& item, Interaction interaction) override {
        return run("remove", interaction, [&] { return entries_.erase(keyOf(item)) > 0; });
    }

 private:
    using Key = std::tuple<bool, std::string, std::string, std::optional<std::string>,
                           std::uint16_t, std::uint32_t>;

    static Key keyOf(const Item& item) {
        if (const auto* generic = std::get_if<platform::GenericPasswordItem>(&item)) {
            return {false, generic->service, generic->account, std::nullopt, 0, 0};
        }
        const auto& internet = std::get<platform::InternetPasswordItem>(item);
        return {true,          internet.server, internet.account,
                internet.path, internet.port,   internet.protocol};
    }

    /// `work` answers whether the item was there.
    template <typename Work>
    Status run(const char* name, Interaction interaction, Work work) {
        calls.push_back({name, interaction});
        if (fault) return *fault;
        if (failures[name] > 0) {
            --failures[name];
            return Status::Failed;
        }
        if (locked && interaction == Interaction::Forbidden) return Status::Locked;
        locked = false;
        return work() ? Status::Done : Status::NotFound;
    }

    std::map<Key, Entry> entries_;
};

}  // namespace test_support
