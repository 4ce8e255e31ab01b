#include "qt/looks/Theme.h"

#include <QApplication>
#include <QColor>
#include <array>
#include <memory>

#include "qt/looks/Style.h"

namespace orv {

namespace {

struct ColorRow {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

// A calm blue-green on greys that lean to it. Text keeps a contrast of 4.5 and more.
constexpr auto colors = std::to_array<ColorRow>({
    {QPalette::Window, 0xF3F6F6, 0x1B2123},      {QPalette::WindowText, 0x1A2527, 0xE4EAEA},
    {QPalette::Base, 0xFFFFFF, 0x14191B},        {QPalette::AlternateBase, 0xF7F9F9, 0x181E20},
    {QPalette::Text, 0x1A2527, 0xE4EAEA},        {QPalette::PlaceholderText, 0x586A6D, 0x9AABAD},
    {QPalette::Button, 0xFFFFFF, 0x2A3336},      {QPalette::ButtonText, 0x1A2527, 0xE4EAEA},
    {QPalette::BrightText, 0xFFFFFF, 0xFFFFFF},  {QPalette::Light, 0xFFFFFF, 0x384346},
    {QPalette::Midlight, 0xE7ECEC, 0x2B3437},    {QPalette::Mid, 0xC9D2D3, 0x3C484B},
    {QPalette::Dark, 0x93A2A4, 0x5C6B6E},        {QPalette::Shadow, 0x5B6A6C, 0x0B0E0F},
    {QPalette::Highlight, 0x127487, 0x1B7F92},   {QPalette::HighlightedText, 0xFFFFFF, 0xFFFFFF},
    {QPalette::Link, 0x0F6A7C, 0x62C0D2},        {QPalette::LinkVisited, 0x0F6A7C, 0x62C0D2},
    {QPalette::ToolTipBase, 0x26333A, 0x2E393C}, {QPalette::ToolTipText, 0xFFFFFF, 0xE4EAEA},
});

constexpr auto disabledText = std::to_array<QPalette::ColorRole>(
    {QPalette::WindowText, QPalette::Text, QPalette::ButtonText});

}  // namespace

QPalette ThemePalette(Appearance appearance) {
    const bool isDark = appearance == Appearance::Dark;
    QPalette palette;
    for (const ColorRow& row : colors)
        palette.setColor(row.role, QColor::fromRgb(isDark ? row.dark : row.light));
    const QColor faded = isDark ? QColor(0x76, 0x86, 0x88) : QColor(0x8A, 0x99, 0x9B);
    for (const QPalette::ColorRole role : disabledText)
        palette.setColor(QPalette::Disabled, role, faded);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, palette.color(QPalette::Mid));
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

void ApplyTheme(QApplication& application, Appearance appearance) {
    QApplication::setStyle(std::make_unique<TidewellStyle>().release());
    application.setPalette(ThemePalette(appearance));
}

}  // namespace orv
