#include "foundation/propertylist/PropertyList.h"
#include "sync/SyncFixture.h"
#include "sync/projects/ProjectsList.h"

namespace {

using namespace orv;
using quelm::Dictionary;
using Names = std::vector<std::string>;

class TheProjects : public test_support::SyncFixture {
 protected:
    TheProjects()
        : SyncFixture({{"full_name", ""}, {"email", "anna@acme.example"}, {"user", "anna"}}) {
        start();
    }

    /// A list that begins with what is stored.
    void start() {
        list_.reset();
        list_.emplace(environment());
        list_->addClient(this, MakeSelector<&TheProjects::projectsListChanged>("changed"));
        list_->loadProjectList();
        loop_.processPending();
        told_.clear();
    }
    void projectsListChanged(const Dictionary& userInfo) { told_.push_back(userInfo); }

    void answer(const char* command, const std::string& xml, Dictionary more = {}) {
        more.set("command", command);
        more.set("project-list", xml);
        event("sync_response", std::move(more));
    }
    /// What was asked of the agent since the last call, without id and name.
    std::vector<Dictionary> asked() {
        EXPECT_TRUE(EndAgentEvents(std::chrono::seconds(10)));
        std::vector<Dictionary> requests;
        for (auto& posted : center_->posted()) {
            EXPECT_EQ(*posted.payload.find("agent-id"), quelm::Value("1"));
            posted.payload.erase("agent-id");
            if (*posted.payload.find("event_name") == quelm::Value("sync_request")) {
                posted.payload.erase("event_name");
            }
            requests.push_back(posted.payload);
        }
        return requests;
    }
    static std::string listOf(const std::vector<std::string>& projects) {
        std::string xml = "<project-list>";
        for (const std::string& project : projects)
            xml += "<project>" + project + "</project>";
        return xml + "</project-list>";
    }
    static std::string project(const std::string& id, const std::string& path = "",
                               const std::string& more = "") {
        return "<id>" + id + "</id><name>n" + id + "</name><local-path>" + path + "</local-path>" +
               more;
    }
    std::optional<quelm::Value> stored() {
        list_->waitUntilStored();
        return quelm::ReadPropertyListFile(folder_ / "subscribed_projects.plist").value;
    }

