// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QVariant>

class ORXPropertyTreeItem;

// A value that a read found changed, or a command that was executed.
struct ValueChange
{
    enum class Cause {
        Camera,  // by itself, as far as the window knows
        Edited,  // the user wrote this very feature
        Follows, // the user wrote another feature, which invalidates this one
        Executed // a command; no values
    };

    QString name; // of the feature
    QVariant before;
    QVariant now;
    Cause cause = Cause::Camera;
    // Of a feature that is polled, by itself: there will be more of them.
    bool restless = false;
    QString causedBy; // the written feature; of Follows
    qint64 when = 0;  // milliseconds since 1970
    // By ValueWatch::steadyMs(): when it was read, and since when `before` had stood.
    qint64 steadyMs = 0;
    qint64 beforeSinceMs = 0;
    ORXPropertyTreeItem* item = nullptr; // Not owned; lives while the change is told.
};
