// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

#include <QObject>
#include <QPointer>

class ORXPropertyTreeItem;

// Value of the colour correction matrix item: where the matrix lives, and what switches it. Set by
// the page that makes the item, before its editor is made. GUI thread.
class CTreeCustomCCMItemValue : public CTreeItemValue
{
public:
    enum State { InCamera = 0, InSettingsFile = 1 };

    int m_nState = InCamera;
    qint64 m_lCameraID = -1;
    // The boolean item that says whether the matrix is on. Not owned; may be null.
    ORXPropertyTreeItem* m_pEnableItem = nullptr;
    // What reads and writes the matrix (a ColorMatrix). Not owned; may go before the item.
    QPointer<QObject> m_pMatrix;
};
