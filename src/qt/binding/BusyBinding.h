#pragma once

#include "qt/binding/ViewBinding.h"
#include "qt/elements/BusyIndicator.h"

namespace orv {

class BusyBinding final : public ViewBinding<ProgressIndicator, BusyIndicator> {
 public:
    using ViewBinding::ViewBinding;

 private:
    void show() override { widget().setAnimating(outlet().isAnimating()); }
};

}  // namespace orv
