#pragma once

#include <string>
#include <string_view>

namespace quelm {

/// Takes the elements of a document one by one, in its order. What is handed over lives as long as
/// the call.
class XmlReceiver {
 public:
    virtual ~XmlReceiver() = default;
    virtual void startElement(std::string_view name) = 0;
    /// A part of the text of the element that is open, references replaced; it may come in pieces.
    virtual void addText(std::string_view text) = 0;
    virtual void endElement() = 0;
};

/// Reads a whole document without keeping it. Empty, or why it cannot be read, with the line; the
/// receiver has then seen what stands before. Documents are bounded at 64 MiB and 64 levels; one
/// with a document type, which could define entities, is refused.
[[nodiscard]] std::string StreamXml(std::string_view text, XmlReceiver& receiver);

}  // namespace quelm
