#include "qt/binding/ShownText.h"

#include <QTextDocument>
#include <Qt>
#include <algorithm>

#include "qt/binding/QtText.h"

namespace orv {

namespace {

constexpr qsizetype mostLineCharacters = 500;

QString shortened(QString text, qsizetype most) {
    if (text.size() <= most) return text;
    text.truncate(most - 1);
    if (!text.isEmpty() && text.back().isHighSurrogate()) text.chop(1);
    return text + QChar(0x2026);
}

/// Not more than can be shown is decoded.
QString decoded(std::string_view text, qsizetype most) {
    constexpr std::size_t longestCharacter = 4;
    const auto bytes = static_cast<std::size_t>(most + 1) * longestCharacter;
    return shortened(ToQt(text.substr(0, bytes)), most);
}

}  // namespace

QString ShownText(std::string_view text) {
    QString shown = decoded(text, mostShownCharacters);
    // labels end at a NUL
    shown.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
    return shown;
}

QString ShownLine(std::string_view text) {
    QString shown = decoded(text, mostLineCharacters);
    const auto breaksLine = [](QChar c) {
        return c < u' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    std::ranges::replace_if(shown, breaksLine, QChar(u' '));
    return shown;
}

QString PlainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    return QStringLiteral("<span style=\"white-space: pre-wrap\">%1</span>")
        .arg(text.toHtmlEscaped());
}

}  // namespace orv
