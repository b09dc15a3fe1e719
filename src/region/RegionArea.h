// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "region/RegionAxis.h"

#include <QPair>
#include <QRect>
#include <QString>
#include <QVector>

#include <optional>

class ORXFeatureTree;

// A rectangle of the camera, as four integer features hold it.
class RegionArea
{
public:
    // Node names of the four features.
    struct Names
    {
        const char* width;
        const char* height;
        const char* offsetX;
        const char* offsetY;
        // What tells how large the area is; null where nothing does.
        const char* widthMax;
        const char* heightMax;
    };

    static const Names& imageNames();        // the region that the camera reads out
    static const Names& autoFunctionNames(); // the area that an automatic looks at

    // What the tree has read last; nothing when the camera lacks one of the features, or hides it.
    static std::optional<RegionArea> read(const ORXFeatureTree& tree, const Names& names);

    RegionArea(const Names& names, const RegionAxis& x, const RegionAxis& y, bool writable);

    const RegionAxis& x() const { return m_x; }
    const RegionAxis& y() const { return m_y; }
    // Whether any of the four can be edited; what is locked keeps its place in every edit.
    bool isWritable() const { return m_writable; }
    QRect rect() const;
    QSize extent() const;

    struct Target
    {
        RegionAxis::Span x;
        RegionAxis::Span y;
    };
    Target current() const { return {m_x.span(), m_y.span()}; }
    // The same area with the region at the target.
    RegionArea movedTo(const Target& target) const;
    // The writes that lead to the target, without those that change nothing, in an order in which
    // the region never leaves the area.
    QVector<QPair<QString, qint64>> writesTo(const Target& target) const;

private:
    Names m_names;
    RegionAxis m_x;
    RegionAxis m_y;
    bool m_writable;
};
