#include "qt/desktop/QtAlerts.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <utility>
#include <vector>

#include "qt/binding/Mnemonics.h"
#include "qt/binding/QtText.h"
#include "qt/binding/ShownText.h"
#include "qt/elements/MakeChild.h"
#include "qt/looks/Icons.h"

namespace orv {

namespace {

constexpr int iconSide = 48;

void showIcon(QMessageBox& box, const Icons& icons, AlertStyle style) {
    const bool isCritical = style == AlertStyle::Critical;
    const QIcon image = icons.icon(QLatin1String(isCritical ? "warning" : "tidewell"));
    box.setIconPixmap(image.pixmap(QSize(iconSide, iconSide), box.devicePixelRatio()));
}

/// None that the box has not made.
QLabel* labelNamed(const QMessageBox& box, const char* name) {
    return box.findChild<QLabel*>(QLatin1String(name));
}

void showInformativeText(QMessageBox& box, const std::string& text) {
    constexpr int usualWidth = 340;
    box.setInformativeText(ShownText(text));
    if (QLabel* label = labelNamed(box, "qt_msgbox_informativelabel")) {
        label->setTextFormat(Qt::PlainText);  // it would guess the format
        const int width = label->fontMetrics().horizontalAdvance(label->text());
        label->setMinimumWidth(std::min(width, usualWidth));
    }
    if (QLabel* label = labelNamed(box, "qt_msgbox_label")) {
        QFont font = label->font();
        font.setWeight(QFont::DemiBold);
        label->setFont(font);
    }
}

void showTexts(QMessageBox& box, const Alert& alert) {
    box.setWindowTitle(ShownLine(alert.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ShownText(alert.message));
    if (alert.informativeText) showInformativeText(box, *alert.informativeText);
}

using Buttons = std::vector<QAbstractButton*>;

Buttons addButtons(QMessageBox& box, const Alert& alert) {
    Buttons buttons;
    for (const std::string& title : alert.buttons) {
        const bool cancels = static_cast<int>(buttons.size()) == alert.cancelButton;
        auto* button =
            box.addButton(QString(), cancels ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
        SetPlainTitle(*button, ShownLine(title));
        if (cancels) box.setEscapeButton(button);
        if (buttons.empty()) box.setDefaultButton(button);
        buttons.push_back(button);
    }
    return buttons;
}

int indexOf(const QAbstractButton* button, const Buttons& buttons, int otherwise) {
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i] == button) return static_cast<int>(i);
    return otherwise;
}

}  // namespace

void QtAlerts::show(const Alert& alert, std::function<void(int button)> answered) {
    QWidget* active = QApplication::activeWindow();
    auto* box = MakeChild<QMessageBox>(active ? active : mainWindow_.data());
    box->setAttribute(Qt::WA_DeleteOnClose);
    showIcon(*box, *icons_, alert.style);
    showTexts(*box, alert);
    const Buttons buttons = addButtons(*box, alert);
    AssignMnemonics(*box);
    QObject::connect(box, &QMessageBox::finished, box,
                     [box, buttons, answered = std::move(answered), cancel = alert.cancelButton] {
                         if (answered) answered(indexOf(box->clickedButton(), buttons, cancel));
                     });
    box->open();
}

}  // namespace orv
