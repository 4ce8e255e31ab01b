#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

#include "qt/looks/Appearance.h"

namespace orv {

/// The icons by name: "images/light/NAME.svg" or "images/dark/NAME.svg" in the folder of resources,
/// drawn as large as they are needed. One that is missing is empty, and logged once. Main thread
/// only.
class Icons final {
 public:
    Icons(const QString& resources, Appearance appearance);

    [[nodiscard]] QIcon icon(const QString& name) const;
    /// The same, or that of the desktop's theme where this product has none.
    [[nodiscard]] QIcon iconOrTheme(const QString& name) const;
    /// Stands for the name from now on.
    void replace(const QString& name, const QIcon& icon) { icons_.insert(name, icon); }

 private:
    QString folder_;
    mutable QHash<QString, QIcon> icons_;
};

}  // namespace orv
