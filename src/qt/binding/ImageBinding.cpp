#include "qt/binding/ImageBinding.h"

#include "qt/binding/QtText.h"
#include "qt/binding/ShownText.h"
#include "qt/looks/Icons.h"

namespace orv {

ImageBinding::ImageBinding(FrameUpdates& updates, ImageView& outlet, ImageLabel& label,
                           const Icons& icons)
    : ViewBinding(updates, outlet, label), icons_(&icons) {
    // the interface file's image stands until the controller has another
    if (outlet.imageName().empty()) outlet.setImageName(FromQt(label.imageName()));
}

void ImageBinding::show() {
    const QString name = ToQt(outlet().imageName());
    if (name != widget().imageName()) widget().setImage(name, icons_->icon(name));
    const QString description = ShownText(outlet().description());
    // an image has no text that a name could hide
    widget().setAccessibleName(description);
    widget().setAccessibleDescription(description);
    if (outlet().toolTip().empty()) widget().setToolTip(PlainToolTip(description));
}

}  // namespace orv
