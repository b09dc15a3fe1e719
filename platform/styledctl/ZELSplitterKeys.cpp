// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELSplitterKeys.h"

#include <QShortcut>
#include <QSplitter>

ZELSplitterKeys::ZELSplitterKeys(QSplitter* splitter)
    : QObject(splitter)
    , m_pSplitter(splitter)
{
    addKey(Qt::Key_Up, -kStepPx);
    addKey(Qt::Key_Down, kStepPx);
}

// What is moved away from one side is given to the other; both keep their minimum.
void ZELSplitterKeys::addKey(Qt::Key key, int step)
{
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | key), m_pSplitter);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, step] {
        QList<int> sizes = m_pSplitter->sizes();
        if (sizes.size() < 2)
            return;
        const int moved = qBound(-sizes.at(0), step, sizes.at(1));
        sizes[0] += moved;
        sizes[1] -= moved;
        m_pSplitter->setSizes(sizes);
    });
}
