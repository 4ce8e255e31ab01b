#pragma once

#include <QDialog>
#include <memory>

#include "qt/binding/Bindings.h"

namespace Ui {
class ExcludeFilters;
}

namespace orv {

struct ExcludeOutlets;

/// What is excluded by name or one by one.
class ExcludeFiltersWindow final : public QDialog {
    Q_OBJECT

 public:
    /// Context and outlets outlive it. `parent`, which may be null, waits while it is open.
    ExcludeFiltersWindow(const WindowContext& context, ExcludeOutlets& outlets, QWidget* parent);
    ~ExcludeFiltersWindow() override;

 private:
    std::unique_ptr<Ui::ExcludeFilters> ui_;
    std::unique_ptr<Bindings> bindings_;
};

}  // namespace orv
