// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/SelectorSetting.h"

#include <QCoreApplication>

// One value of a feature file beside the camera's, and what became of it.
struct FeatureFileRow
{
    Q_DECLARE_TR_FUNCTIONS(FeatureFileRow)
public:
    enum class State {
        NotReached, // the work was ended before
        Same,
        Different,
        UnknownFeature,  // the camera has none of that name
        NotAValue,       // of this feature
        Unreadable,      // the camera does not tell its value
        NotWritable,     // the camera does not let it be written now
        SelectorRefused, // the camera does not move the selector there
        Written,         // and read back as it was written
        Adjusted,        // written, but the camera tells another value
        Refused
    };

    int line = 0; // of the file; 0 of what is not in it
    QString name;
    QVector<SelectorSetting> selectors; // for which the value holds
    QString inFile;
    QString inCamera; // null when it is not known
    State state = State::NotReached;
    int error = 0; // the host's, with the states that it has a part in
    bool chosen = false;

    // Can be written to the camera as it is in the file.
    bool canBeApplied() const;
    // The state in a few words of the interface language; empty for what is the same.
    QString stateText() const;
    // "Gain (Gain Selector = All)" with the names as they are.
    QString nameWithSelectors() const;
};
