#include "qt/looks/StatusColors.h"

#include "qt/looks/Contrast.h"

namespace orv {

QColor StatusColor(Status status, const QPalette& palette) {
    const QColor color =
        status == Status::Refused ? QColor(0xD1, 0x2F, 0x3F) : QColor(0xB4, 0x6A, 0x00);
    return ReadableColor(color, palette.color(QPalette::Window));
}

}  // namespace orv
