#include "qt/binding/Mnemonics.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolButton>
#include <QVariant>
#include <algorithm>
#include <vector>

namespace orv {

namespace {

constexpr const char* titleProperty = "plainTitle";
constexpr const char* mnemonicProperty = "mnemonic";

/// Something with a title.
struct Titled {
    /// The page of a tab.
    QWidget* widget;
    /// Null for all but tabs.
    QTabWidget* tabs = nullptr;
    /// On which it is; null outside the pages.
    QWidget* page = nullptr;
    /// Whether it takes the keyboard, or leads to what does.
    bool wantsMnemonic = true;
};

QString shownTitle(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    return {};
}

QChar mnemonicOf(const QWidget& widget) {
    return widget.property(mnemonicProperty).toChar();
}

void showTitle(const Titled& titled, QChar mnemonic) {
    const QString title = PlainTitle(*titled.widget);
    titled.widget->setProperty(titleProperty, title);
    titled.widget->setProperty(mnemonicProperty, mnemonic);
    const QString marked = TitleWithMnemonic(title, mnemonic);
    if (titled.tabs) {
        titled.tabs->setTabText(titled.tabs->indexOf(titled.widget), marked);
    } else if (auto* button = qobject_cast<QAbstractButton*>(titled.widget)) {
        button->setText(marked);
    } else if (auto* label = qobject_cast<QLabel*>(titled.widget)) {
        label->setText(marked);
    }
}

QWidget* pageOf(QWidget* widget) {
    for (; widget && widget->parentWidget(); widget = widget->parentWidget()) {
        const auto* stack = qobject_cast<QStackedWidget*>(widget->parentWidget());
        if (stack && qobject_cast<QTabWidget*>(stack->parentWidget())) return widget;
    }
    return nullptr;
}

bool isEditable(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QAbstractItemView*>(widget);
}

bool showsOnlyIcon(const QAbstractButton& button) {
    const auto* tool = qobject_cast<const QToolButton*>(&button);
    return tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly;
}

void addTabs(QWidget& window, std::vector<Titled>& all) {
    for (QTabWidget* tabs : window.findChildren<QTabWidget*>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            QWidget* page = tabs->widget(i);
            if (!page->property(titleProperty).isValid())
                page->setProperty(titleProperty, tabs->tabText(i));
            all.push_back({page, tabs, pageOf(tabs)});
        }
    }
}

void addButtons(QWidget& window, std::vector<Titled>& all) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (!showsOnlyIcon(*button)) all.push_back({button, nullptr, pageOf(button)});
    }
}

void addLabels(QWidget& window, std::vector<Titled>& all) {
    for (QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->buddy()) continue;
        all.push_back({label, nullptr, pageOf(label), isEditable(label->buddy())});
    }
}

/// Outside the pages first, in a fixed order.
std::vector<Titled> titledIn(QWidget& window) {
    std::vector<Titled> all;
    addTabs(window, all);
    addButtons(window, all);
    addLabels(window, all);
    std::erase_if(all, [&window](const Titled& each) {
        return each.widget->window() != &window || PlainTitle(*each.widget).isEmpty();
    });
    std::stable_partition(all.begin(), all.end(),
                          [](const Titled& each) { return each.page == nullptr; });
    return all;
}

/// The letters in use, for each page and outside the pages (null).
class Letters {
 public:
    void take(const Titled& titled, QChar letter) { letters_[titled.page] += letter; }

    /// Who is outside the pages is seen together with each of them.
    [[nodiscard]] QString besides(const Titled& titled) const {
        if (titled.page) return letters_[nullptr] + letters_[titled.page];
        QString all;
        for (const QString& letters : letters_)
            all += letters;
        return all;
    }

 private:
    QHash<QWidget*, QString> letters_;
};

}  // namespace

QChar PickMnemonic(const QString& title, const QString& taken) {
    const auto isFree = [&](QChar c) {
        return c.isLetterOrNumber() && !taken.contains(c.toUpper());
    };
    bool beginsWord = true;
    for (const QChar c : title) {
        if (beginsWord && isFree(c)) return c.toUpper();
        beginsWord = c.isSpace();
    }
    const auto found = std::ranges::find_if(title, isFree);
    return found != title.end() ? found->toUpper() : QChar();
}

QString TitleWithMnemonic(const QString& title, QChar mnemonic) {
    const qsizetype marked =
        mnemonic.isNull() ? -1 : title.indexOf(mnemonic, 0, Qt::CaseInsensitive);
    QString text;
    for (qsizetype i = 0; i < title.size(); ++i) {
        if (i == marked || title[i] == u'&') text += u'&';
        text += title[i];
    }
    return text;
}

QString PlainTitle(const QWidget& widget) {
    const QVariant title = widget.property(titleProperty);
    return title.isValid() ? title.toString() : shownTitle(widget);
}

void SetPlainTitle(QAbstractButton& button, const QString& title) {
    button.setProperty(titleProperty, title);
    button.setText(TitleWithMnemonic(title, mnemonicOf(button)));
}

void SetPlainTabTitle(QWidget& page, const QString& title) {
    page.setProperty(titleProperty, title);
}

QString TabTitle(const QWidget& page) {
    return TitleWithMnemonic(PlainTitle(page), mnemonicOf(page));
}

void AssignMnemonics(QWidget& window) {
    const std::vector<Titled> all = titledIn(window);
    Letters letters;
    std::vector<Titled> without;
    for (const Titled& titled : all) {
        const QChar own = mnemonicOf(*titled.widget);
        const bool occurs = PlainTitle(*titled.widget).contains(own, Qt::CaseInsensitive);
        if (own.isNull() || !occurs || letters.besides(titled).contains(own)) {
            without.push_back(titled);
        } else {
            letters.take(titled, own);
        }
    }
    for (const Titled& titled : without) {
        const QChar letter = titled.wantsMnemonic
                                 ? PickMnemonic(PlainTitle(*titled.widget), letters.besides(titled))
                                 : QChar();
        if (!letter.isNull()) letters.take(titled, letter);
        showTitle(titled, letter);
    }
}

}  // namespace orv
