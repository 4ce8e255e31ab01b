#pragma once

#include <QApplication>

#include "foundation/system/ApplicationBundle.h"
#include "qt/looks/Appearance.h"
#include "qt/texts/LocalizedTranslator.h"

namespace orv {

/// What a program with the panel's windows begins with: resources and texts, the application
/// object with its looks, and the process's services, which end with it.
class PanelApplication {
 public:
    PanelApplication(int& argc, char** argv);
    PanelApplication(const PanelApplication&) = delete;
    PanelApplication& operator=(const PanelApplication&) = delete;
    ~PanelApplication();

    [[nodiscard]] const quelm::Bundle& bundle() const { return bundle_; }
    [[nodiscard]] Appearance appearance() const { return appearance_; }

 private:
    quelm::Bundle bundle_;
    QApplication application_;
    Appearance appearance_;
    LocalizedTranslator texts_;
};

}  // namespace orv
