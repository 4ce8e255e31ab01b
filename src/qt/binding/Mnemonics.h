#pragma once

#include <QChar>
#include <QString>

class QAbstractButton;
class QLabel;
class QTabWidget;
class QWidget;

namespace orv {

/// The letter of the title that becomes its mnemonic: one that `taken`, in upper case, has not, the
/// beginnings of words first. Null when there is none.
[[nodiscard]] QChar PickMnemonic(const QString& title, const QString& taken);

/// The title as a widget takes it, marked at the first occurrence of the mnemonic, which may be
/// null. A "&" of the title stays one.
[[nodiscard]] QString TitleWithMnemonic(const QString& title, QChar mnemonic);

// A title without its mnemonic. A widget has the title that was set last, else what it shows.

[[nodiscard]] QString PlainTitle(const QWidget& widget);
/// Keeps the mnemonic where it still occurs; AssignMnemonics then sees to the others.
void SetPlainTitle(QAbstractButton& button, const QString& title);
/// Of the tab that shows the page, now or later.
void SetPlainTabTitle(QWidget& page, const QString& title);

/// The title as a tab takes it, with the mnemonic that it has.
[[nodiscard]] QString TabTitle(const QWidget& page);

/// Gives every button, tab and label of an editable buddy in the window a mnemonic that nothing
/// else has that can be shown at the same time: each tab's page has letters of its own. Whoever has
/// one keeps it as long as it is its own.
void AssignMnemonics(QWidget& window);

}  // namespace orv
