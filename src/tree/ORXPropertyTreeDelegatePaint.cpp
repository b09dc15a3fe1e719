// SPDX-License-Identifier: Apache-2.0
// Painting and placing of ORXPropertyTreeDelegate.
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>

namespace {

constexpr int kLeafShift = 20;        // a leaf's name stands this far left of its place
constexpr int kCategoryOverhang = 50; // a category's name reaches into the value column
constexpr int kEditorLeft = 5;
constexpr int kEditorRight = 10;
constexpr int kUnitGap = 12;
constexpr int kNoValueLeft = 14; // where the text of an editor begins
constexpr int kEditorHeight = 32;
constexpr int kNameEditorShift = 18;
constexpr int kWideEditorLeft = 20;
constexpr int kDrawRowHeight = 1; // its picture stands outside the rows
constexpr int kGroupRowHeight = 1;

QStyle* styleOf(const QStyleOptionViewItem& option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

bool isCategory(const ORXPropertyTreeItem& item)
{
    return item.itemType() == ORXPropertyTreeItem::FavoritesGroup ||
           item.itemType() == ORXPropertyTreeItem::CategoryItem;
}

} // namespace

void ORXPropertyTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    // Groups directly below the root are named by the side column; what is drawn stands elsewhere.
    if (!item || !index.parent().isValid() || item->tag() == FeatureTag::Draw)
        return;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool category = isCategory(*item);
    if (index.column() == 0) {
        if (category) {
            cell.font.setWeight(QFont::Bold);
            cell.rect.setRight(cell.rect.right() + kCategoryOverhang);
        } else if (item->childCount() == 0) {
            cell.rect.setLeft(cell.rect.left() - kLeafShift);
        }
    } else if (category) {
        cell.rect.setLeft(cell.rect.left() + kCategoryOverhang);
    }

    const QString name = cell.text;
    const QString html = item->getHighlightSerachText();
    if (!html.isEmpty() && index.column() == 0) {
        cell.text.clear();
        styleOf(option)->drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
        paintName(painter, cell, html);
    } else {
        styleOf(option)->drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
    }
    if (index.column() == 0 && item->value() && !item->value()->unit().isEmpty())
        paintUnit(painter, cell, cell.fontMetrics.horizontalAdvance(name), item->value()->unit());
    if (index.column() == 1 && !item->wasRead() && hasEditor(item->tag()))
        paintNoValue(painter, cell);
    if (item == m_pCurMoveItem)
        paintDropLine(painter, option);
}

void ORXPropertyTreeDelegate::paintName(QPainter* painter, const QStyleOptionViewItem& option,
                                        const QString& html) const
{
    QTextDocument document;
    document.setDefaultFont(option.font);
    document.setHtml(html);
    painter->save();
    painter->translate(option.rect.left(), option.rect.top() + 4);
    document.drawContents(painter, QRectF(0, 0, option.rect.width() + 1, option.rect.height() + 1));
    painter->restore();
}

void ORXPropertyTreeDelegate::paintUnit(QPainter* painter, const QStyleOptionViewItem& option,
                                        int nameWidth, const QString& unit)
{
    const QRect name =
        styleOf(option)->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    const int left = name.left() + nameWidth + kUnitGap;
    if (left + option.fontMetrics.horizontalAdvance(unit) > option.rect.right())
        return;
    painter->save();
    painter->setFont(option.font);
    painter->setPen(ZELCustom::getDataBaseColor(QStringLiteral("CommonColor_Font_Little_Black")));
    painter->drawText(QRect(left, name.top(), option.rect.right() - left, name.height()),
                      Qt::AlignLeft | Qt::AlignVCenter, unit);
    painter->restore();
}

// Instead of the value that nobody has asked the camera for yet.
void ORXPropertyTreeDelegate::paintNoValue(QPainter* painter, const QStyleOptionViewItem& option)
{
    painter->save();
    painter->setFont(option.font);
    painter->setPen(
        ZELCustom::getDataBaseColor(QStringLiteral("ORXPropertyTreeModelColor_Foreground")));
    painter->drawText(option.rect.adjusted(kNoValueLeft, 0, -kEditorRight, 0),
                      Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("\u2013"));
    painter->restore();
}

void ORXPropertyTreeDelegate::paintDropLine(QPainter* painter,
                                            const QStyleOptionViewItem& option) const
{
    QPen pen(ZELCustom::getDataBaseColor(QStringLiteral("CommonColor_DragBox_Border")), 1.0,
             Qt::CustomDashLine, Qt::SquareCap, Qt::BevelJoin);
    pen.setDashPattern({3, 2});
    painter->save();
    painter->setPen(pen);
    const int y = m_bMoveBelow ? option.rect.bottom() : option.rect.top();
    painter->drawLine(option.rect.left(), y, option.rect.right() + 1, y);
    painter->restore();
}

QSize ORXPropertyTreeDelegate::sizeHint(const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    // A view that lays itself out wants heights only, and says so by a width of -1. Measuring the
    // texts would be the greater part of its time.
    const bool measuresText = option.rect.width() >= 0;
    QSize size = measuresText ? QStyledItemDelegate::sizeHint(option, index) : QSize(0, 0);
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!index.parent().isValid())
        size.setHeight(kGroupRowHeight);
    else if (item && item->tag() == FeatureTag::CCM)
        size.setHeight(kMatrixRowHeight);
    else if (item && item->tag() == FeatureTag::Draw)
        size.setHeight(kDrawRowHeight);
    else
        size.setHeight(kRowHeight);
    return size;
}

void ORXPropertyTreeDelegate::updateEditorGeometry(QWidget* editor,
                                                   const QStyleOptionViewItem& option,
                                                   const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!item)
        return;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (index.column() == 0) {
        cell.rect.setLeft(cell.rect.left() - kNameEditorShift);
        editor->setGeometry(cell.rect);
        return;
    }
    cell.rect.adjust(kEditorLeft, 0, -kEditorRight, 0);
    // The value column has no text of its own; its text rectangle is the whole cell.
    cell.features |= QStyleOptionViewItem::HasDisplay;
    QRect rect = styleOf(option)->subElementRect(QStyle::SE_ItemViewItemText, &cell, option.widget);
    const FeatureTag tag = item->tag();
    if (tag != FeatureTag::CCM) {
        // Editors of a fixed, smaller size (check boxes) are centred by their own height.
        const int height = qMin(kEditorHeight, editor->maximumHeight());
        rect.setTop(rect.top() + (rect.height() - (height - 1)) / 2);
        rect.setBottom(rect.top() + height - 1);
    }
    if (editor->sizeHint().width() > rect.width())
        rect.setWidth(cell.rect.width());
    if (tag == FeatureTag::CCM || tag == FeatureTag::PalettesMode)
        rect.setLeft(kWideEditorLeft);
    editor->setGeometry(rect);
}
