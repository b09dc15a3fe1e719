// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNode.h"

#include <QString>
#include <QVector>

// What the last pass found for a feature's description texts, beside what its value says; see
// FeatureDocHtml. A value type.
struct FeatureDocInputs
{
    FeatureNodePtr node; // null before the first pass
    QString visibility;
    QString streamable;
    // Whether the entry of the same place can be chosen; of enumerations.
    QVector<bool> usableEntries;
};
