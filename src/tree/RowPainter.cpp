// SPDX-License-Identifier: Apache-2.0
#include "tree/RowPainter.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustom.h"
#include "tree/ChangeMarks.h"
#include "tree/editors/EditorKinds.h"

#include <QApplication>
#include <QPainter>
#include <QTextDocument>

namespace {

constexpr int kLeafShift = 20;        // a leaf's name stands this far left of its place
constexpr int kCategoryOverhang = 50; // a category's name reaches into the value column
constexpr int kUnitGap = 12;
constexpr int kNoValueLeft = 14; // where the text of an editor begins
constexpr int kNoValueRight = 10;
constexpr int kMarkLeft = 7; // clear of the bar of the current row
constexpr int kMarkWidth = 4;
constexpr int kMarkInset = 8;

bool isCategory(const ORXPropertyTreeItem& item)
{
    return item.itemType() == ORXPropertyTreeItem::FavoritesGroup ||
           item.itemType() == ORXPropertyTreeItem::CategoryItem;
}

void paintMarkedName(QPainter* painter, const QStyleOptionViewItem& option, const QString& html)
{
    QTextDocument document;
    document.setDefaultFont(option.font);
    document.setHtml(html);
    painter->save();
    painter->translate(option.rect.left(), option.rect.top() + 4);
    document.drawContents(painter, QRectF(0, 0, option.rect.width() + 1, option.rect.height() + 1));
    painter->restore();
}

// Behind a name that takes `nameWidth` pixels, if there is room.
void paintUnit(QPainter* painter, const QStyleOptionViewItem& option, int nameWidth,
               const QString& unit)
{
    const QRect name = RowPainter::styleOf(option)->subElementRect(QStyle::SE_ItemViewItemText,
                                                                   &option, option.widget);
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
void paintNoValue(QPainter* painter, const QStyleOptionViewItem& option)
{
    painter->save();
    painter->setFont(option.font);
    painter->setPen(
        ZELCustom::getDataBaseColor(QStringLiteral("ORXPropertyTreeModelColor_Foreground")));
    painter->drawText(option.rect.adjusted(kNoValueLeft, 0, -kNoValueRight, 0),
                      Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("\u2013"));
    painter->restore();
}

} // namespace

QStyle* RowPainter::styleOf(const QStyleOptionViewItem& option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

void RowPainter::setDropLine(const ORXPropertyTreeItem* item, bool below)
{
    m_pDropItem = item;
    m_bDropBelow = below;
}

void RowPainter::setMarks(const ChangeMarks* marks)
{
    m_pMarks = marks;
}

// Near the left edge of the view, whatever the depth of the row.
QRect RowPainter::markPlace(const QRect& row)
{
    return {kMarkLeft, row.top() + kMarkInset, kMarkWidth, row.height() - 2 * kMarkInset};
}

void RowPainter::paintMark(QPainter* painter, const QRect& row,
                           const ORXPropertyTreeItem& item) const
{
    const qreal strength = m_pMarks ? m_pMarks->strength(&item) : 0;
    if (strength <= 0)
        return;
    QColor colour = ZELCustom::getDataBaseColor(QStringLiteral("StyledCtlColor_Accent"));
    colour.setAlphaF(float(strength));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
    painter->drawRoundedRect(markPlace(row), kMarkWidth / 2.0, kMarkWidth / 2.0);
    painter->restore();
}

void RowPainter::paint(QPainter* painter, const QStyleOptionViewItem& cell,
                       const ORXPropertyTreeItem& item, int column) const
{
    QStyleOptionViewItem shifted = cell;
    const bool category = isCategory(item);
    if (column == 0) {
        if (category) {
            shifted.font.setWeight(QFont::Bold);
            shifted.rect.setRight(shifted.rect.right() + kCategoryOverhang);
        } else if (item.childCount() == 0) {
            shifted.rect.setLeft(shifted.rect.left() - kLeafShift);
        }
    } else if (category) {
        shifted.rect.setLeft(shifted.rect.left() + kCategoryOverhang);
    }

    const QString name = shifted.text;
    const QString html = column == 0 ? item.getHighlightSerachText() : QString();
    if (!html.isEmpty())
        shifted.text.clear();
    styleOf(cell)->drawControl(QStyle::CE_ItemViewItem, &shifted, painter, cell.widget);
    if (!html.isEmpty())
        paintMarkedName(painter, shifted, html);
    if (column == 0 && item.value() && !item.value()->unit().isEmpty())
        paintUnit(painter, shifted, shifted.fontMetrics.horizontalAdvance(name),
                  item.value()->unit());
    if (column == 1 && !item.wasRead() && EditorKinds::of(item.tag()))
        paintNoValue(painter, shifted);
    if (column == 0)
        paintMark(painter, cell.rect, item);
    if (&item == m_pDropItem)
        paintDropLine(painter, cell);
}

void RowPainter::paintDropLine(QPainter* painter, const QStyleOptionViewItem& option) const
{
    QPen pen(ZELCustom::getDataBaseColor(QStringLiteral("CommonColor_DragBox_Border")), 1.0,
             Qt::CustomDashLine, Qt::SquareCap, Qt::BevelJoin);
    pen.setDashPattern({3, 2});
    painter->save();
    painter->setPen(pen);
    const int y = m_bDropBelow ? option.rect.bottom() : option.rect.top();
    painter->drawLine(option.rect.left(), y, option.rect.right() + 1, y);
    painter->restore();
}
