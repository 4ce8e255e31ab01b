#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTextEdit>

#include "foundation/system/Log.h"
#include "qt/WindowFixture.h"
#include "qt/branding/BrandPixmap.h"
#include "qt/branding/BrandWindow.h"
#include "qt/elements/HeaderBand.h"
#include "qt/elements/ImageLabel.h"
#include "qt/elements/RowTable.h"
#include "qt/looks/Contrast.h"

namespace {

using namespace orv;

class BrandWindowTest : public test_support::WindowTest {
 protected:
    void brand(const quelm::Dictionary& params) {
        orv_VarBranding::storeParams(params);
        BrandWindow(window_, *orv_VarBranding::instance());
    }

    QDialog window_;
    const QString variable_ = QStringLiteral("$(BRAND_COMPANY_NAME)");
    const QString name_ = QStringLiteral("Weber & Co");
};

TEST_F(BrandWindowTest, RewritesTheTextsOfEveryKindOfWidget) {
    window_.setWindowTitle(variable_);
    QLabel label(variable_, &window_);
    QLineEdit edit(variable_, &window_);
    QTabWidget tabs(&window_);
    auto* page = new QWidget;  // the tab widget's
    tabs.addTab(page, variable_);
    QPushButton button(variable_, page);
    QScrollArea area(&window_);
    auto* inside = new QLabel(variable_);  // the area's
    area.setWidget(inside);
    RowTable table(&window_);
    table.setColumns({{"one", variable_}});
    QMenu menu;
    menu.addAction(variable_);
    QTextEdit text(&window_);
    text.setHtml(QStringLiteral("<b>bold ") + variable_ + QStringLiteral("</b> plain<p>end"));
    brand({{"company", "Weber & Co"}});
    BrandWindow(menu, *orv_VarBranding::instance());
    const std::vector<std::pair<const char*, QString>> texts = {
        {"title", window_.windowTitle()},
        {"label", label.text()},
        {"edit", edit.text()},
        {"tab", tabs.tabText(0)},
        {"button", button.text()},
        {"scrolled", inside->text()},
        {"column", table.model()->headerData(0, Qt::Horizontal).toString()},
    };
    for (const auto& [what, shown] : texts)
        EXPECT_EQ(shown, name_) << what;
    EXPECT_EQ(text.toPlainText(), QStringLiteral("bold Weber & Co plain\nend"));
    EXPECT_TRUE(text.toHtml().contains(QStringLiteral("bold Weber &amp; Co</span> plain")));
}

TEST_F(BrandWindowTest, PutsItsImagesAndColoursInTheHeader) {
    QImage logo(8, 8, QImage::Format_RGB32);
    logo.fill(Qt::red);
    const std::string path = configuration / "logo.png";
    ASSERT_TRUE(logo.save(QString::fromStdString(path)));
    HeaderBand header(&window_);
    header.setProperty("tag", 12);
    ImageLabel image(&window_);
    image.setMinimumSize(8, 8);
    image.setProperty("tag", 10);
    QLabel headline(&header);
    headline.setProperty("tag", 11);
    QLabel usual(&header);
    brand({{"logo_bitmap_url", "file://" + path},
           {"header_text_bgcolor", "#203040"},
           {"header_text_color", "#ffee00"}});
    EXPECT_EQ(image.pixmap().toImage().pixelColor(4, 4), QColor(Qt::red));
    EXPECT_EQ(header.palette().color(QPalette::Base), QColor(0x20, 0x30, 0x40));
    EXPECT_EQ(headline.palette().color(headline.foregroundRole()), QColor(0xff, 0xee, 0x00));
    EXPECT_GE(ContrastRatio(usual.palette().color(usual.foregroundRole()), {0x20, 0x30, 0x40}),
              leastContrast);
}

TEST_F(BrandWindowTest, TakesNoImageFromElsewhereOrWithoutBounds) {
    std::vector<std::string> lines;
    quelm::SetLogSink([&](std::string_view line) { lines.emplace_back(line); });
    QImage wide(4000, 1, QImage::Format_RGB32);
    wide.fill(Qt::blue);
    ASSERT_TRUE(wide.save(QString::fromStdString(configuration / "wide.png")));
    const std::vector<std::string> addresses = {
        "https://example.com/logo.png",
        "file://" + configuration.makeFile("svg.png", "<svg xmlns='http://www.w3.org/2000/svg'/>"),
        "file://" + configuration / "wide.png",
        "file:///dev/zero",
        "file:///no/such/file",
    };
    for (const std::string& address : addresses)
        EXPECT_FALSE(LoadBrandPixmap({"logo", address})) << address;
    quelm::SetLogSink({});
    EXPECT_EQ(lines.size(), addresses.size()) << "each is told";
}

}  // namespace
