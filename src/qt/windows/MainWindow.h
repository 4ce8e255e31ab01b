#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "qt/binding/Bindings.h"

namespace Ui {
class PrefPane;
}

namespace orv {

struct PaneOutlets;

/// The panel's window.
class MainWindow final : public QWidget {
    Q_OBJECT

 public:
    /// Both outlive it.
    MainWindow(const WindowContext& context, PaneOutlets& outlets);
    ~MainWindow() override;

    /// Called with true when the window comes on the screen and with false when it leaves it.
    void setShownChanged(std::function<void(bool shown)> changed);

 protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    void setUp(const WindowContext& context);
    void bindHeader(PaneOutlets& outlets);
    void bindBackup(PaneOutlets& outlets);
    void bindProjects(PaneOutlets& outlets);
    void bindBandwidth(PaneOutlets& outlets);
    void bindAccount(PaneOutlets& outlets);
    void bindDebug(PaneOutlets& outlets);

    std::unique_ptr<Ui::PrefPane> ui_;
    std::unique_ptr<Bindings> bindings_;
    std::function<void(bool shown)> shownChanged_;
};

}  // namespace orv
