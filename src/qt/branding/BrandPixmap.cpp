#include "qt/branding/BrandPixmap.h"

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImageReader>
#include <QUrl>
#include <algorithm>
#include <array>

#include "foundation/files/WholeFile.h"
#include "foundation/system/Log.h"
#include "qt/binding/QtText.h"

namespace orv {

namespace {

constexpr std::size_t largestFile = std::size_t{4} * 1024 * 1024;
constexpr int largestSide = 2048;
/// What is not too much work to read.
constexpr auto formats = std::to_array<const char*>({"png", "jpeg", "gif"});

std::optional<QPixmap> decode(QByteArray bytes) {
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    const bool isKnown =
        std::ranges::any_of(formats, [&format](const char* known) { return format == known; });
    const QSize size = reader.size();
    if (!isKnown || size.isEmpty() || std::max(size.width(), size.height()) > largestSide)
        return std::nullopt;
    const QPixmap pixmap = QPixmap::fromImageReader(&reader);
    return pixmap.isNull() ? std::nullopt : std::optional(pixmap);
}

std::optional<QPixmap> load(const std::string& address) {
    const QUrl url(ToQt(address));
    if (!url.isLocalFile()) {
        quelm::LogInfo("The brand's image is not loaded over the network: " + address + ".");
        return std::nullopt;
    }
    const std::string path = FromQt(url.toLocalFile());
    const auto bytes = quelm::ReadWholeFile(path, largestFile, quelm::FileLock::None);
    auto pixmap = bytes ? decode(QByteArray::fromStdString(*bytes)) : std::nullopt;
    if (!pixmap) quelm::LogWarning("The brand's image cannot be used: " + path + ".");
    return pixmap;
}

QPixmap fill(const FilledRectangle& rectangle) {
    QPixmap pixmap(rectangle.width, rectangle.height);
    const HexColor& color = rectangle.color;
    pixmap.fill(QColor(color.red, color.green, color.blue));
    return pixmap;
}

}  // namespace

std::optional<QPixmap> LoadBrandPixmap(const BrandImage& image) {
    if (const auto* address = std::get_if<std::string>(&image.content)) return load(*address);
    return fill(std::get<FilledRectangle>(image.content));
}

}  // namespace orv
