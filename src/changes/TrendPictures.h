// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/TrendPicture.h"

#include <QCoreApplication>

class ORXPropertyTreeItem;

// Makes the picture of a feature's series at a time, in the interface language: the shortest of 1,
// 2, 5 and 10 minutes that holds the whole series, values and statistics in the form that the
// feature's row has. GUI thread.
class TrendPictures
{
    Q_DECLARE_TR_FUNCTIONS(TrendPanel)
public:
    // `item` is null without a current feature.
    static TrendPicture make(const ORXPropertyTreeItem* item, const TrendSeries& series,
                             qint64 nowMs);

private:
    static void setTimes(TrendPicture& picture, qint64 ageMs);
    static void setNumbers(TrendPicture& picture, const ORXPropertyTreeItem& item);
    static void setEntries(TrendPicture& picture, const ORXPropertyTreeItem& item);
};
