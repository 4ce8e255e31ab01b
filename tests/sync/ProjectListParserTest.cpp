#include <gtest/gtest.h>
#include <limits>

#include "foundation/system/Log.h"
#include "sync/projects/ProjectListParser.h"

namespace {

using orv::ParseProjectList;
using orv::Project;
using orv::ProjectListKind;
using Names = std::vector<std::string>;

class ProjectListParser : public testing::Test {
 protected:
    ProjectListParser() {
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
    }
    ~ProjectListParser() override { quelm::SetLogSink(nullptr); }

    static Names namesOf(const orv::Projects& projects) {
        Names names;
        for (const auto& project : projects)
            names.push_back(project->name());
        return names;
    }
    /// The only project of a list, with these elements.
    static Project parse(const std::string& elements,
                         ProjectListKind kind = ProjectListKind::Subscribed) {
        const auto parsed = ParseProjectList(
            "<project-list><project>" + elements + "</project></project-list>", kind, {"Anna"});
        EXPECT_EQ(parsed->sync.size(), 1U);
        return *parsed->sync.at(0);
    }

    std::vector<std::string> log_;
};

TEST_F(ProjectListParser, MakesADictionaryOfTheElementsAndAddsTheTextsForDisplay) {
    const Project project = parse(
        "<id>12</id><name>A &amp; "
        "B&#x20;<![CDATA[<C>]]></name><owner>Anna</owner><foreign>x</foreign>"
        "<synced-files>3</synced-files><synced-size>1536</synced-size><total-files>9</total-files>"
        "<id>13</id><empty/><deep>1<b>2</b>3</deep>");
    EXPECT_EQ(project.dictionary(), (quelm::Dictionary{{"id", "13"},
                                                       {"name", "A & B <C>"},
                                                       {"owner", "Me"},
                                                       {"ownedByMe", true},
                                                       {"foreign", "x"},
                                                       {"synced-files", "3"},
                                                       {"synced-size", "1536"},
                                                       {"total-files", "9"},
                                                       {"empty", ""},
                                                       {"deep", "123"},
                                                       {"status", "3 files, 1.5 KB"}}));
    const std::string amounts =
        "<owner>Bob</owner><outOfQuota>1</outOfQuota><partial>YES</partial>"
        "<total-files>2</total-files><total-size>1</total-size><synced-files>1</synced-files>";
    const Project other = parse(amounts, ProjectListKind::NotSubscribed);
    EXPECT_EQ(*other.objectForKey("status"),
              quelm::Value("Out of Storage, 2 files, 1 B (Selective Sync)"));
    EXPECT_EQ(other.owner(), "Bob");
    EXPECT_FALSE(other.ownedByMe());
    EXPECT_EQ(*parse(amounts).objectForKey("status"),
              quelm::Value("Out of Storage, 1 files, 0 B (Selective Sync)"));
}

TEST_F(ProjectListParser, GroupsSortsAndSums) {
    const auto row = [](const std::string& name, const std::string& rest) {
        return "<project><name>" + name + "</name>" + rest + "</project>";
    };
    const std::string xml = "<r><x/><project-list>" + row("b", "<synced-files>1</synced-files>") +
                            row("Ä", "<external>1</external>") +
                            row("ä",
                                "<external>1</external><synced-size>9223372036854775807"
                                "</synced-size>") +
                            row("C", "<synced-size>5</synced-size>") + "<other/>" + row("a", "") +
                            "</project-list><project-list>" + row("z", "") + "</project-list></r>";
    const auto parsed = ParseProjectList(xml, ProjectListKind::Subscribed, {});
    ASSERT_TRUE(parsed);
    EXPECT_EQ(namesOf(parsed->sync), (Names{"a", "b", "C"}));
    EXPECT_EQ(namesOf(parsed->external), (Names{"Ä", "ä"}));
    EXPECT_EQ(parsed->files, 1);
    EXPECT_EQ(parsed->bytes, std::numeric_limits<std::int64_t>::max()) << "and not beyond";
    EXPECT_EQ(ParseProjectList(xml, ProjectListKind::NotSubscribed, {})->sync.size(), 5U);
}

TEST_F(ProjectListParser, TakesNothingFromWhatIsNoDocument) {
    const std::string deep = "<project-list><project>" + std::string(100'000, '<');
    std::string nested = "<project-list>";
    for (int i = 0; i < 100; ++i)
        nested += "<project>";
    const std::vector<std::string> bad = {
        "",
        "no document",
        "<project-list><project><id>1</id>",
        "<project-list><project><id>1</idd></project></project-list>",
        "<project-list><project><id>\x01</id></project></project-list>",
        "<project-list><project><id>&#0;</id></project></project-list>",
        "<project-list><project><id>&unknown;</id></project></project-list>",
        "<!DOCTYPE x [<!ENTITY a \"aaaa\">]><project-list/>",
        "<project-list/><project-list/>",
        std::string("<project-list>\0</project-list>", 30),
        "<project-list>\xff</project-list>",
        deep,
        nested};
    for (const std::string& xml : bad)
        EXPECT_FALSE(ParseProjectList(xml, ProjectListKind::Subscribed, {})) << xml.substr(0, 80);
    EXPECT_EQ(log_.size(), bad.size());
    for (const std::string xml : {"<project-list/>", "<other><project/></other>",
                                  "<a><b><project-list><project/></project-list></b></a>"}) {
        const auto parsed = ParseProjectList(xml, ProjectListKind::Subscribed, {});
        ASSERT_TRUE(parsed) << xml;
        EXPECT_TRUE(parsed->sync.empty()) << xml;
    }
}

TEST_F(ProjectListParser, ReadsNumbersAndBooleansAsTheyAreWritten) {
    const Project project(quelm::Dictionary{{"total-size", " 9223372036854775808"},
                                            {"synced-size", "-5x"},
                                            {"total-files", 7},
                                            {"total-folders", "x"},
                                            {"known", "0"},
                                            {"external", true},
                                            {"archived", 1},
                                            {"partial", "no"},
                                            {"read-only", "true"}});
    EXPECT_EQ(project.totalSize(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(project.syncedSize(), -5);
    EXPECT_EQ(project.totalFiles(), 7);
    EXPECT_EQ(project.totalFolders(), 0);
    EXPECT_FALSE(project.known());
    EXPECT_TRUE(project.external());
    EXPECT_TRUE(project.archived());
    EXPECT_FALSE(project.partial());
    EXPECT_TRUE(project.readOnly());
    EXPECT_FALSE(project.subscribed());
}

TEST(Project, KeepsWhichPartIsSynchronisedAsADocument) {
    Project project;
    EXPECT_FALSE(project.isPartialSubscribe());
    pugi::xml_document document;
    document.load_string("<a><b/><c>é</c></a>");
    project.setPartialSubscribeXML(&document);
    EXPECT_EQ(project.partialSubscribePayload(),
              "<?xml version=\"1.0\"?>\n<a>\n    <b />\n    <c>é</c>\n</a>\n");
    EXPECT_STREQ(project.partialsubscribeXML()->document_element().name(), "a");
    project.setObject(quelm::Data{"<broken"}, "partialSubscriptionXML");
    EXPECT_FALSE(project.isPartialSubscribe());
    project.setPartialSubscribeXML(nullptr);
    EXPECT_EQ(project.dictionary(), quelm::Dictionary{});

    EXPECT_EQ(project.projectLoaderSourcePath(), std::nullopt);
    project.setProjectLoaderSourcePath("/from");
    EXPECT_EQ(project.projectLoaderSourcePath(), "/from");
    EXPECT_TRUE(project.shouldUseProjectLoader());
    project.setProjectLoaderSourcePath(std::nullopt);
    EXPECT_FALSE(project.shouldUseProjectLoader());
}

}  // namespace
