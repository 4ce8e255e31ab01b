#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace orv {

/// Takes a picture of the window, which is shown, or of each of its tabs where it has some, as
/// "NAME.png" or "NAME-TAB.png" in the folder. The paths of those that could be written.
QStringList TakeScreenshots(QWidget& window, const QString& folder, const QString& name);

}  // namespace orv