    std::optional<ProjectsList> list_;
    std::vector<Dictionary> told_;
};

const Dictionary idle{{"operation", "0"}, {"timed-out", "0"}};

TEST_F(TheProjects, AnswersAreTakenStoredAndToldOnce) {
    const std::string xml =
        listOf({project("2", "/p/2", "<owner>anna@acme.example</owner>"), project("1", "/p/1"),
                project("3", "/e", "<external>1</external>")});
    answer("subscribed-projects", xml);
    EXPECT_EQ(told_, std::vector{idle});
    EXPECT_EQ(list_->subscribedProjectsCount(), 3U);
    EXPECT_EQ(list_->subscribedProjects().at(0)->id(), "1");
    EXPECT_EQ(list_->subscribedExternalProjects().at(0)->id(), "3");
    EXPECT_EQ(list_->projectWithId("2")->owner(), "Me");
    EXPECT_EQ(list_->mineProjectWithName("n2"), list_->projectWithPath("/p/2"));
    EXPECT_EQ(list_->mineProjectWithName("n1"), nullptr);
    ASSERT_TRUE(stored());
    EXPECT_EQ(stored()->asArray()->size(), 3U);

    std::filesystem::remove(folder_ / "subscribed_projects.plist");
    answer("subscribed-projects", xml);
    EXPECT_EQ(told_.size(), 1U) << "the same again is no news";
    EXPECT_FALSE(stored()) << "and is not written";
    answer("subscribed-projects", listOf({project("1", "/p/1", "<synced-size>7</synced-size>")}));
    EXPECT_EQ(told_.size(), 2U);
    EXPECT_EQ(list_->subscribedProjectsBytes(), 7);

    start();
    EXPECT_EQ(list_->subscribedProjectsBytes(), 7) << "from the file";
    answer("subscribed-projects", listOf({project("1", "/p/1", "<synced-size>7</synced-size>")}));
    EXPECT_TRUE(told_.empty()) << "what was stored is no news either";
}

TEST_F(TheProjects, BadForeignAndRefusedAnswersChangeNothing) {
    answer("subscribed-projects", listOf({project("1", "/p/1")}));
    answer("not-subscribed-projects", listOf({project("9")}));
    told_.clear();
    const auto before = stored();
    answer("subscribed-projects", "<project-list><project>");
    event("sync_response", {{"command", "subscribed-projects"}});
    answer("subscribed-projects", "<project-list/>", {{"agent-id", "2"}});
    answer("not-subscribed-projects", "<project-list/>", {{"result", "3"}});
    answer("unknown", "<project-list/>");
    event("sync_response", {{"command", 7}, {"project-list", quelm::Array{}}});
    EXPECT_TRUE(told_.empty());
    EXPECT_EQ(list_->projects().size(), 2U);
    EXPECT_EQ(stored(), before);
    ASSERT_TRUE(asked().empty());

    folder_.makeFile("subscribed_projects.plist", "<plist><array>");
    start();
    EXPECT_EQ(list_->projects().size(), 0U);
    EXPECT_NE(log_.back().find("subscribed_projects.plist"), std::string::npos);
}

TEST_F(TheProjects, AreAskedForWhenTheAgentSaysThatSomethingIsDone) {
    const Dictionary subscribed{{"command", "subscribed-projects"}, {"compute-synced", "1"}};
    const Dictionary others{{"command", "not-subscribed-projects"}};
    event("sync_project_quota", {});
    event("sync_status", {{"send-count", "0"}, {"receive-count", "0"}});
    event("sync_status", {{"send-count", "0"}, {"receive-count", "2"}});
    event("server_response", {{"command", "set-partial-subscribe"}, {"result", "1"}});
    event("server_response", {{"command", "set-partial-subscribe"}, {"result", "0"}});
    event("sync_response", {{"command", "subscribe"}});
    answer("subscribed-projects", "<project-list/>");
    answer("subscribed-projects", "<project-list/>");
    for (const int status : {1, 4})
        center_->deliver(notifications::connectionStatusChanged, defaultNotificationObject,
                         {{"status", status}, {"agent-id", "1"}});
    EXPECT_EQ(asked(), (std::vector{subscribed, others, subscribed, others, subscribed, others,
                                    subscribed, others}));
}

TEST_F(TheProjects, RequestsCarryWhatTheyAreAbout) {
    Project plain(Dictionary{{"id", "5"}});
    Project part = plain;
    pugi::xml_document document;
    document.load_string("<a/>");
    part.setPartialSubscribeXML(&document);
    Project loaded = plain;
    loaded.setProjectLoaderSourcePath("/from");
    list_->subscribeProjectAtPath(plain, "/to");
    list_->subscribeProjectFolderId(plain, "f");
    list_->subscribeProject(plain, "/to", "2");
    list_->subscribeProjectAtPath(part, "/to");
    list_->subscribeProject(part, "/to", "2");
    list_->subscribeProjectAtPath(loaded, "/to");
    list_->subscribeProject(loaded);
    list_->unsubscribeProject(plain);
    list_->createEPPath("/e", "n", "o", "p");
    const std::string xml = "<?xml version=\"1.0\"?>\n<a />\n";
    const Dictionary path{{"command", "set-project-path"}, {"path", "/to"}, {"project-id", "5"}};
    const Dictionary partial{{"command", "set-partial-subscribe"}, {"payload", xml}};
    const auto import = [](const std::string& root) {
        return Dictionary{{"event_name", "project_import_start"},
                          {"path", "/from"},
                          {"project-ids", "5"},
                          {"project-root", root},
                          {"subscribe-xmls", "0"}};
    };
    const std::string master = accounts_->defaultConfig().masterProjectFolder();
    EXPECT_EQ(
        asked(),
        (std::vector<Dictionary>{
            {{"command", "subscribe"},
             {"project-id", "5"},
             {"full-path", "/to"},
             {"folder-id", ""}},
            {{"command", "subscribe"}, {"project-id", "5"}, {"full-path", ""}, {"folder-id", "f"}},
            {{"command", "connect-project"},
             {"project-id", "5"},
             {"full-path", "/to"},
             {"merge-option", "2"}},
            path,
            partial,
            partial,
            path,
            import("/to"),
            import(master),
            {{"command", "unsubscribe"}, {"project-id", "5"}, {"folder-id", ""}},
            {{"command", "create-external"},
             {"path", "/e"},
             {"name", "n"},
             {"owner", "o"},
             {"password", "p"}}}));
}

TEST_F(TheProjects, OnlyExternalOnesAreMoved) {
    answer("subscribed-projects",
           listOf({project("1", "/p/1"),
                   project("2", "/e", "<external>1</external><root-id>r</root-id>")}));
    list_->updateProjectOldPath("/none", "/new");
    list_->updateProjectOldPath("/p/1", "/new");
    EXPECT_EQ(log_, (Names{"ERROR: Project not found!",
                           "ERROR: Update path of not external project [ID=1, old=/p/1, "
                           "new=/new]"}));
    list_->updateProjectOldPath("/e", "/new");
    answer("subscribed-projects", "<project-list/>");
    EXPECT_EQ(asked(), (std::vector<Dictionary>{
                           {{"command", "update-project-path"}, {"path", "/new"}, {"root-id", "r"}},
                           {{"command", "not-subscribed-projects"}}}));
}

TEST_F(TheProjects, AnOperationIsPendingUntilItsProjectIsThereOrTimeIsUp) {
    const Dictionary pending{{"operation", "1"}, {"timed-out", "0"}};
    const Dictionary late{{"operation", "0"}, {"timed-out", "1"}};
    answer("not-subscribed-projects", listOf({project("7")}));
    told_.clear();
    list_->setPendingSyncOperation(0, "7", "");
    answer("subscribed-projects", listOf({project("6", "/p/6")}));
    EXPECT_EQ(list_->pendingSyncOperation(), 0) << "it is not subscribed yet";
    answer("subscribed-projects", listOf({project("7", "/p/7")}));
    EXPECT_EQ(told_, (std::vector{pending, idle})) << "a burst is told once";
    list_->setPendingSyncOperation(0, "", "/p/8");
    loop_.advance(std::chrono::seconds(179));
    EXPECT_EQ(list_->pendingSyncOperation(), 0);
    loop_.advance(std::chrono::seconds(1));
    EXPECT_EQ(list_->pendingSyncOperation(), 1);
    EXPECT_EQ(told_.back(), late);
    list_->setPendingSyncOperation(0, "", "");
    EXPECT_FALSE(list_->timedOut());
    EXPECT_FALSE(list_->existsPendingSyncOperationProject());
    list_->setPendingSyncOperation(1, "", "");
    loop_.advance(std::chrono::hours(1));
    EXPECT_EQ(told_.back(), idle);
}

TEST_F(TheProjects, ThoseToSubscribeToAreCountedAfterTheFirstAnswer) {
    const auto before = loop_.now();
    EXPECT_EQ(list_->subscribableProjectsCountWithKnown(true), 1U);
    EXPECT_EQ(loop_.now() - before, std::chrono::seconds(1));
    EXPECT_EQ(log_, Names{"WARNING: Subscribable projects count still not received, failsafe "
                          "returning count 1"});
    const std::string xml =
        listOf({project("1", "", "<known>0</known>"), project("2", "", "<known>1</known>"),
                project("3", "", "<archived>1</archived><known>0</known>"), project("4")});
    std::size_t count = 0;
    list_->subscribableProjectsCount(true, [&count](std::size_t answer) { count = answer; });
    loop_.post([&] { answer("not-subscribed-projects", xml); });
    EXPECT_EQ(list_->subscribableProjectsCountWithKnown(false), 1U);
    EXPECT_EQ(count, 3U);
    EXPECT_EQ(log_.size(), 1U);
    list_->subscribableProjectsCount(false, [&count](std::size_t answer) { count = answer; });
    EXPECT_EQ(count, 1U) << "answered at once";
}

TEST_F(TheProjects, APathBelongsToTheInnermostProject) {
    answer("subscribed-projects", listOf({project("1", "/p/A"), project("2", "/p/A/inner/"),
                                          project("3", "/p/B"), project("4")}));
    const std::vector<std::array<std::string, 3>> cases = {{"/p/A/x/y", "n1", "x/y"},
                                                           {"/p/A", "n1", ""},
                                                           {"/p/A/inner/x", "n2", "x"},
                                                           {"/p/Ab/x", "", ""},
                                                           {"/p", "", ""},
                                                           {"", "", ""},
                                                           {"/p/A/innermost", "n1", "innermost"}};
    for (const auto& [path, name, rest] : cases) {
        EXPECT_EQ(list_->projectNameForPath(path), name) << path;
        EXPECT_EQ(list_->relativePathForPath(path), rest) << path;
    }
}

}  // namespace
