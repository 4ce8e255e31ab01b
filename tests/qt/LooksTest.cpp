#include <QImage>
#include <QPalette>
#include <array>
#include <filesystem>

#include "qt/WindowFixture.h"
#include "qt/charts/ChartColors.h"
#include "qt/looks/Contrast.h"
#include "qt/looks/StatusColors.h"
#include "qt/looks/Theme.h"
#include "support/ScopedEnvironment.h"

namespace {

using namespace orv;

constexpr auto appearances = std::to_array<Appearance>({Appearance::Light, Appearance::Dark});

TEST(Contrast, IsThatOfThePublishedFormula) {
    EXPECT_NEAR(ContrastRatio(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(ContrastRatio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    for (const QColor color : {QColor(Qt::yellow), QColor(0xe5, 0x19, 0x37), QColor(Qt::gray)})
        for (const QColor ground : {QColor(Qt::white), QColor(0x1b, 0x21, 0x23), QColor(Qt::gray)})
            EXPECT_GE(ContrastRatio(ReadableColor(color, ground), ground), leastContrast)
                << color.name().toStdString() << " on " << ground.name().toStdString();
    EXPECT_EQ(ReadableColor(Qt::red, Qt::black), QColor(Qt::red)) << "no more than is needed";
}

TEST(Theme, TextsCanBeReadOnWhatIsBehindThem) {
    using P = QPalette;
    constexpr auto pairs =
        std::to_array<std::pair<P::ColorRole, P::ColorRole>>({{P::WindowText, P::Window},
                                                              {P::Text, P::Base},
                                                              {P::ButtonText, P::Button},
                                                              {P::HighlightedText, P::Highlight},
                                                              {P::PlaceholderText, P::Window},
                                                              {P::PlaceholderText, P::Base},
                                                              {P::Link, P::Window},
                                                              {P::Link, P::Base},
                                                              {P::ToolTipText, P::ToolTipBase}});
    for (const Appearance appearance : appearances) {
        const QPalette palette = ThemePalette(appearance);
        for (const auto& [text, ground] : pairs)
            EXPECT_GE(ContrastRatio(palette.color(text), palette.color(ground)), leastContrast)
                << text << " on " << ground;
        for (const Status status : {Status::Notice, Status::Refused})
            EXPECT_GE(ContrastRatio(StatusColor(status, palette), palette.color(P::Window)),
                      leastContrast);
        // what is drawn needs less
        for (const StorageRole role :
             {StorageRole::ThisComputer, StorageRole::OtherComputers, StorageRole::OverQuota})
            EXPECT_GE(ContrastRatio(ChartColor(role, palette), palette.color(P::Window)), 3.0);
    }
}

TEST(Theme, FollowsTheDesktopUnlessItIsTold) {
    for (const Appearance desktop : appearances) {
        const QPalette palette = ThemePalette(desktop);
        const auto prefers = [&palette](std::optional<std::string> theme) {
            const test_support::ScopedEnvironment told("TIDEWELL_THEME", theme);
            return PreferredAppearance(palette);
        };
        EXPECT_EQ(prefers({}), desktop);
        EXPECT_EQ(prefers("pink"), desktop);
        EXPECT_EQ(prefers("dark"), Appearance::Dark);
        EXPECT_EQ(prefers("light"), Appearance::Light);
    }
}

TEST(Icons, AreDrawnAtTheSizeThatIsAskedFor) {
    const QString resources = QString::fromStdString(quelm::FindResourcesFolder());
    for (const Appearance appearance : appearances) {
        const Icons icons(resources, appearance);
        const char* const folder = appearance == Appearance::Dark ? "dark" : "light";
        int seen = 0;
        for (const auto& entry : std::filesystem::directory_iterator(quelm::FindResourcesFolder() +
                                                                     "/images/" + folder)) {
            const QIcon icon = icons.icon(QString::fromStdString(entry.path().stem()));
            const QPixmap pixmap = icon.pixmap(QSize(24, 24), 2.0);
            EXPECT_EQ(pixmap.size(), QSize(48, 48)) << entry.path();
            EXPECT_EQ(pixmap.devicePixelRatio(), 2.0);
            QImage empty(pixmap.size(), QImage::Format_ARGB32_Premultiplied);
            empty.fill(Qt::transparent);
            empty.setDevicePixelRatio(2.0);
            EXPECT_NE(pixmap.toImage().convertToFormat(empty.format()), empty) << entry.path();
            ++seen;
        }
        EXPECT_GT(seen, 10);
    }
}

}  // namespace
