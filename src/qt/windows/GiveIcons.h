#pragma once

class QWidget;

namespace orv {

class Icons;

/// Gives the images, buttons and tabs of a window that has just been made from its interface file
/// the icons that the file names: images by "imageName", buttons and pages by the property
/// "iconName".
void GiveIcons(QWidget& window, const Icons& icons);

}  // namespace orv
