#pragma once

#include <QTextCharFormat>
#include <vector>

#include "support/StyledText.h"

class QTextDocument;

namespace orv {

/// The styles of a document, by the numbers that the runs of its text have.
using DocumentStyles = std::vector<QTextCharFormat>;

/// The document's text with its runs, whose styles are kept in `styles`.
[[nodiscard]] StyledText ReadDocument(const QTextDocument& document, DocumentStyles& styles);

/// Replaces what the document holds, in one step.
void WriteDocument(QTextDocument& document, const StyledText& text, const DocumentStyles& styles);

}  // namespace orv
