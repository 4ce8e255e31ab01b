#pragma once

#include <QObject>
#include <QWidget>

#include "qt/binding/Binding.h"
#include "qt/binding/FrameUpdates.h"
#include "widgets/Outlets.h"

namespace orv {

/// A widget that follows an outlet, which outlives it. An outlet has one binding at a time.
template <class Outlet, class Widget>
class OutletBinding : public Binding {
 public:
    OutletBinding(FrameUpdates& updates, Outlet& outlet, Widget& widget)
        : Binding(updates), outlet_(&outlet), widget_(&widget) {
        outlet.observe([this] { mark(); });
    }
    ~OutletBinding() override { outlet_->observe({}); }

 protected:
    [[nodiscard]] Outlet& outlet() const { return *outlet_; }
    [[nodiscard]] Widget& widget() const { return *widget_; }
    /// The receiver of the widget's signals: they end with the binding.
    [[nodiscard]] const QObject& receiver() const { return receiver_; }

 private:
    Outlet* outlet_;
    Widget* widget_;
    QObject receiver_;
};

/// Hides, enables and explains the widget as its outlet says, and hides the label that it is the
/// buddy of, which may be null, with it.
void ApplyView(const View& outlet, QWidget& widget, QWidget* label);

/// One that is hidden, enabled and explained as its outlet says.
template <class Outlet, class Widget>
class ViewBinding : public OutletBinding<Outlet, Widget> {
 public:
    using OutletBinding<Outlet, Widget>::OutletBinding;

    void setLabel(QWidget* label) { label_ = label; }
    void apply() final {
        ApplyView(this->outlet(), this->widget(), label_);
        show();
    }

 protected:
    /// Shows what is special to the kind of outlet.
    virtual void show() = 0;

 private:
    QWidget* label_ = nullptr;
};

}  // namespace orv
