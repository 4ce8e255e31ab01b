#include "qt/binding/TabBinding.h"

#include <QSignalBlocker>
#include <QVariant>
#include <algorithm>
#include <utility>

#include "qt/binding/Mnemonics.h"
#include "qt/binding/QtText.h"

namespace orv {

TabBinding::TabBinding(FrameUpdates& updates, TabView& outlet, QTabWidget& tabs,
                       std::function<void()> titlesChanged)
    : ViewBinding(updates, outlet, tabs), titlesChanged_(std::move(titlesChanged)) {
    for (int i = 0; i < tabs.count(); ++i) {
        QWidget* page = tabs.widget(i);
        const std::string identifier = FromQt(page->property("identifier").toString());
        pages_.push_back({identifier, page, tabs.tabIcon(i)});
        SetPlainTabTitle(*page, tabs.tabText(i));
    }
    // the interface file's tabs stand until the controller has others
    if (outlet.items().empty()) {
        for (const Page& page : pages_)
            outlet.append({page.identifier});
    }
    QObject::connect(&tabs, &QTabWidget::currentChanged, &receiver(),
                     [this](int index) { chosen(index); });
}

void TabBinding::chosen(int index) {
    const auto found = std::ranges::find(pages_, widget().widget(index), &Page::widget);
    if (found != pages_.end()) outlet().select(found->identifier);
}

const TabBinding::Page* TabBinding::pageNamed(std::string_view identifier) const {
    const auto found = std::ranges::find(pages_, identifier, &Page::identifier);
    return found != pages_.end() ? &*found : nullptr;
}

std::vector<const TabBinding::Page*> TabBinding::wantedPages() const {
    std::vector<const Page*> pages;
    for (const TabViewItem& item : outlet().items())
        if (const Page* page = pageNamed(item.identifier)) pages.push_back(page);
    return pages;
}

bool TabBinding::showsExactly(const std::vector<const Page*>& pages) const {
    if (widget().count() != static_cast<int>(pages.size())) return false;
    return std::ranges::all_of(pages, [this, i = 0](const Page* page) mutable {
        return widget().widget(i++) == page->widget;
    });
}

void TabBinding::show() {
    const std::vector<const Page*> pages = wantedPages();
    const QSignalBlocker silent(widget());
    const bool changes = !showsExactly(pages);
    if (changes) arrange(pages);
    if (const Page* selected = pageNamed(outlet().selectedIdentifier()))
        widget().setCurrentWidget(selected->widget);
    if (changes) titlesChanged_();
}

void TabBinding::arrange(const std::vector<const Page*>& pages) {
    for (const Page& page : pages_) {
        const bool stays = std::ranges::find(pages, &page) != pages.end();
        const int index = widget().indexOf(page.widget);
        if (!stays && index >= 0) {
            widget().removeTab(index);
            page.widget->hide();
        }
    }
    for (int i = 0; i < static_cast<int>(pages.size()); ++i) {
        const Page& page = *pages[static_cast<std::size_t>(i)];
        const int index = widget().indexOf(page.widget);
        if (index == i) continue;
        if (index >= 0) widget().removeTab(index);
        widget().insertTab(i, page.widget, page.icon, TabTitle(*page.widget));
    }
}

}  // namespace orv
