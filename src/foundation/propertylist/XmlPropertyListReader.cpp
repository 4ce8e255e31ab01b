#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "foundation/propertylist/PropertyListBuilder.h"
#include "foundation/propertylist/PropertyListLeaves.h"
#include "foundation/propertylist/PropertyListReaders.h"
#include "foundation/texts/ByteScan.h"
#include "foundation/texts/Utf16.h"
#include "foundation/texts/Utf8.h"
#include "foundation/texts/XmlReferences.h"

namespace quelm {

namespace {

// what ends a run of text that stands for itself
constexpr auto endsPlainText = [](auto c) { return (c == '<') | (c == '&') | (c == '\r'); };

constexpr bool isWhiteSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

constexpr std::string_view dictionaryName = "dict";
constexpr std::string_view arrayName = "array";

/// Comparison with a literal, which the compiler does without a call.
template <std::size_t Size>
bool is(std::string_view name, const char (&literal)[Size]) {
    return name.size() == Size - 1 && __builtin_memcmp(name.data(), literal, Size - 1) == 0;
}

struct Leaf {
    std::string_view name;
    std::optional<Value> (*parse)(std::string_view text);
};

constexpr std::array<Leaf, 6> leaves = {{
    {"integer", ParsePropertyInteger},
    {"true", ParsePropertyTrue},
    {"false", ParsePropertyFalse},
    {"real", ParsePropertyReal},
    {"date", ParsePropertyDate},
    {"data", ParsePropertyData},
}};

/// Reads the document in one pass, without building a tree: it tells the builder what it meets.
/// Operations that answer false leave the reason with the builder.
class Reader {
 public:
    Reader(std::string_view text, const PropertyListLimits& limits)
        : text_(text), builder_(limits) {}

    PropertyListResult run() {
        const bool isComplete = readDocument();
        PropertyListResult result = builder_.finish();
        if (isComplete) return result;
        const auto line = std::count(text_.begin(), text_.begin() + std::ptrdiff_t(pos_), '\n') + 1;
        result.error = fmt::format("line {}: {}", line, result.error);
        return result;
    }

 private:
    struct Tag {
        std::string_view name;
        bool isEmpty;
    };

    bool fail(std::string_view reason) { return builder_.fail(reason); }

    [[nodiscard]] std::string_view rest() const { return text_.substr(pos_); }
    [[nodiscard]] bool atEnd() const { return pos_ == text_.size(); }

    [[nodiscard]] bool atEndTag() const {
        return pos_ + 1 < text_.size() && text_[pos_] == '<' && text_[pos_ + 1] == '/';
    }

    bool skip(std::string_view token) {
        if (!rest().starts_with(token)) return false;
        pos_ += token.size();
        return true;
    }

    bool skip(char c) {
        if (atEnd() || text_[pos_] != c) return false;
        ++pos_;
        return true;
    }

    bool skipPast(std::string_view token) {
        const auto found = text_.find(token, pos_);
        if (found == std::string_view::npos) return fail("it ends too early");
        pos_ = found + token.size();
        return true;
    }

    void skipWhiteSpace() {
        while (!atEnd() && isWhiteSpace(text_[pos_]))
            ++pos_;
    }

    /// White space, comments and processing instructions.
    bool skipMiscellany() {
        while (true) {
            skipWhiteSpace();
            if (pos_ + 1 >= text_.size() || (text_[pos_ + 1] != '!' && text_[pos_ + 1] != '?')) {
                return true;
            }
            if (skip("<!--")) {
                if (!skipPast("-->")) return false;
            } else if (skip("<?")) {
                if (!skipPast("?>")) return false;
            } else {
                return true;
            }
        }
    }

    /// A document type is passed over, whatever it declares.
    bool skipDocumentType() {
        if (!skip("<!DOCTYPE")) return true;
        bool inSubset = false;
        for (; !atEnd(); ++pos_) {
            const char c = text_[pos_];
            if (c == '"' || c == '\'') {
                pos_ = std::min(text_.find(c, pos_ + 1), text_.size());
                if (atEnd()) break;
            } else if (c == '[' || c == ']') {
                inSubset = c == '[';
            } else if (c == '>' && !inSubset) {
                ++pos_;
                return true;
            }
        }
        return fail("it ends too early");
    }

    bool readDocument() {
        skip("\xEF\xBB\xBF");
        if (!skipMiscellany() || !skipDocumentType() || !skipMiscellany()) return false;
        const std::size_t start = pos_;
        Tag tag{};
        if (!readStartTag(tag)) return false;
        const bool isWrapped = tag.name == "plist";
        if (isWrapped && tag.isEmpty) return fail("it holds no value");
        if (!isWrapped) pos_ = start;
        if (!readValues()) return false;
        if (isWrapped && !(skipMiscellany() && readEndTag("plist"))) return false;
        return skipMiscellany() && (atEnd() || fail("something follows its end"));
    }

    /// One value with all that is in it.
    bool readValues() {
        do {
            if (!skipMiscellany()) return false;
            if (depth_ > 0 && atEndTag()) {
                if (!readEndTag(builder_.insideDictionary() ? dictionaryName : arrayName))
                    return false;
                if (!closeContainer()) return false;
            } else if (!readElement()) {
                return false;
            }
        } while (depth_ > 0);
        return true;
    }

    bool closeContainer() {
        --depth_;
        return builder_.close();
    }

