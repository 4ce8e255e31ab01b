#include "qt/branding/BrandWindow.h"

#include <QIcon>

#include "qt/binding/QtText.h"
#include "qt/branding/BrandPixmap.h"
#include "qt/branding/WidgetElements.h"
#include "qt/looks/Icons.h"
#include "support/VarBranding.h"

namespace orv {

void BrandWindow(QWidget& window, const orv_VarBranding& brand) {
    VisitElement(window, [&brand](InterfaceElement& element) { brand.process(element); });
}

void BrandIcons(Icons& icons, const orv_VarBranding& brand) {
    for (const auto& [key, image] : brand.images()) {
        const auto* name = std::get_if<std::string>(&key);
        if (!name) continue;
        const auto pixmap = LoadBrandPixmap(image);
        if (!pixmap) continue;
        icons.replace(ToQt(*name), QIcon(*pixmap));
        // a brand's logo stands for the folder of projects
        if (*name == "loftmere_logo")
            icons.replace(QStringLiteral("master-project-folder"), QIcon(*pixmap));
    }
}

}  // namespace orv
