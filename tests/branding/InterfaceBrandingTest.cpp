#include <gtest/gtest.h>
#include <list>

#include "config/ConfigurationPath.h"
#include "foundation/system/Log.h"
#include "support/TemporaryFolder.h"
#include "support/VarBranding.h"

namespace {

using orv::InterfaceKind;
using Kind = InterfaceKind;

/// An interface object of a test, and what became of it.
class Element final : public orv::InterfaceElement {
 public:
    explicit Element(Kind kind, std::string text = "", int tag = 0)
        : text_(std::move(text)), kind_(kind), tag_(tag) {}

    [[nodiscard]] Kind kind() const override { return kind_; }
    [[nodiscard]] int tag() const override { return tag_; }
    [[nodiscard]] std::string text() const override { return text_; }
    void setText(const std::string& text) override { text_ = text; }
    void setTextColor(const orv::HexColor& color) override { color_ = color; }
    [[nodiscard]] orv::StyledText styledText() const override { return styled_; }
    void setStyledText(const orv::StyledText& text) override { styled_ = text; }
    [[nodiscard]] std::optional<std::string> imageName() const override { return imageName_; }
    void setImage(const orv::BrandImage& image) override { shownImage_ = image.name; }
    void visitParts(const Visitor& visitor) override { visit(parts_, visitor); }
    void visitSubviews(const Visitor& visitor) override { visit(subviews_, visitor); }

    Element& addPart(Element element) { return parts_.emplace_back(std::move(element)); }
    Element& addSubview(Element element) { return subviews_.emplace_back(std::move(element)); }

    std::string text_;
    std::optional<std::string> imageName_;
    orv::StyledText styled_;
    std::optional<orv::HexColor> color_;
    std::string shownImage_;

 private:
    static void visit(std::list<Element>& elements, const Visitor& visitor) {
        for (Element& element : elements)
            visitor(element);
    }

    Kind kind_;
    int tag_;
    std::list<Element> parts_;
    std::list<Element> subviews_;
};

class InterfaceBranding : public testing::Test {
 protected:
    InterfaceBranding() {
        orv::SetConfigBasePath(folder_.path());
        orv::orv_VarBranding::storeParams({{"company", "Acme"},
                                           {"header_text_color", "#010203"},
                                           {"header_text_bgcolor", "#000000"},
                                           {"logo_bitmap_url", "file:///logo.png"}});
        brand_.load();
    }
    ~InterfaceBranding() override { orv::ClearConfigBasePath(); }

    test_support::TemporaryFolder folder_;
    orv::orv_VarBranding brand_;
    const std::string variable_ = "$(BRAND_COMPANY_NAME)";
};

TEST_F(InterfaceBranding, RewritesTheTextsThatAKindHasAndReachesWhatItHolds) {
    struct Case {
        Kind kind;
        bool text;
        bool parts;
        bool subviews;
    };
    const std::vector<Case> cases = {
        {Kind::Array, false, true, false},      {Kind::Button, true, false, true},
        {Kind::ScrollView, false, true, true},  {Kind::OtherView, false, false, true},
        {Kind::TabViewItem, true, true, false}, {Kind::MenuItem, true, false, false},
        {Kind::Other, false, false, false},
    };
    for (const auto& [kind, text, parts, subviews] : cases) {
        Element element(kind, variable_);
        const Element& part = element.addPart(Element(Kind::MenuItem, variable_));
        const Element& subview = element.addSubview(Element(Kind::Button, variable_));
        brand_.process(element);
        const auto number = static_cast<int>(kind);
        EXPECT_EQ(element.text_, text ? "Acme" : variable_) << number;
        EXPECT_EQ(part.text_, parts ? "Acme" : variable_) << number;
        EXPECT_EQ(subview.text_, subviews ? "Acme" : variable_) << number;
    }
}

TEST_F(InterfaceBranding, ReachesAViewDeepInAWindow) {
    Element window(Kind::Window, "by " + variable_);
    Element& item = window.addPart(Element(Kind::OtherView))
                        .addSubview(Element(Kind::TabView))
                        .addPart(Element(Kind::TabViewItem, variable_));
    Element& view = item.addPart(Element(Kind::ScrollView)).addPart(Element(Kind::TextView));
    view.styled_ = {"x" + variable_ + "y", {{1, variable_.size(), 7}}};
    brand_.process(window);
    EXPECT_EQ(window.text_, "by Acme");
    EXPECT_EQ(item.text_, "Acme");
    EXPECT_EQ(view.styled_, (orv::StyledText{"xAcmey", {{1, 4, 7}}}));
}

TEST_F(InterfaceBranding, ColoursTheTextsOfHeadersOnly) {
    Element views(Kind::Array);
    const Element& header = views.addPart(Element(Kind::TextField, "", 11));
    const Element& other = views.addPart(Element(Kind::TextField, "", 12));
    const Element& button = views.addPart(Element(Kind::Button, "", 11));
    brand_.process(views);
    EXPECT_EQ(header.color_, (orv::HexColor{1, 2, 3}));
    EXPECT_EQ(other.color_, std::nullopt);
    EXPECT_EQ(button.color_, std::nullopt);
}

TEST_F(InterfaceBranding, ReplacesImagesByNameElseByTag) {
    const std::vector<std::tuple<std::optional<std::string>, int, std::string>> cases = {
        {"logo", 0, "logo"},   {"logo", 12, "logo"},       {"other", 12, ""},
        {"", 10, "logo"},      {std::nullopt, 10, "logo"}, {std::nullopt, 12, "banner-background"},
        {std::nullopt, 0, ""},
    };
    for (const auto& [name, tag, shown] : cases) {
        Element view(Kind::ImageView, "", tag);
        view.imageName_ = name;
        brand_.process(view);
        EXPECT_EQ(view.shownImage_, shown) << name.value_or("none") << " " << tag;
    }
}

TEST_F(InterfaceBranding, EndsInAnInterfaceThatHoldsItself) {
    class Endless final : public orv::InterfaceElement {
     public:
        [[nodiscard]] Kind kind() const override { return Kind::OtherView; }
        void visitSubviews(const Visitor& visitor) override {
            ++visits;
            visitor(*this);
        }
        int visits = 0;
    };
    std::vector<std::string> log;
    quelm::SetLogSink([&log](std::string_view line) { log.emplace_back(line); });
    Endless view;
    brand_.process(view);
    quelm::SetLogSink({});
    EXPECT_EQ(view.visits, 128);
    EXPECT_EQ(log.size(), 1U);
}

}  // namespace
