// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomComboBox.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/ZELTouchScrolling.h"
#include "styledctl/private/ZELAccessibleComboBox.h"
#include "styledctl/private/ZELColors.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace {

constexpr int kMaxPopupWidth = 420;
constexpr int kMinChars = 6;
constexpr int kMaxChars = 24;
constexpr int kIconGap = 4;
constexpr int kCaptionGap = 12;
constexpr int kCaptionShare = 3; // of the room there is

// Box, caption and current entry, their texts cut to the room there is.
void drawBox(QStyleOptionComboBox& option, QPainter* painter, const ZELCustomComboBox* box)
{
    QStyle* style = box->style();
    style->drawComplexControl(QStyle::CC_ComboBox, &option, painter, box);
    if (!box->cCaption().isEmpty()) {
        const QRect all =
            style->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
        const QString caption = option.fontMetrics.elidedText(box->cCaption(), Qt::ElideRight,
                                                              all.width() / kCaptionShare);
        painter->setPen(ZELColors::current().textMuted);
        painter->drawText(QStyle::visualRect(option.direction, option.rect, all),
                          Qt::AlignVCenter | Qt::AlignLeft, caption);
        option.rect.setLeft(option.rect.left() + option.fontMetrics.horizontalAdvance(caption) +
                            kCaptionGap);
    }
    const QRect room =
        style->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
    const int icon = option.currentIcon.isNull() ? 0 : option.iconSize.width() + kIconGap;
    option.currentText = option.fontMetrics.elidedText(option.currentText, Qt::ElideRight,
                                                       qMax(0, room.width() - icon - 2));
    style->drawControl(QStyle::CE_ComboBoxLabel, &option, painter, box);
}

} // namespace

ZELCustomComboBox::ZELCustomComboBox(QWidget* parent, StyleSelector style, int variant)
    : QComboBox(parent)
    , ZELCustomLook(this, style, InstallLater)
{
    Q_UNUSED(variant)
    cInstall();
    ZELAccessibleComboBox::install();
    setFocusPolicy(Qt::StrongFocus);
}

QSize ZELCustomComboBox::hintFor(int textWidth) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    bool icons = false;
    for (int i = 0; i < count() && !icons; ++i)
        icons = !itemIcon(i).isNull();
    const QSize icon = icons ? iconSize() + QSize(kIconGap, 0) : QSize();
    const QSize contents(textWidth + qMax(0, icon.width()),
                         qMax(fontMetrics().height(), icon.height()));
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

QSize ZELCustomComboBox::sizeHint() const
{
    int width = fontMetrics().averageCharWidth() * kMinChars;
    for (int i = 0; i < count(); ++i)
        width = qMax(width, fontMetrics().horizontalAdvance(itemText(i)));
    // A long entry must not make the box push its neighbours away.
    return hintFor(qMin(width, fontMetrics().averageCharWidth() * kMaxChars));
}

QSize ZELCustomComboBox::minimumSizeHint() const
{
    return hintFor(fontMetrics().averageCharWidth() * kMinChars);
}

void ZELCustomComboBox::cSetCaption(const QString& caption)
{
    m_caption = caption;
    update();
}

void ZELCustomComboBox::changeEvent(QEvent* event)
{
    // For a new style or font QComboBox would build its popup list, the greater part of what a box
    // costs. Here the list takes both when it is wanted, in showPopup().
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        QWidget::changeEvent(event); // NOLINT(bugprone-parent-virtual-call)
        updateGeometry();
    } else {
        QComboBox::changeEvent(event);
    }
}

void ZELCustomComboBox::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QPainter painter(this);
    drawBox(option, &painter, this);
}

void ZELCustomComboBox::cDrawControl(QPainter* painter, const QRect& rect) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = rect;
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    painter->save();
    painter->setFont(font());
    drawBox(option, painter, this);
    painter->restore();
}

void ZELCustomComboBox::showPopup()
{
    QAbstractItemView* list = view();
    list->setFont(font());
    const QString sheet = ZELCustom::styleSheet(ZELCustom::Sheet_List) +
                          ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar);
    if (list->styleSheet() != sheet) {
        // Only this kind of delegate follows the sheet's item rules.
        setItemDelegate(new QStyledItemDelegate(list));
        list->setStyleSheet(sheet);
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        if (!list->findChild<ZELTouchScrolling*>(QString(), Qt::FindDirectChildrenOnly))
            new ZELTouchScrolling(list);
        list->setPalette(palette());
        QWidget* frame = list->parentWidget();
        frame->setObjectName(QStringLiteral("ZELComboPopup"));
        frame->setStyleSheet(ZELCustom::resolveSheet(
            QStringLiteral("#ZELComboPopup { background: @StyledCtlColor_Popup@;"
                           " border: 1px solid @StyledCtlColor_BorderStrong@; padding: 1px; }")));
    }
    const int wanted = list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width();
    list->setMinimumWidth(qMin(wanted, kMaxPopupWidth));
    QComboBox::showPopup();
}

void ZELCustomComboBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
