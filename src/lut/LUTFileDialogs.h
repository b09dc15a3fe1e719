// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class LUTCurve;
class LUTMessage;
class QWidget;

// Exchanges tables with text files: asks for the file with a modal dialog, then tells the outcome.
// Nothing happens when the user chooses no file. Owned by QLUTDrawWidget; GUI thread.
class LUTFileDialogs
{
    Q_DECLARE_TR_FUNCTIONS(LUTFileDialogs)
public:
    // None of them is owned.
    LUTFileDialogs(QWidget* editor, LUTCurve& curve, LUTMessage& message);

    // Replaces the shown line; false when it is unchanged.
    bool OnLoadFromFile();
    void OnSaveToFile();

private:
    QWidget* const m_pEditor; // Not owned.
    LUTCurve& m_curve;        // Not owned.
    LUTMessage& m_message;    // Not owned.
};
