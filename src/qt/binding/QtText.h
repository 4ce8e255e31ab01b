#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace orv {

/// What is not valid UTF-8 becomes replacement characters.
[[nodiscard]] inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace orv
