#include <array>
#include <bit>
#include <cmath>
#include <utf8proc.h>

#include "foundation/propertylist/PropertyListBuilder.h"
#include "foundation/propertylist/PropertyListReaders.h"
#include "foundation/texts/Utf16.h"
#include "foundation/texts/Utf8.h"

namespace quelm {

namespace {

// Seconds from 1970-01-01 to 2001-01-01, from which the form counts its dates.
constexpr double secondsTo2001 = 978'307'200;

// High nibble of an object's first byte; the low one is a size, or 15 when an integer follows
// that holds it.
enum class Kind : unsigned {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    Array = 0xA,
    Dictionary = 0xD,
};

/// Big-endian, of 1 to 8 bytes.
std::uint64_t unsignedAt(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char c : bytes)
        value = value << 8U | static_cast<unsigned char>(c);
    return value;
}

class Reader {
 public:
    Reader(std::string_view bytes, const PropertyListLimits& limits)
        : bytes_(bytes), builder_(limits) {}

    PropertyListResult run() {
        if (readTrailer() && visit(topObject_)) {
            while (!frames_.empty() && step()) {
            }
        }
        return builder_.finish();
    }

 private:
    /// A container whose members are being visited.
    struct Frame {
        std::string_view references;  // of an array, or the keys and then the values
        std::size_t count;
        std::size_t next = 0;
    };

    struct Object {
        Kind kind;
        unsigned low;
        std::size_t body;  // where what follows the first byte and the size begins
        std::size_t size;
    };

    bool damaged() { return builder_.fail("its binary form is damaged"); }

    /// The last 32 bytes: 6 unused, the two integer sizes, then three integers of 8 bytes.
    bool readTrailer() {
        constexpr std::size_t trailerSize = 32;
        constexpr std::size_t headerSize = 8;
        if (bytes_.size() < headerSize + trailerSize) return damaged();
        const std::string_view trailer = bytes_.substr(bytes_.size() - trailerSize);
        offsetSize_ = unsignedAt(trailer.substr(6, 1));
        referenceSize_ = unsignedAt(trailer.substr(7, 1));
        const std::uint64_t objects = unsignedAt(trailer.substr(8, 8));
        topObject_ = unsignedAt(trailer.substr(16, 8));
        const std::uint64_t tableStart = unsignedAt(trailer.substr(24, 8));
        bytes_.remove_suffix(trailerSize);
        if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8 ||
            tableStart < headerSize || tableStart > bytes_.size() ||
            objects > (bytes_.size() - tableStart) / offsetSize_) {
            return damaged();
        }
        offsets_ = bytes_.substr(tableStart, objects * offsetSize_);
        bytes_ = bytes_.substr(0, tableStart);
        return true;
    }

    bool step() {
        Frame& frame = frames_.back();
        if (frame.next == frame.count) {
            frames_.pop_back();
            return builder_.close();
        }
        std::size_t member = frame.next++;
        if (builder_.insideDictionary()) {
            if (!visitKey(referenceAt(frame, member))) return false;
            member += frame.count;
        }
        return visit(referenceAt(frame, member));
    }

    [[nodiscard]] std::uint64_t referenceAt(const Frame& frame, std::size_t index) const {
        return unsignedAt(frame.references.substr(index * referenceSize_, referenceSize_));
    }

    std::optional<Object> objectAt(std::uint64_t reference) const {
        if (reference >= offsets_.size() / offsetSize_) return std::nullopt;
        const std::uint64_t offset =
            unsignedAt(offsets_.substr(reference * offsetSize_, offsetSize_));
        if (offset >= bytes_.size()) return std::nullopt;
        const auto first = static_cast<unsigned char>(bytes_[offset]);
        Object object{static_cast<Kind>(first >> 4U), first & 15U, offset + 1, first & 15U};
        const bool isSized = object.kind >= Kind::Data;
        if (isSized && object.low == 15 && !readLongSize(object)) return std::nullopt;
        return object;
    }

    /// The size as an integer object of its own.
    bool readLongSize(Object& object) const {
        if (object.body >= bytes_.size()) return false;
        const auto first = static_cast<unsigned char>(bytes_[object.body]);
        const std::size_t length = std::size_t{1} << (first & 15U);
        if (first >> 4U != 1 || length > 8 || length >= bytes_.size() - object.body) return false;
        const std::uint64_t size = unsignedAt(bytes_.substr(object.body + 1, length));
        if (size > bytes_.size()) return false;
        object.size = size;
        object.body += 1 + length;
        return true;
    }

