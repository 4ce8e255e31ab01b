#include "qt/looks/Appearance.h"

#include <QPalette>
#include <string_view>

namespace orv {

Appearance PreferredAppearance(const QPalette& desktop) {
    const QByteArray asked = qgetenv("TIDEWELL_THEME");
    if (asked == "dark") return Appearance::Dark;
    if (asked == "light") return Appearance::Light;
    constexpr double middle = 0.5;
    const QColor window = desktop.color(QPalette::Window);
    return window.lightnessF() < middle ? Appearance::Dark : Appearance::Light;
}

}  // namespace orv
