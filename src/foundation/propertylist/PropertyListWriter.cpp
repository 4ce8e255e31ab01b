#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/texts/Base64.h"
#include "foundation/texts/ByteScan.h"
#include "foundation/texts/IsoDate.h"
#include "foundation/texts/Utf8.h"

namespace quelm {

namespace {

constexpr std::string_view header =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view footer = "</plist>\n";

constexpr auto needsCare = [](auto c) { return (c < 0x20) | (c == '&') | ((c | 2) == '>'); };

/// What stands for a character of one byte; empty when XML cannot hold it.
std::string_view replacementFor(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':
            return "&#13;";  // a bare one would be read as a line feed
        case '\t':
            return "\t";
        case '\n':
            return "\n";
        default:
            return {};
    }
}

/// Collects small pieces in a block that stays in the processor's cache.
class Output {
 public:
    void append(std::string_view piece) {
        if (piece.size() > block_.size() - used_) return appendLarge(piece);
        std::memcpy(block_.data() + used_, piece.data(), piece.size());
        used_ += piece.size();
    }

    /// A literal: its size is known where it is copied.
    template <std::size_t Size>
    void append(const char (&literal)[Size]) {
        if (Size > block_.size() - used_) flush();
        std::memcpy(block_.data() + used_, literal, Size);
        used_ += Size - 1;
    }

    void appendTabs(std::size_t count) {
        constexpr std::size_t tabs = 8;
        for (; count > tabs; count -= tabs)
            append("\t\t\t\t\t\t\t\t");
        append("\t\t\t\t\t\t\t\t");
        used_ -= tabs - count;
    }

    std::string take() {
        flush();
        return std::move(text_);
    }

 private:
    void appendLarge(std::string_view piece) {
        flush();
        text_ += piece;
    }

    void flush() {
        text_.append(block_.data(), used_);
        used_ = 0;
    }

    std::array<char, 4096> block_;
    std::size_t used_ = 0;
    std::string text_;
};

bool appendText(Output& out, std::string_view text) {
    for (std::size_t pos = 0;;) {
        const std::size_t stop = FindByte(text, pos, needsCare);
        out.append(text.substr(pos, stop - pos));
        if (stop == text.size()) return true;
        std::size_t length = 1;
        std::string_view replacement;
        if (static_cast<signed char>(text[stop]) < 0) {
            length = DecodeCharFromUtf8String(text.substr(stop));
            replacement = text.substr(stop, length);
            if (!IsXmlText(replacement)) return false;
        } else {
            replacement = replacementFor(text[stop]);
        }
        if (replacement.empty()) return false;
        out.append(replacement);
        pos = stop + length;
    }
}

/// The text of a number, in the buffer or a constant.
using NumberBuffer = std::array<char, 32>;

std::string_view numberText(double value, NumberBuffer& buffer) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value > 0 ? "+infinity" : "-infinity";
    // the shortest text that reads back as the same number
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

std::string_view numberText(std::int64_t value, NumberBuffer& buffer) {
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

/// Walks the value without recursion. Operations answer false for what cannot be written.
class Writer {
 public:
    bool write(const Value& root) {
        out_.append(header);
        if (!writeValue(root)) return false;
        while (!frames_.empty()) {
            if (!step(frames_.back())) return false;
        }
        out_.append(footer);
        return true;
    }

    std::string take() { return out_.take(); }

 private:
    /// A container whose members from `next` on are still to be written.
    struct Frame {
        const Array* array;
        const Dictionary* dictionary;
        std::size_t next;
    };

    void indent() { out_.appendTabs(frames_.size()); }

    bool step(Frame& frame) {
        const std::size_t member = frame.next++;
        if (frame.array != nullptr) {
            return member < frame.array->size() ? writeValue((*frame.array)[member]) : close(frame);
        }
        if (member == frame.dictionary->size()) return close(frame);
        const DictionaryEntry& entry =
            frame.dictionary->begin()[static_cast<std::ptrdiff_t>(member)];
        indent();
        out_.append("<key>");
        if (!appendText(out_, entry.key)) return false;
        out_.append("</key>\n");
        return writeValue(entry.value);
    }

    bool close(const Frame& frame) {
        const bool isArray = frame.array != nullptr;
        frames_.pop_back();
        indent();
        if (isArray) {
            out_.append("</array>\n");
        } else {
            out_.append("</dict>\n");
        }
        return true;
    }

    /// A leaf is written whole, a container gets a frame.
    bool writeValue(const Value& value) {
        indent();
        switch (value.type()) {
            case Value::Type::Boolean:
                return writeBoolean(*value.asBoolean());
            case Value::Type::Integer:
                return writeInteger(*value.asInteger());
            case Value::Type::Real:
                return writeReal(*value.asReal());
            case Value::Type::String:
                return writeString(*value.asString());
            case Value::Type::Data:
                return writeData(*value.asData());
            case Value::Type::Date:
                return writeDate(*value.asDate());
            case Value::Type::Array:
                return open(*value.asArray());
            case Value::Type::Dictionary:
                return open(*value.asDictionary());
        }
        return false;
    }

    bool writeBoolean(bool value) {
        if (value) {
            out_.append("<true/>\n");
        } else {
            out_.append("<false/>\n");
        }
        return true;
    }

    bool writeInteger(std::int64_t value) {
        NumberBuffer buffer;
        out_.append("<integer>");
        out_.append(numberText(value, buffer));
        out_.append("</integer>\n");
        return true;
    }

    bool writeReal(double value) {
        NumberBuffer buffer;
        out_.append("<real>");
        out_.append(numberText(value, buffer));
        out_.append("</real>\n");
        return true;
    }

    bool writeString(const std::string& text) {
        out_.append("<string>");
        if (!appendText(out_, text)) return false;
        out_.append("</string>\n");
        return true;
    }

    bool writeData(const Data& data) {
        out_.append("<data>");
        out_.append(EncodeBase64(data.bytes));
        out_.append("</data>\n");
        return true;
    }

    bool writeDate(const Date& date) {
        const auto text = FormatIsoDate(date.secondsSince1970);
        if (!text) return false;
        out_.append("<date>");
        out_.append(*text);
        out_.append("</date>\n");
        return true;
    }

    [[nodiscard]] bool isTooDeep() const { return frames_.size() == PropertyListLimits{}.depth; }

    bool open(const Array& array) {
        if (isTooDeep()) return false;
        if (array.empty()) {
            out_.append("<array/>\n");
        } else {
            out_.append("<array>\n");
            frames_.push_back({&array, nullptr, 0});
        }
        return true;
    }

    bool open(const Dictionary& dictionary) {
        if (isTooDeep()) return false;
        if (dictionary.empty()) {
            out_.append("<dict/>\n");
        } else {
            out_.append("<dict>\n");
            frames_.push_back({nullptr, &dictionary, 0});
        }
        return true;
    }

    Output out_;
    std::vector<Frame> frames_;
};

}  // namespace

std::optional<std::string> WritePropertyList(const Value& value) {
    Writer writer;
    if (!writer.write(value)) return std::nullopt;
    return writer.take();
}

}  // namespace quelm
