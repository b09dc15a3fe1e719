// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "steps/StepScript.h"

#include <QModelIndex>
#include <QPointer>

class QAbstractItemView;
class QLineEdit;
class QWidget;

// Does one step of a script with the visible widgets of this program, by the events that a user
// would cause. Knows nothing of the feature window but what can be seen. GUI thread.
class StepActor
{
public:
    // Empty when the step was done, else an English sentence. A step that opens a modal dialog
    // returns when the dialog was closed.
    QString act(const StepScript::Step& step);
    // Whether a visible label has the text in it.
    static bool isSaid(const QString& text);

private:
    struct Row
    {
        QAbstractItemView* view = nullptr; // Not owned.
        QModelIndex index;
    };

    QString showTab(const QString& argument);
    QString showTabOf(const QString& argument);
    QString selectRow(const QString& argument);
    QString pressLine(const QString& argument);
    QString checkLine(const QString& argument);
    QString enterFile(const QString& argument);
    QString expandRow(const QString& argument);
    QString collapseRow(const QString& argument);
    QString setValue(const QString& argument);
    QString choose(const QString& argument);
    QString openMenu(const QString& argument);
    QString press(const QString& argument);
    QString search(const QString& argument);
    QString type(const QString& argument);
    QString key(const QString& argument);
    QString scroll(const QString& argument);
    QString resize(const QString& argument);
    QString center(const QString& argument);

    static Row findRow(const QString& name);
    static Row findLine(const QString& text);
    static QString notThere(const QString& name);
};
