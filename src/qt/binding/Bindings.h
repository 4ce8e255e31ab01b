#pragma once

#include <QHash>
#include <memory>
#include <utility>
#include <vector>

#include "qt/binding/ViewBinding.h"
#include "qt/binding/WindowContext.h"
#include "widgets/ModelView.h"
#include "widgets/OutlineView.h"
#include "widgets/TabView.h"
#include "widgets/TableView.h"

class QAbstractButton;
class QComboBox;
class QDialog;
class QLabel;
class QLineEdit;
class QTabWidget;

namespace orv {

class BusyIndicator;
class ImageLabel;
class NoticeStrip;
class OutlineTree;
class RowTable;

/// A model that a widget shows by `setModel`.
template <class Model, class Widget>
class ModelBinding final : public ViewBinding<ModelView<Model>, Widget> {
 public:
    using ViewBinding<ModelView<Model>, Widget>::ViewBinding;

 private:
    void show() override { this->widget().setModel(this->outlet().model()); }
};

/// The bindings of one window. They end before its widgets and before the outlets: it is a member
/// of the window. Each is applied when it is made and from then on with the frame after a change.
class Bindings final {
 public:
    /// The context outlives it.
    Bindings(const WindowContext& context, QWidget& window);
    Bindings(const Bindings&) = delete;
    Bindings& operator=(const Bindings&) = delete;
    ~Bindings();

    void bind(TextField& outlet, QLabel* label);
    void bind(TextField& outlet, QLineEdit* edit);
    void bind(TextField& outlet, NoticeStrip* strip);
    void bind(Button& outlet, QAbstractButton* button);
    /// A check box, or a radio button that excludes no others by itself.
    void bind(CheckBox& outlet, QAbstractButton* button);
    void bind(PopUpButton& outlet, QComboBox* box);
    void bind(ImageView& outlet, ImageLabel* label);
    void bind(TabView& outlet, QTabWidget* tabs);
    void bind(TableView& outlet, RowTable* table);
    void bind(OutlineView& outlet, OutlineTree* tree);
    void bind(ProgressIndicator& outlet, BusyIndicator* indicator);
    void bind(DialogWindow& outlet, QDialog* dialog);
    template <class Model, class Widget>
    void bind(ModelView<Model>& outlet, Widget* widget) {
        add<ModelBinding<Model, Widget>>(outlet, *widget);
    }

 private:
    /// Assigns mnemonics anew when titles have changed.
    class MnemonicUpdate final : public Binding {
     public:
        MnemonicUpdate(FrameUpdates& updates, QWidget& window)
            : Binding(updates), window_(&window) {}
        void titleChanged() { mark(); }
        void apply() override;

     private:
        QWidget* window_;
    };

    template <class Made, class Outlet, class Widget, class... More>
    void add(Outlet& outlet, Widget& widget, More&&... more) {
        auto made =
            std::make_unique<Made>(context_->updates, outlet, widget, std::forward<More>(more)...);
        if constexpr (requires { made->setLabel(nullptr); }) made->setLabel(labels_.value(&widget));
        made->apply();
        bindings_.push_back(std::move(made));
    }
    [[nodiscard]] std::function<void()> titleChanged();

    const WindowContext* context_;
    /// By their buddies.
    QHash<const QWidget*, QWidget*> labels_;
    MnemonicUpdate mnemonics_;
    std::vector<std::unique_ptr<Binding>> bindings_;
};

}  // namespace orv
