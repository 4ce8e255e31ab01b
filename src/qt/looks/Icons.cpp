#include "qt/looks/Icons.h"

#include <QFile>
#include <algorithm>
#include <memory>
#include <string>

#include "foundation/files/WholeFile.h"
#include "foundation/system/Log.h"
#include "qt/looks/SvgIconEngine.h"

namespace orv {

namespace {

constexpr std::size_t largestIcon = std::size_t{256} * 1024;

/// Names come from controllers, and never lead out of the folder.
bool isFileName(const QString& name) {
    return !name.isEmpty() && std::ranges::all_of(name, [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'-' || c == u'_');
    });
}

QIcon load(const QString& folder, const QString& name) {
    if (!isFileName(name)) return {};
    const std::string path = (folder + name + QStringLiteral(".svg")).toStdString();
    const auto svg = quelm::ReadWholeFile(path, largestIcon, quelm::FileLock::None);
    if (!svg) {
        quelm::LogWarning("There is no image " + path + ".");
        return {};
    }
    auto engine = std::make_unique<SvgIconEngine>(folder + name, QByteArray::fromStdString(*svg));
    return QIcon(engine.release());
}

}  // namespace

Icons::Icons(const QString& resources, Appearance appearance)
    : folder_(resources + (appearance == Appearance::Dark ? QStringLiteral("/images/dark/")
                                                          : QStringLiteral("/images/light/"))) {}

QIcon Icons::icon(const QString& name) const {
    const auto found = icons_.constFind(name);
    if (found != icons_.cend()) return *found;
    return *icons_.insert(name, load(folder_, name));
}

QIcon Icons::iconOrTheme(const QString& name) const {
    const auto found = icons_.constFind(name);
    if (found != icons_.cend()) return *found;
    const bool isOwn = isFileName(name) && QFile::exists(folder_ + name + QStringLiteral(".svg"));
    if (isOwn) return icon(name);
    // a path would be opened as an image
    const QIcon theme = name.contains(u'/') ? QIcon() : QIcon::fromTheme(name);
    return *icons_.insert(name, theme);
}

}  // namespace orv
