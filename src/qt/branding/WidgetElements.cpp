#include "qt/branding/WidgetElements.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAction>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <array>

#include "qt/binding/QtText.h"
#include "qt/branding/BrandPixmap.h"
#include "qt/branding/DocumentText.h"
#include "qt/elements/HeaderBand.h"
#include "qt/elements/ImageLabel.h"

namespace orv {

namespace {

/// Something with a text that Qt knows as a property.
class TextElement : public InterfaceElement {
 public:
    TextElement(QObject& object, InterfaceKind kind, const char* property)
        : object_(&object), property_(property), kind_(kind) {}

    [[nodiscard]] InterfaceKind kind() const override { return kind_; }
    [[nodiscard]] int tag() const override { return object_->property("tag").toInt(); }
    [[nodiscard]] std::string text() const override {
        return property_ ? FromQt(object_->property(property_).toString()) : std::string();
    }
    void setText(const std::string& text) override {
        if (property_) object_->setProperty(property_, ToQt(text));
    }

 private:
    QObject* object_;
    const char* property_;
    InterfaceKind kind_;
};

class TabItemElement final : public InterfaceElement {
 public:
    TabItemElement(QTabWidget& tabs, int index) : tabs_(&tabs), index_(index) {}

    [[nodiscard]] InterfaceKind kind() const override { return InterfaceKind::TabViewItem; }
    [[nodiscard]] std::string text() const override { return FromQt(tabs_->tabText(index_)); }
    void setText(const std::string& text) override { tabs_->setTabText(index_, ToQt(text)); }
    void visitParts(const Visitor& visitor) override {
        VisitElement(*tabs_->widget(index_), visitor);
    }

 private:
    QTabWidget* tabs_;
    int index_;
};

class ColumnElement final : public InterfaceElement {
 public:
    ColumnElement(QAbstractItemModel& model, int column) : model_(&model), column_(column) {}

    [[nodiscard]] InterfaceKind kind() const override { return InterfaceKind::TableColumn; }
    [[nodiscard]] std::string text() const override {
        return FromQt(model_->headerData(column_, Qt::Horizontal).toString());
    }
    void setText(const std::string& text) override {
        model_->setHeaderData(column_, Qt::Horizontal, ToQt(text));
    }

 private:
    QAbstractItemModel* model_;
    int column_;
};

void visitTabs(QTabWidget& tabs, const InterfaceElement::Visitor& visitor) {
    for (int i = 0; i < tabs.count(); ++i) {
        TabItemElement item(tabs, i);
        visitor(item);
    }
}

void visitColumns(const QTableView& table, const InterfaceElement::Visitor& visitor) {
    if (!table.model()) return;
    for (int i = 0; i < table.model()->columnCount(); ++i) {
        ColumnElement column(*table.model(), i);
        visitor(column);
    }
}

void visitActions(const QMenu& menu, const InterfaceElement::Visitor& visitor) {
    for (QAction* action : menu.actions()) {
        TextElement item(*action, InterfaceKind::MenuItem, "text");
        visitor(item);
        if (action->menu()) VisitElement(*action->menu(), visitor);
    }
}

void visitChildren(const QWidget& widget, const InterfaceElement::Visitor& visitor) {
    for (QObject* child : widget.children()) {
        auto* view = qobject_cast<QWidget*>(child);
        if (view && !view->isWindow()) VisitElement(*view, visitor);
    }
}

class WidgetElement final : public TextElement {
 public:
    WidgetElement(QWidget& widget, InterfaceKind kind, const char* property)
        : TextElement(widget, kind, property), widget_(&widget) {}

    void setTextColor(const HexColor& color) override;
    [[nodiscard]] StyledText styledText() const override;
    void setStyledText(const StyledText& text) override;
    [[nodiscard]] std::optional<std::string> imageName() const override;
    void setImage(const BrandImage& image) override;
    void visitParts(const Visitor& visitor) override;
    void visitSubviews(const Visitor& visitor) override;

