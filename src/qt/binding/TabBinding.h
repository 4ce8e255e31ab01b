#pragma once

#include <QIcon>
#include <QString>
#include <QTabWidget>
#include <functional>
#include <vector>

#include "qt/binding/ViewBinding.h"
#include "widgets/TabView.h"

namespace orv {

/// The pages of a tab widget, known by their property "identifier": those that the outlet names,
/// in its order. The others are kept, with all that is on them, until it names them again.
class TabBinding final : public ViewBinding<TabView, QTabWidget> {
 public:
    /// `titlesChanged` is told when mnemonics have to be assigned anew.
    TabBinding(FrameUpdates& updates, TabView& outlet, QTabWidget& tabs,
               std::function<void()> titlesChanged);

 private:
    struct Page {
        std::string identifier;
        QWidget* widget;
        QIcon icon;
    };

    void show() override;
    void chosen(int index);
    [[nodiscard]] const Page* pageNamed(std::string_view identifier) const;
    [[nodiscard]] std::vector<const Page*> wantedPages() const;
    [[nodiscard]] bool showsExactly(const std::vector<const Page*>& pages) const;
    void arrange(const std::vector<const Page*>& pages);

    std::vector<Page> pages_;
    std::function<void()> titlesChanged_;
};

}  // namespace orv
