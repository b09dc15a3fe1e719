// SPDX-License-Identifier: Apache-2.0
#include "region/RegionArea.h"

#include "model/CTreeIntergerItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ORXFeatureTree.h"

namespace {

struct Reading
{
    CTreeIntergerItemValue::Numbers numbers;
    bool writable;
};

std::optional<Reading> readFeature(const ORXFeatureTree& tree, const char* name)
{
    const ORXPropertyTreeItem* item =
        name ? tree.propertyItemByName(QString::fromLatin1(name)) : nullptr;
    const auto* value = item ? dynamic_cast<const CTreeIntergerItemValue*>(item->value()) : nullptr;
    if (!value || !item->visible())
        return std::nullopt;
    return Reading{value->numbers(), !item->readOnly()};
}

qint64 bounded(qint64 value)
{
    return qBound(qint64(0), value, RegionAxis::kLongest);
}

// Makes one direction of what the camera says. Its limits may depend on each other (the greatest
// size on the offset) and may not tell how long the area is. Where the camera tells the length by
// itself, that counts, unless the region would not fit into it.
RegionAxis axisOf(const Reading& size, const Reading& offset, const std::optional<Reading>& extent)
{
    const qint64 begin = bounded(offset.numbers.m_nValue);
    const qint64 length = bounded(size.numbers.m_nValue);
    const qint64 greatestSize = bounded(size.numbers.m_nMaxValue);
    const qint64 lastOffset = bounded(offset.numbers.m_nMaxValue);
    RegionAxis::Limits limits;
    limits.sizeMinimum = size.numbers.m_nMinValue;
    limits.sizeIncrement = qMax(qint64(1), bounded(size.numbers.m_nIncrement));
    limits.offsetMinimum = offset.numbers.m_nMinValue;
    limits.offsetIncrement = qMax(qint64(1), bounded(offset.numbers.m_nIncrement));
    limits.extent = qMax(greatestSize, length + lastOffset);
    if (extent && extent->numbers.m_nValue >= begin + length)
        limits.extent = extent->numbers.m_nValue;
    // A limit that falls short of the end by an increment or more does not come from the end.
    if (greatestSize + begin + limits.sizeIncrement <= limits.extent)
        limits.sizeMaximum = greatestSize;
    if (lastOffset + length + limits.offsetIncrement <= limits.extent)
        limits.offsetMaximum = lastOffset;
    // Of size and offset one may be locked: it keeps its value, the other can be edited.
    if (!size.writable) {
        limits.sizeMinimum = limits.sizeMaximum = size.numbers.m_nValue;
        limits.sizeIncrement = 1;
    }
    if (!offset.writable) {
        limits.offsetMinimum = limits.offsetMaximum = offset.numbers.m_nValue;
        limits.offsetIncrement = 1;
    }
    return {limits, {offset.numbers.m_nValue, size.numbers.m_nValue}};
}

void appendWrites(const RegionAxis& axis, const RegionAxis::Span& target, const char* sizeName,
                  const char* offsetName, QVector<QPair<QString, qint64>>& writes)
{
    const QPair<QString, qint64> size = {QString::fromLatin1(sizeName), target.size};
    const QPair<QString, qint64> offset = {QString::fromLatin1(offsetName), target.offset};
    const bool sizeChanges = target.size != axis.span().size;
    const bool offsetChanges = target.offset != axis.span().offset;
    if (sizeChanges && axis.sizeFirst(target))
        writes.append(size);
    if (offsetChanges)
        writes.append(offset);
    if (sizeChanges && !axis.sizeFirst(target))
        writes.append(size);
}

} // namespace

const RegionArea::Names& RegionArea::imageNames()
{
    static const Names kNames = {"Width", "Height", "OffsetX", "OffsetY", "WidthMax", "HeightMax"};
    return kNames;
}

const RegionArea::Names& RegionArea::autoFunctionNames()
{
    static const Names kNames = {"AutoFunctionAOIWidth",
                                 "AutoFunctionAOIHeight",
                                 "AutoFunctionAOIOffsetX",
                                 "AutoFunctionAOIOffsetY",
                                 nullptr,
                                 nullptr};
    return kNames;
}

std::optional<RegionArea> RegionArea::read(const ORXFeatureTree& tree, const Names& names)
{
    const auto width = readFeature(tree, names.width);
    const auto height = readFeature(tree, names.height);
    const auto offsetX = readFeature(tree, names.offsetX);
    const auto offsetY = readFeature(tree, names.offsetY);
    if (!width || !height || !offsetX || !offsetY)
        return std::nullopt;
    return RegionArea(names, axisOf(*width, *offsetX, readFeature(tree, names.widthMax)),
                      axisOf(*height, *offsetY, readFeature(tree, names.heightMax)),
                      width->writable || height->writable || offsetX->writable ||
                          offsetY->writable);
}

RegionArea::RegionArea(const Names& names, const RegionAxis& x, const RegionAxis& y, bool writable)
    : m_names(names)
    , m_x(x)
    , m_y(y)
    , m_writable(writable)
{
}

QRect RegionArea::rect() const
{
    return {static_cast<int>(m_x.span().offset), static_cast<int>(m_y.span().offset),
            static_cast<int>(m_x.span().size), static_cast<int>(m_y.span().size)};
}

QSize RegionArea::extent() const
{
    return {static_cast<int>(m_x.extent()), static_cast<int>(m_y.extent())};
}

RegionArea RegionArea::movedTo(const Target& target) const
{
    return {m_names, RegionAxis(m_x.limits(), target.x), RegionAxis(m_y.limits(), target.y),
            m_writable};
}

QVector<QPair<QString, qint64>> RegionArea::writesTo(const Target& target) const
{
    QVector<QPair<QString, qint64>> writes;
    appendWrites(m_x, target.x, m_names.width, m_names.offsetX, writes);
    appendWrites(m_y, target.y, m_names.height, m_names.offsetY, writes);
    return writes;
}
