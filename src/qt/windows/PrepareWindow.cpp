#include "qt/windows/PrepareWindow.h"

#include <QWidget>

#include "qt/binding/WindowContext.h"
#include "qt/branding/BrandWindow.h"
#include "qt/looks/Icons.h"
#include "qt/windows/GiveIcons.h"
#include "support/VarBranding.h"

namespace orv {

void PrepareWindow(QWidget& window, const WindowContext& context) {
    GiveIcons(window, context.icons);
    window.setWindowIcon(context.icons.icon(QStringLiteral("tidewell")));
    BrandWindow(window, *orv_VarBranding::instance());
}

}  // namespace orv
