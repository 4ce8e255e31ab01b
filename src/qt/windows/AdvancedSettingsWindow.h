#pragma once

#include <QDialog>
#include <memory>

#include "qt/binding/Bindings.h"

namespace Ui {
class AdvancedSettings;
}

namespace orv {

struct AdvancedSettingsOutlets;

/// The settings that few people need.
class AdvancedSettingsWindow final : public QDialog {
    Q_OBJECT

 public:
    /// Context and outlets outlive it; `parent` may be null.
    AdvancedSettingsWindow(const WindowContext& context, AdvancedSettingsOutlets& outlets,
                           QWidget* parent);
    ~AdvancedSettingsWindow() override;

 private:
    std::unique_ptr<Ui::AdvancedSettings> ui_;
    std::unique_ptr<Bindings> bindings_;
};

}  // namespace orv
