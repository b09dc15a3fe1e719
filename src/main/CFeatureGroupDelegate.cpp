// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupDelegate.h"

#include "main/CFeatureGroupModel.h"
#include "styledctl/ZELCustom.h"

#include <QPainter>

namespace {

constexpr int kPageHeight = 34;
constexpr int kGroupHeight = 32;
constexpr int kPageLeft = 10;
constexpr int kGroupLeft = 22;
constexpr int kArrowSpace = 18;
constexpr int kBarWidth = 3;
constexpr int kFontSize = 13;
constexpr int kRightMargin = 6;
constexpr int kHitsFontSize = 11;
constexpr int kHitsHeight = 18;
constexpr int kHitsPadding = 7;
constexpr int kDotSize = 6;
constexpr int kDotGap = 4;
constexpr int kDotSpace = 18;

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

// Paints the number of hits in a rounded mark that ends at `right`; returns the mark's left edge.
int paintHits(QPainter* painter, const QRect& row, int right, int hits)
{
    painter->setFont(ZELCustom::font(kHitsFontSize, QFont::DemiBold));
    const QString text = QString::number(hits);
    const int width =
        qMax(kHitsHeight, painter->fontMetrics().horizontalAdvance(text) + 2 * kHitsPadding);
    QRect mark(right - width, 0, width, kHitsHeight);
    mark.moveTop(row.center().y() - kHitsHeight / 2);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour("StyledCtlColor_Accent"));
    painter->drawRoundedRect(mark, kHitsHeight / 2.0, kHitsHeight / 2.0);
    painter->setPen(colour("StyledCtlColor_OnAccent"));
    painter->drawText(mark, Qt::AlignCenter, text);
    return mark.left();
}

// Paints the dot that ends at `right`.
void paintDot(QPainter* painter, const QRect& row, int right)
{
    QRectF dot(0, 0, kDotSize, kDotSize);
    dot.moveCenter(QPointF(right - kDotSize / 2.0, row.center().y() + 0.5));
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour("StyledCtlColor_Accent"));
    painter->drawEllipse(dot);
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

    const auto* model = qobject_cast<const CFeatureGroupModel*>(index.model());
    const bool searching = model && model->isSearching();
    const int hits = searching ? model->hitCount(index) : 0;
    QRect text =
        row.adjusted(page ? kPageLeft : kGroupLeft, 0, page ? -kArrowSpace : -kRightMargin, 0);
    if (hits > 0)
        text.setRight(paintHits(painter, row, text.right(), hits) - kRightMargin);
    const bool shows = !page || !(option.state & QStyle::State_Open); // else its groups do
    if (model && shows && model->hasDot(index)) {
        paintDot(painter, row, text.right() - kDotGap);
        text.setRight(text.right() - kDotSpace);
    }
    painter->setFont(ZELCustom::font(kFontSize, page ? QFont::DemiBold : QFont::Normal));
    painter->setPen(searching && hits == 0 ? colour("ORXPropertyTreeModelColor_Foreground")
                                           : index.data(Qt::ForegroundRole).value<QColor>());
    painter->drawText(
        text, Qt::AlignLeft | Qt::AlignVCenter,
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, text.width()));
    if (page)
        paintArrow(painter, row, option.state & QStyle::State_Open);
    if (option.state & QStyle::State_HasFocus) {
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(colour("StyledCtlColor_Accent"));
        painter->drawRect(row.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

QRect CFeatureGroupDelegate::arrowPlace(const QRect& row)
{
    return row.adjusted(row.width() - 2 * kArrowSpace, 0, 0, 0); // room for a finger
}

// The column takes all the room there is: nobody asks for a width, and no text is laid out.
QSize CFeatureGroupDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                      const QModelIndex& index) const
{
    return {0, index.parent().isValid() ? kGroupHeight : kPageHeight};
}
