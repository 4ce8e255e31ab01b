#pragma once

#include <QLabel>
#include <functional>
#include <string>

#include "widgets/LinkedText.h"

namespace orv {

/// Takes the address of a link that the person follows.
using LinkOpener = std::function<void(const std::string& address)>;

/// Shows texts with links in a label: Tab reaches a link and Enter opens it. A text without links
/// is shown as it is, however much it looks like markup.
class LabelText final {
 public:
    /// Both outlive it; links open as long as the receiver lives.
    LabelText(QLabel& label, const QObject& receiver, const LinkOpener& open);

    void show(const LinkedText& text);

 private:
    void allowInteraction(bool hasLinks);
    [[nodiscard]] QString html(const LinkedText& text) const;

    QLabel* label_;
    // what the label does without links
    Qt::TextInteractionFlags interaction_;
    Qt::FocusPolicy focus_;
};

}  // namespace orv
