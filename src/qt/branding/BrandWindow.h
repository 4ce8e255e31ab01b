#pragma once

class QWidget;

namespace orv {

class Icons;
class orv_VarBranding;

/// Rewrites a window that has just been made from its interface file: variables in its texts, and
/// the images that the brand replaces.
void BrandWindow(QWidget& window, const orv_VarBranding& brand);

/// Makes the brand's images stand for the icons of their names.
void BrandIcons(Icons& icons, const orv_VarBranding& brand);

}  // namespace orv
