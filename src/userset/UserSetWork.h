// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "userset/UserSetLoadWait.h"
#include "userset/UserSetTable.h"

class QObject;
class UserSetFeatures;

// Saves and loads a user set, or chooses the one for power-up, while the dialog shows that it is
// busy. Owned by the dialog; GUI thread. Turns event loops, in which the host may close the dialog
// or release the library: the caller stands in a ReentrancyScope.
class UserSetWork
{
public:
    enum class Outcome {
        Done,
        Refused,      // by the camera; the tree has told the user
        NotConfirmed, // the camera has not said that the load has ended
        Closed        // nobody is there to be told
    };

    // `dialog` gets the news of the items by notices. Neither is owned.
    UserSetWork(UserSetFeatures& features, QObject* dialog);

    // Of any button but the reset's.
    Outcome run(const UserSetTable::Button& button);
    // The load status was read.
    void noteLoadStatus(bool loading);
    // A closed dialog sends no further command, and its wait ends.
    void setClosed(bool closed);
    void setLimits(const UserSetLoadWait::Limits& limits) { m_limits = limits; }

private:
    bool saveOrLoad(UserSetTable::Feature command, int setValue);
    bool waitForLoad();

    UserSetFeatures& m_features; // Not owned.
    QObject* const m_pDialog;    // Not owned.
    UserSetLoadWait::Limits m_limits;
    UserSetLoadWait* m_pWait = nullptr; // Not owned; on the stack while it waits.
    bool m_bClosed = false;
};
