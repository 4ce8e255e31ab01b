#include "qt/looks/Style.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QStyleOption>
#include <QTabBar>
#include <QTreeView>
#include <QWidget>
#include <algorithm>
#include <array>

#include "qt/looks/Painting.h"
#include "qt/looks/Spacing.h"

namespace orv {

namespace {

/// How far the focus of a check box goes round its title.
constexpr int focusReach = 5;

using Draw = void (*)(const QStyleOption&, QPainter&);

struct PrimitiveRow {
    QStyle::PrimitiveElement element;
    Draw draw;
};

constexpr auto primitives = std::to_array<PrimitiveRow>({
    {QStyle::PE_PanelButtonCommand, painting::button},
    {QStyle::PE_PanelButtonTool, painting::flatButton},
    {QStyle::PE_FrameDefaultButton, painting::nothing},
    {QStyle::PE_IndicatorCheckBox, painting::checkIndicator},
    {QStyle::PE_IndicatorRadioButton, painting::radioIndicator},
    {QStyle::PE_IndicatorBranch, painting::branch},
    {QStyle::PE_PanelLineEdit, painting::field},
    {QStyle::PE_Frame, painting::frame},
    {QStyle::PE_FrameFocusRect, painting::focus},
    {QStyle::PE_FrameTabBarBase, painting::tabBase},
    {QStyle::PE_FrameTabWidget, painting::nothing},
});

struct MetricRow {
    QStyle::PixelMetric metric;
    int value;
};

constexpr auto metrics = std::to_array<MetricRow>({
    {QStyle::PM_LayoutLeftMargin, spacing::wide},
    {QStyle::PM_LayoutTopMargin, spacing::wide},
    {QStyle::PM_LayoutRightMargin, spacing::wide},
    {QStyle::PM_LayoutBottomMargin, spacing::wide},
    {QStyle::PM_LayoutHorizontalSpacing, spacing::usual},
    {QStyle::PM_LayoutVerticalSpacing, spacing::usual},
    {QStyle::PM_DefaultFrameWidth, 1},
    {QStyle::PM_ButtonShiftHorizontal, 0},
    {QStyle::PM_ButtonShiftVertical, 0},
    {QStyle::PM_ButtonIconSize, spacing::smallIcon},
    {QStyle::PM_SmallIconSize, spacing::smallIcon},
    {QStyle::PM_TabBarIconSize, spacing::smallIcon},
    {QStyle::PM_TabBarTabShiftVertical, 0},
    {QStyle::PM_TabBarTabShiftHorizontal, 0},
    {QStyle::PM_IndicatorWidth, 18},
    {QStyle::PM_IndicatorHeight, 18},
    {QStyle::PM_CheckBoxLabelSpacing, focusReach + 5},
    {QStyle::PM_ExclusiveIndicatorWidth, 18},
    {QStyle::PM_ExclusiveIndicatorHeight, 18},
    {QStyle::PM_RadioButtonLabelSpacing, focusReach + 5},
    {QStyle::PM_ScrollBarExtent, 12},
    {QStyle::PM_HeaderMargin, spacing::cellPadding},
    {QStyle::PM_TabBarTabHSpace, 2 * spacing::wide},
    {QStyle::PM_FocusFrameHMargin, spacing::cellPadding - 1},
});

struct HintRow {
    QStyle::StyleHint hint;
    int value;
};

constexpr auto hints = std::to_array<HintRow>({
    {QStyle::SH_EtchDisabledText, 0},
    {QStyle::SH_DitherDisabledText, 0},
    {QStyle::SH_ItemView_ShowDecorationSelected, 1},
    {QStyle::SH_FormLayoutLabelAlignment, Qt::AlignLeft | Qt::AlignTop},
    {QStyle::SH_FormLayoutFormAlignment, Qt::AlignLeft | Qt::AlignTop},
    {QStyle::SH_TabBar_Alignment, Qt::AlignLeft},
    {QStyle::SH_ComboBox_Popup, 0},
});

/// The title in the colour that stands out from the button.
QStyleOptionButton onAccent(const QStyleOptionButton& button) {
    QStyleOptionButton copy = button;
    copy.palette.setColor(QPalette::ButtonText, button.palette.color(QPalette::HighlightedText));
    return copy;
}

QStyleOptionTab onTab(const QStyleOptionTab& tab) {
    QStyleOptionTab copy = tab;
    copy.state &= ~QStyle::State_HasFocus;  // its shape shows that
    const bool isSelected = tab.state.testFlag(QStyle::State_Selected);
    const QColor text = tab.palette.color(isSelected ? QPalette::Link : QPalette::WindowText);
    for (const auto role : {QPalette::WindowText, QPalette::Text})
        copy.palette.setColor(role, text);
    return copy;
}

}  // namespace

TidewellStyle::TidewellStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void TidewellStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    // of a list, what is selected is what has the focus
    if (element == PE_FrameFocusRect && qobject_cast<const QAbstractItemView*>(widget)) return;
    const auto row = std::ranges::find(primitives, element, &PrimitiveRow::element);
    if (row == primitives.end()) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    } else {
        row->draw(*option, *painter);
    }
}

void TidewellStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    if (element == CE_TabBarTabShape) return painting::tab(*option, *painter);
    if (element == CE_HeaderSection || element == CE_HeaderEmptyArea)
        return painting::header(*option, *painter);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonLabel && button && painting::IsAccented(*button)) {
        const QStyleOptionButton accented = onAccent(*button);
        return QProxyStyle::drawControl(element, &accented, painter, widget);
    }
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (element == CE_TabBarTabLabel && tab) {
        const QStyleOptionTab colored = onTab(*tab);
        return QProxyStyle::drawControl(element, &colored, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void TidewellStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && box && !box->editable) return painting::comboBox(*box, *painter);
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar) return painting::scrollBar(*bar, *painter);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect TidewellStyle::subElementRect(SubElement element, const QStyleOption* option,
                                    const QWidget* widget) const {
    const QRect usual = QProxyStyle::subElementRect(element, option, widget);
    switch (element) {
        case SE_PushButtonFocusRect:
            return option->rect;
        case SE_CheckBoxFocusRect:
        case SE_RadioButtonFocusRect:
            return usual.adjusted(-focusReach, -1, focusReach, 1);
        case SE_LineEditContents:
            return usual.adjusted(spacing::tight, 0, -spacing::tight, 0);
        default:
            return usual;
    }
}

QRect TidewellStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                    SubControl part, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar) return painting::scrollBarPart(*bar, part);
    if (control != CC_ComboBox || part != SC_ComboBoxEditField)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect text = option->rect.adjusted(spacing::cellPadding, 0, -painting::chevronWidth, 0);
    return visualRect(option->direction, option->rect, text);
}

void TidewellStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    // tabs belong to the header above them
    if (auto* tabs = qobject_cast<QTabBar*>(widget)) {
        tabs->setBackgroundRole(QPalette::Base);
        tabs->setAutoFillBackground(true);
    }
}

int TidewellStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    // of a tree, check box, icon and text belong together
    if (metric == PM_FocusFrameHMargin && qobject_cast<const QTreeView*>(widget))
        return spacing::tight / 2;
    const auto row = std::ranges::find(metrics, metric, &MetricRow::metric);
    return row != metrics.end() ? row->value : QProxyStyle::pixelMetric(metric, option, widget);
}

int TidewellStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* more) const {
    const auto row = std::ranges::find(hints, hint, &HintRow::hint);
    return row != hints.end() ? row->value : QProxyStyle::styleHint(hint, option, widget, more);
}

QSize TidewellStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& contents, const QWidget* widget) const {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const int height = option ? option->fontMetrics.height() + spacing::fieldPadding : 0;
    switch (type) {
        case CT_PushButton:
            return {std::max(contents.width() + spacing::buttonPadding, spacing::leastButton),
                    height};
        case CT_LineEdit:
            return {usual.width() + 2 * spacing::tight, height};
        case CT_ComboBox:
            return {contents.width() + 2 * spacing::cellPadding + painting::chevronWidth, height};
        case CT_ItemViewItem:
            return usual.expandedTo({0, height - spacing::tight / 2});
        case CT_CheckBox:
        case CT_RadioButton:
            return usual + QSize(focusReach, 2);
        case CT_TabBarTab:
            return {usual.width(), height + spacing::tight};
        case CT_HeaderSection:
            return {usual.width(), height};
        default:
            return usual;
    }
}

}  // namespace orv
