#include "qt/desktop/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "qt/binding/QtText.h"

namespace orv {

void QtClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
}

}  // namespace orv
