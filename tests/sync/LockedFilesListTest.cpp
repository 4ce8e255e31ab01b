#include "sync/SyncFixture.h"
#include "sync/locks/LockedFilesList.h"

namespace {

using namespace orv;
using quelm::Dictionary;
using Names = std::vector<std::string>;

class TheLocks : public test_support::SyncFixture {
 protected:
    TheLocks() : SyncFixture({{"rcid", "17"}, {"team_name", "Sales"}}) {
        list_.emplace(environment());
        list_->addClient(this, MakeSelector<&TheLocks::changed>("changed"));
    }

    void changed(const Dictionary& userInfo) {
        const auto& lock = *userInfo.find("lock")->asDictionary();
        told_.push_back(*lock.find("path")->asString() +
                        (*lock.find("locked") == quelm::Value(true) ? "" : " gone"));
    }
    void item(const std::string& id, const std::string& path, const std::string& lock,
              Dictionary more = {}) {
        more.set("item_id", id);
        more.set("path", path);
        more.set("lock", lock);
        more.set("agent-id", "1");
        event("sync_item", std::move(more));
    }
    [[nodiscard]] Names paths() const {
        Names paths;
        for (const Lock& lock : list_->locks())
            paths.push_back(lock.path());
        return paths;
    }
    Names takeTold() { return std::exchange(told_, {}); }

    std::optional<LockedFilesList> list_;
    Names told_;
};

TEST_F(TheLocks, FollowWhatTheAgentReports) {
    item("1", "/p/b", "1", {{"locktime", "170"}, {"lock_holder", "Bob"}, {"lock_holder_id", "b"}});
    item("2", "/p/a", "2", {{"status", "5"}});
    item("3", "/p/c", "0");
    item("4", "", "1");
    item("5", "/p/d", "1", {{"status", "3"}});
    item("6", "/p/e", "4");
    EXPECT_EQ(paths(), (Names{"/p/a", "/p/b"}));
    EXPECT_EQ(takeTold(), (Names{"/p/b", "/p/a"}));
    const Lock lock = *list_->lockForPath("/p/b");
    EXPECT_EQ(lock.lockTime(), 170);
    EXPECT_EQ(lock.lockHolder() + lock.lockHolderId() + lock.teamName(), "BobbSales");
    EXPECT_EQ(list_->myLocks().size(), 1U);
    EXPECT_EQ(list_->lockForPath("/p/c"), std::nullopt);

    item("1", "/p/0", "1", {{"lock_holder", "Zoe"}});
    EXPECT_EQ(paths(), (Names{"/p/0", "/p/a"}));
    EXPECT_EQ(list_->lockForPath("/p/0")->lockHolder(), "Zoe");
    EXPECT_EQ(takeTold(), Names{}) << "the same state is no news";
    item("1", "/p/0", "2");
    EXPECT_EQ(takeTold(), Names{"/p/0"});
    item("1", "/p/0", "1", {{"status", "6"}});
    EXPECT_EQ(paths(), Names{"/p/a"});
    EXPECT_EQ(takeTold(), Names{"/p/0 gone"});
}

TEST_F(TheLocks, ADeferredUnlockIsNoticedOnceAndTheNoticeGoesWithIt) {
    list_->populateList();
    event("sync_error", {{"error", "0"}});
    event("sync_error", {{"error", "5"}});
    item("1", "/p/Plan.doc", "3");
    item("1", "/p/Plan.doc", "3");
    item("1", "/p/Plan.doc", "1");
    item("1", "/p/Plan.doc", "1");
    ASSERT_TRUE(EndAgentEvents(std::chrono::seconds(10)));
    std::vector<Dictionary> posted;
    for (const auto& post : center_->posted())
        posted.push_back(post.payload);
    const Dictionary request{
        {"agent-id", "1"}, {"event_name", "sync_request"}, {"command", "request-locked-items"}};
    EXPECT_EQ(
        posted,
        (std::vector{request, request,
                     Dictionary{{"agent-id", "0"},
                                {"event_name", "show_message"},
                                {"title", "Tidewell Backup"},
                                {"text", "Unlock deferred until upload of 'Plan.doc' completes"},
                                {"timeout", "10"},
                                {"id", "unlock-pending-1"}},
                     Dictionary{{"agent-id", "0"},
                                {"event_name", "show_message"},
                                {"id", "unlock-pending-1"},
                                {"hide", "1"}}}));
}

TEST_F(TheLocks, AreSmartWhenTheirDetailsNameTheAccount) {
    Lock lock("1", "/p", true, 0, quelm::sync::SYNC_LOCK, "");
    const std::vector<std::pair<std::string, bool>> cases = {
        {R"({"badge_origin": "17"})", true},
        {"", true},
        {"{broken", true},
        {R"({"badge_origin": "18"})", false},
        {"{broken", false},
        {R"({"badge_origin": "17", "x": [1]})", true},
        {"7", false},
        {R"({"badge_origin": 17})", false},
        {"[]", false},
        {std::string(100'000, '['), false},
        {"\"\xff\"", false}};
    for (const auto& [details, smart] : cases) {
        lock.setLockDetails(details, "17");
        EXPECT_EQ(lock.smartLock(), smart) << details.substr(0, 50);
    }
    EXPECT_EQ(log_.size(), 4U);
    EXPECT_TRUE(log_.at(0).starts_with("ERROR: Error parsing JSON: ")) << log_.at(0);
}

}  // namespace