    bool readStartTag(Tag& tag) {
        if (atEnd()) return fail("it ends too early");
        if (text_[pos_] != '<') return fail("text stands between values");
        const std::size_t start = ++pos_;
        while (!atEnd() && isNameCharacter(text_[pos_]))
            ++pos_;
        tag.name = text_.substr(start, pos_ - start);
        if (!atEnd() && text_[pos_] != '>' && !skipAttributes()) return false;
        if (atEnd()) return fail("it ends too early");
        tag.isEmpty = text_[pos_ - 1] == '/';
        ++pos_;
        return true;
    }

    static bool isNameCharacter(char c) { return c != '>' && c != '/' && !isWhiteSpace(c); }

    /// Up to the ">" of the tag.
    bool skipAttributes() {
        for (; !atEnd() && text_[pos_] != '>'; ++pos_) {
            const char c = text_[pos_];
            if (c == '<') return fail("a tag has no end");
            if (c != '"' && c != '\'') continue;
            pos_ = std::min(text_.find(c, pos_ + 1), text_.size());
            if (atEnd()) break;
        }
        return true;
    }

    bool readEndTag(std::string_view name) {
        if (atEnd()) return fail("it ends too early");
        const std::size_t start = pos_;
        pos_ += 2 * std::size_t{atEndTag()};
        if (pos_ > start && skip(name)) {
            skipWhiteSpace();
            if (skip('>')) return true;
        }
        pos_ = start;
        return fail(fmt::format("<{}> is not closed here", name));
    }

    bool readElement() {
        Tag tag{};
        if (!readStartTag(tag)) return false;
        if (is(tag.name, "string") || is(tag.name, "key")) return readString(tag);
        if (is(tag.name, "array") || is(tag.name, "dict")) return readContainer(tag);
        for (const Leaf& leaf : leaves) {
            if (tag.name == leaf.name) return readLeaf(tag, leaf);
        }
        return fail(fmt::format("the element <{:.40}> is unknown", tag.name));
    }

    bool readContainer(const Tag& tag) {
        const bool isDictionary = is(tag.name, "dict");
        if (!(isDictionary ? builder_.openDictionary() : builder_.openArray())) return false;
        ++depth_;
        return !tag.isEmpty || closeContainer();
    }

    bool readString(const Tag& tag) {
        std::string_view text;
        if (!readText(tag, text)) return false;
        if (is(tag.name, "string")) return builder_.add(std::string(text));
        return builder_.key(std::string(text));
    }

    bool readLeaf(const Tag& tag, const Leaf& leaf) {
        std::string_view text;
        if (!readText(tag, text)) return false;
        auto value = leaf.parse(text);
        if (value) return builder_.add(std::move(*value));
        return fail(fmt::format("<{}> holds \"{:.40}\"", leaf.name, text));
    }

    /// The text up to the element's end tag: in the document where it stands for itself, else put
    /// together in the buffer.
    bool readText(const Tag& tag, std::string_view& text) {
        if (tag.isEmpty) return true;
        const std::size_t start = pos_;
        pos_ = FindByte(text_, pos_, endsPlainText);
        text = text_.substr(start, pos_ - start);
        if (atEndTag()) return readEndTag(tag.name);
        buffer_ = text;
        while (!atEndTag()) {
            if (!appendPiece()) return false;
        }
        text = buffer_;
        return readEndTag(tag.name);
    }

    bool appendPiece() {
        if (atEnd()) return fail("it ends too early");
        if (skip('&')) return appendReference();
        if (skip('\r')) {
            // XML knows one kind of line end
            if (!rest().starts_with('\n')) buffer_ += '\n';
            return true;
        }
        if (skip("<![CDATA[")) return appendCharacterData();
        if (skip("<!--")) return skipPast("-->");
        if (skip("<?")) return skipPast("?>");
        if (text_[pos_] == '<') return fail("an element stands in another's text");
        const std::size_t start = pos_;
        pos_ = FindByte(text_, pos_, endsPlainText);
        buffer_ += text_.substr(start, pos_ - start);
        return true;
    }

    bool appendReference() {
        constexpr std::size_t longest = 16;
        const auto length = rest().substr(0, longest).find(';');
        if (length == std::string_view::npos ||
            !AppendXmlReference(rest().substr(0, length), buffer_)) {
            return fail("a text holds an unknown reference");
        }
        pos_ += length + 1;
        return true;
    }

    bool appendCharacterData() {
        constexpr std::string_view end = "]]>";
        const std::size_t start = pos_;
        if (!skipPast(end)) return false;
        buffer_ += text_.substr(start, pos_ - end.size() - start);
        return true;
    }

    const std::string_view text_;
    std::size_t pos_ = 0;
    std::size_t depth_ = 0;
    std::string buffer_;
    PropertyListBuilder builder_;
};

/// A byte order mark tells UTF-16, which is converted into the buffer; without one the text is
/// UTF-8. None for what is not text.
std::optional<std::string_view> textOf(std::string_view bytes, std::string& buffer) {
    const bool isBig = bytes.starts_with("\xFE\xFF");
    if (isBig || bytes.starts_with("\xFF\xFE")) {
        auto converted =
            Utf8FromUtf16(bytes.substr(2), isBig ? ByteOrder::BigEndian : ByteOrder::LittleEndian);
        if (!converted) return std::nullopt;
        buffer = std::move(*converted);
        bytes = buffer;
    }
    return IsXmlText(bytes) ? std::optional(bytes) : std::nullopt;
}

}  // namespace

PropertyListResult ReadXmlPropertyList(std::string_view bytes, const PropertyListLimits& limits) {
    std::string buffer;
    const auto text = textOf(bytes, buffer);
    if (!text) return {std::nullopt, "it is neither text nor a binary property list"};
    return Reader(*text, limits).run();
}

}  // namespace quelm
