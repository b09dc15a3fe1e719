// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupDelegate.h"

#include "styledctl/ZELCustom.h"

#include <QPainter>

namespace {

constexpr int kPageHeight = 34;
constexpr int kGroupHeight = 30;
constexpr int kPageLeft = 10;
constexpr int kGroupLeft = 22;
constexpr int kArrowSpace = 18;
constexpr int kBarWidth = 3;
constexpr int kFontSize = 13;

QColor colour(const char* key)
{
    return ZELCustom::getDataBaseColor(QString::fromLatin1(key));
}

void paintArrow(QPainter* painter, const QRect& rect, bool open)
{
    const QPointF centre(rect.right() - kArrowSpace / 2.0, rect.center().y() + 0.5);
    constexpr qreal kHalf = 3.5;
    QPolygonF arrow;
    if (open)
        arrow << centre + QPointF(-kHalf, -kHalf / 2) << centre + QPointF(0, kHalf / 2)
              << centre + QPointF(kHalf, -kHalf / 2);
    else
        arrow << centre + QPointF(-kHalf / 2, -kHalf) << centre + QPointF(kHalf / 2, 0)
              << centre + QPointF(-kHalf / 2, kHalf);
    painter->setPen(QPen(colour("ORXPropertyTreeModelColor_Foreground"), 1.5));
    painter->drawPolyline(arrow);
}

} // namespace

CFeatureGroupDelegate::CFeatureGroupDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void CFeatureGroupDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    const bool page = !index.parent().isValid();
    const bool current = option.state & QStyle::State_Selected;
    QRect row = option.rect;
    row.setLeft(0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (current && !page)
        painter->fillRect(row, colour("StyledCtlColor_Selection"));
    else if (option.state & QStyle::State_MouseOver)
        painter->fillRect(row, colour("StyledCtlColor_Raised"));
    if (current && !page)
        painter->fillRect(QRect(row.left(), row.top(), kBarWidth, row.height()),
                          colour("CommonColor_PushButton_Bottom_Border"));

    painter->setFont(ZELCustom::font(kFontSize, page ? QFont::DemiBold : QFont::Normal));
    painter->setPen(index.data(Qt::ForegroundRole).value<QColor>());
    const QRect text = row.adjusted(page ? kPageLeft : kGroupLeft, 0, page ? -kArrowSpace : -6, 0);
    painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight,
                                                        text.width()));
    if (page)
        paintArrow(painter, row, option.state & QStyle::State_Open);
    painter->restore();
}

QSize CFeatureGroupDelegate::sizeHint(const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    const int height = index.parent().isValid() ? kGroupHeight : kPageHeight;
    return {QStyledItemDelegate::sizeHint(option, index).width(), height};
}
