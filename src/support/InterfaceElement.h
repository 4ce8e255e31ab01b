#pragma once

#include <functional>
#include <optional>
#include <string>

#include "support/BrandImages.h"
#include "support/StyledText.h"
#include "widgets/HexColor.h"

namespace orv {

enum class InterfaceKind {
    Array,
    // views
    Button,
    TextField,
    TabView,
    TextView,
    ScrollView,
    ImageView,
    Matrix,
    TableView,
    OtherView,
    // no views
    TabViewItem,
    Menu,
    MenuItem,
    ButtonCell,
    TableColumn,
    Window,
    Other,
};

/// What an interface file makes, as branding sees it: the window layer wraps its objects in it, and
/// overrides what the kind has. Main thread only.
class InterfaceElement {
 public:
    /// Takes an element that lives as long as the call.
    using Visitor = std::function<void(InterfaceElement& element)>;

    virtual ~InterfaceElement() = default;

    [[nodiscard]] virtual InterfaceKind kind() const = 0;
    [[nodiscard]] virtual int tag() const { return 0; }

    /// The title, label or string value.
    [[nodiscard]] virtual std::string text() const { return {}; }
    virtual void setText(const std::string& /*text*/) {}
    virtual void setTextColor(const HexColor& /*color*/) {}

    /// Of a text view. Setting it is one change, however much of it differs.
    [[nodiscard]] virtual StyledText styledText() const { return {}; }
    virtual void setStyledText(const StyledText& /*text*/) {}

    /// Of an image view; none without an image and for one without a name.
    [[nodiscard]] virtual std::optional<std::string> imageName() const { return std::nullopt; }
    virtual void setImage(const BrandImage& /*image*/) {}

    /// What it is made of: elements, items, cells, columns, the document or content view.
    virtual void visitParts(const Visitor& /*visitor*/) {}
    virtual void visitSubviews(const Visitor& /*visitor*/) {}
};

}  // namespace orv
