#include "qt/branding/DocumentText.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <string_view>

#include "qt/binding/QtText.h"

namespace orv {

namespace {

void readBlock(const QTextBlock& block, StyledText& text, DocumentStyles& styles) {
    for (auto at = block.begin(); at != block.end(); ++at) {
        const std::string fragment = FromQt(at.fragment().text());
        text.runs.push_back({text.text.size(), fragment.size(), static_cast<int>(styles.size())});
        styles.push_back(at.fragment().charFormat());
        text.text += fragment;
    }
}

QTextCharFormat styleOf(const StyleRun& run, const DocumentStyles& styles) {
    const auto index = static_cast<std::size_t>(run.style);
    return index < styles.size() ? styles[index] : QTextCharFormat();
}

}  // namespace

StyledText ReadDocument(const QTextDocument& document, DocumentStyles& styles) {
    StyledText text;
    styles.clear();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin()) text.text += '\n';
        readBlock(block, text, styles);
    }
    return text;
}

void WriteDocument(QTextDocument& document, const StyledText& text, const DocumentStyles& styles) {
    const std::string_view whole = text.text;
    std::vector<StyleRun> runs = text.runs;
    std::ranges::sort(runs, {}, &StyleRun::begin);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    std::size_t done = 0;
    for (const StyleRun& run : runs) {
        if (run.begin < done || run.begin > whole.size()) continue;
        cursor.insertText(ToQt(whole.substr(done, run.begin - done)), QTextCharFormat());
        cursor.insertText(ToQt(whole.substr(run.begin, run.length)), styleOf(run, styles));
        done = std::min(run.begin + run.length, whole.size());
    }
    cursor.insertText(ToQt(whole.substr(done)), QTextCharFormat());
    cursor.endEditBlock();
}

}  // namespace orv
