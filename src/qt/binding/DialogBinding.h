#pragma once

#include <QDialog>
#include <QObject>

#include "qt/binding/ViewBinding.h"

namespace orv {

/// A window that its controller opens and closes. What the person does to close it (Escape, the
/// window's button) only asks the controller.
class DialogBinding final : public OutletBinding<DialogWindow, QDialog> {
 public:
    DialogBinding(FrameUpdates& updates, DialogWindow& outlet, QDialog& dialog);

    void apply() override;

 private:
    /// Sees what closes the window before the window does.
    class Closing final : public QObject {
     public:
        explicit Closing(DialogWindow& outlet) : outlet_(&outlet) {}

     protected:
        bool eventFilter(QObject* watched, QEvent* event) override;

     private:
        DialogWindow* outlet_;
    };

    Closing closing_;
    std::size_t raises_ = 0;
    std::size_t shakes_;
};

}  // namespace orv
