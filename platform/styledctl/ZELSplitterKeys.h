// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QObject>

class QSplitter;

// Moves a vertical splitter's first handle with Ctrl+Shift+Up and Ctrl+Shift+Down, from wherever
// the focus is inside the splitter. Owned by the splitter; GUI thread.
class STYLEDCTL_EXPORT ZELSplitterKeys : public QObject
{
public:
    static constexpr int kStepPx = 24;

    explicit ZELSplitterKeys(QSplitter* splitter);

private:
    void addKey(Qt::Key key, int step);

    QSplitter* m_pSplitter; // Not owned.
};