 private:
    QWidget* widget_;
    mutable DocumentStyles styles_;
};

void WidgetElement::setTextColor(const HexColor& color) {
    QPalette palette = widget_->palette();
    palette.setColor(widget_->foregroundRole(), QColor(color.red, color.green, color.blue));
    widget_->setPalette(palette);
}

StyledText WidgetElement::styledText() const {
    const auto* edit = qobject_cast<const QTextEdit*>(widget_);
    return edit ? ReadDocument(*edit->document(), styles_) : StyledText();
}

void WidgetElement::setStyledText(const StyledText& text) {
    if (auto* edit = qobject_cast<QTextEdit*>(widget_))
        WriteDocument(*edit->document(), text, styles_);
}

std::optional<std::string> WidgetElement::imageName() const {
    const auto* label = qobject_cast<const ImageLabel*>(widget_);
    // a tag says what a brand may put there, whatever the program's own image is called
    if (!label || tag() != 0) return std::nullopt;
    return FromQt(label->imageName());
}

void WidgetElement::setImage(const BrandImage& image) {
    const auto* filled = std::get_if<FilledRectangle>(&image.content);
    if (auto* band = qobject_cast<HeaderBand*>(widget_); band && filled) {
        band->setColor(QColor(filled->color.red, filled->color.green, filled->color.blue));
    } else if (auto* label = qobject_cast<ImageLabel*>(widget_)) {
        if (const auto pixmap = LoadBrandPixmap(image))
            label->setImage(ToQt(image.name), QIcon(*pixmap));
    }
}

void WidgetElement::visitParts(const Visitor& visitor) {
    if (auto* tabs = qobject_cast<QTabWidget*>(widget_)) {
        visitTabs(*tabs, visitor);
    } else if (const auto* table = qobject_cast<const QTableView*>(widget_)) {
        visitColumns(*table, visitor);
    } else if (const auto* menu = qobject_cast<const QMenu*>(widget_)) {
        visitActions(*menu, visitor);
    } else if (const auto* area = qobject_cast<const QScrollArea*>(widget_)) {
        if (area->widget()) VisitElement(*area->widget(), visitor);
    } else if (widget_->isWindow()) {
        visitChildren(*widget_, visitor);
    }
}

void WidgetElement::visitSubviews(const Visitor& visitor) {
    const bool hasOnlyParts =
        qobject_cast<QTabWidget*>(widget_) || qobject_cast<QAbstractScrollArea*>(widget_);
    if (!hasOnlyParts) visitChildren(*widget_, visitor);
}

struct KindRow {
    bool (*is)(const QWidget& widget);
    InterfaceKind kind;
    /// Null without a text.
    const char* property;
};

template <class Class>
bool is(const QWidget& widget) {
    return qobject_cast<const Class*>(&widget) != nullptr;
}

// The first that fits.
constexpr auto kinds = std::to_array<KindRow>({
    {is<QMenu>, InterfaceKind::Menu, nullptr},
    {[](const QWidget& widget) { return widget.isWindow(); }, InterfaceKind::Window, "windowTitle"},
    {is<QAbstractButton>, InterfaceKind::Button, "text"},
    {is<QGroupBox>, InterfaceKind::Button, "title"},
    {is<ImageLabel>, InterfaceKind::ImageView, nullptr},
    {is<HeaderBand>, InterfaceKind::ImageView, nullptr},
    {is<QLabel>, InterfaceKind::TextField, "text"},
    {is<QLineEdit>, InterfaceKind::TextField, "text"},
    {is<QTabWidget>, InterfaceKind::TabView, nullptr},
    {is<QTextEdit>, InterfaceKind::TextView, nullptr},
    {is<QTableView>, InterfaceKind::TableView, nullptr},
    {is<QScrollArea>, InterfaceKind::ScrollView, nullptr},
    {is<QWidget>, InterfaceKind::OtherView, nullptr},
});

}  // namespace

void VisitElement(QWidget& widget, const InterfaceElement::Visitor& visitor) {
    for (const KindRow& row : kinds) {
        if (!row.is(widget)) continue;
        WidgetElement element(widget, row.kind, row.property);
        return visitor(element);
    }
}

}  // namespace orv