    /// `units` times `unit` bytes of the object; none when the file ends before.
    [[nodiscard]] std::optional<std::string_view> bodyOf(const Object& object, std::size_t units,
                                                         std::size_t unit = 1) const {
        if (object.body > bytes_.size() || units > (bytes_.size() - object.body) / unit) {
            return std::nullopt;
        }
        return bytes_.substr(object.body, units * unit);
    }

    std::optional<std::string> textOf(const Object& object) const {
        if (object.kind == Kind::Ascii) {
            const auto body = bodyOf(object, object.size);
            if (!body || !IsValidUtf8(*body)) return std::nullopt;
            return std::string(*body);
        }
        if (object.kind != Kind::Utf16) return std::nullopt;
        const auto body = bodyOf(object, object.size, 2);
        return body ? Utf8FromUtf16(*body, ByteOrder::BigEndian) : std::nullopt;
    }

    bool visitKey(std::uint64_t reference) {
        const auto object = objectAt(reference);
        auto text = object ? textOf(*object) : std::nullopt;
        return text ? builder_.key(std::move(*text)) : damaged();
    }

    bool visit(std::uint64_t reference) {
        const auto object = objectAt(reference);
        if (!object) return damaged();
        if (object->kind == Kind::Array) return openContainer(*object, 1);
        if (object->kind == Kind::Dictionary) return openContainer(*object, 2);
        return addLeaf(*object);
    }

    bool openContainer(const Object& object, std::size_t referencesEach) {
        const auto references = bodyOf(object, object.size, referenceSize_ * referencesEach);
        if (!references) return damaged();
        frames_.push_back({*references, object.size});
        return referencesEach == 1 ? builder_.openArray() : builder_.openDictionary();
    }

    bool addLeaf(const Object& object) {
        switch (object.kind) {
            case Kind::Simple:
                return addOrFail(boolean(object));
            case Kind::Integer:
                return addOrFail(integer(object));
            case Kind::Real:
                return addOrFail(real(object));
            case Kind::Date:
                return addOrFail(date(object));
            case Kind::Data:
                return addOrFail(data(object));
            default:
                return addOrFail(textOf(object));
        }
    }

    template <typename Leaf>
    bool addOrFail(std::optional<Leaf> leaf) {
        return leaf ? builder_.add(std::move(*leaf)) : damaged();
    }

    static std::optional<Value> boolean(const Object& object) {
        if (object.low != 8 && object.low != 9) return std::nullopt;
        return object.low == 9;
    }

    /// Of 1, 2 and 4 bytes without a sign, of 8 and 16 bytes with one.
    std::optional<Value> integer(const Object& object) const {
        if (object.low > 4) return std::nullopt;
        auto body = bodyOf(object, std::size_t{1} << object.low);
        if (!body) return std::nullopt;
        if (body->size() == 16) {
            const auto high = static_cast<std::int64_t>(unsignedAt(body->substr(0, 8)));
            body->remove_prefix(8);
            const auto low = static_cast<std::int64_t>(unsignedAt(*body));
            if (high != (low < 0 ? -1 : 0)) return std::nullopt;
        }
        return static_cast<std::int64_t>(unsignedAt(*body));
    }

    std::optional<Value> real(const Object& object) const {
        if (object.low != 2 && object.low != 3) return std::nullopt;
        const auto body = bodyOf(object, std::size_t{1} << object.low);
        if (!body) return std::nullopt;
        const std::uint64_t bits = unsignedAt(*body);
        if (object.low == 3) return std::bit_cast<double>(bits);
        return double{std::bit_cast<float>(static_cast<std::uint32_t>(bits))};
    }

    std::optional<Value> date(const Object& object) const {
        const auto body = bodyOf(object, 8);
        if (!body || object.low != 3) return std::nullopt;
        const auto seconds = std::bit_cast<double>(unsignedAt(*body));
        if (!std::isfinite(seconds)) return std::nullopt;
        return Date{seconds + secondsTo2001};
    }

    std::optional<Data> data(const Object& object) const {
        const auto body = bodyOf(object, object.size);
        if (!body) return std::nullopt;
        return Data{std::string(*body)};
    }

    std::string_view bytes_;
    std::string_view offsets_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t topObject_ = 0;
    std::vector<Frame> frames_;
    PropertyListBuilder builder_;
};

}  // namespace

PropertyListResult ReadBinaryPropertyList(std::string_view bytes,
                                          const PropertyListLimits& limits) {
    return Reader(bytes, limits).run();
}

}  // namespace quelm
