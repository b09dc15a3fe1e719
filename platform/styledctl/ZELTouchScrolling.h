// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>

class QAbstractScrollArea;
class QScroller;

// What a finger does in a scroll area. Moved, it scrolls; put down shortly, it clicks what stands
// there; held, it asks for the context menu. Nothing in the area hears of it before it is known
// which, so a finger that scrolls presses, opens, edits and drags nothing. After a click on
// something that takes the focus, its tool tip shows, since a finger cannot point.
//
// Qt would give the area the focus at the first touch, and so end an edit elsewhere. The area's
// focus policy is therefore Qt::TabFocus, and this class gives it the focus by clicks and by the
// wheel.
//
// The mouse is left alone; a list in a popup gets its fingers as synthesized mouse events. Item
// views must scroll by pixels. Owned by its area; GUI thread.
class STYLEDCTL_EXPORT ZELTouchScrolling : public QObject
{
    Q_OBJECT
public:
    explicit ZELTouchScrolling(QAbstractScrollArea* area);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isFinger(const QEvent& event) const;
    void put(const QPoint& at);
    void move(const QPoint& at);
    void lift(const QPoint& at);
    void giveUp();
    void click();
    void askForMenu();
    void focusArea(Qt::FocusPolicy wanted);
    void focusByClick(QWidget* widget);
    QScroller* scroller() const;
    QWidget* target() const;

    QAbstractScrollArea* m_pArea; // Not owned.
    QWidget* m_pViewport;         // Not owned.
    Qt::FocusPolicy m_policy;     // what the area takes the focus by
    QTimer m_holdTimer;
    QElapsedTimer m_clock;
    QPoint m_start;        // on the screen
    bool m_bDown = false;  // a finger is in the area
    bool m_bStays = false; // and has not moved since
};
