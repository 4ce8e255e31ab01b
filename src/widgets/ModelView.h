#pragma once

#include <utility>

#include "widgets/Outlets.h"

namespace orv {

/// Shows a model, which is a plain value with ==.
template <class Model>
class ModelView final : public View {
 public:
    [[nodiscard]] const Model& model() const { return model_; }
    void setModel(Model model) { assign(model_, std::move(model)); }

 private:
    Model model_;
};

}  // namespace orv
