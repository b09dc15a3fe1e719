// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QObject>
#include <QString>

class QWidget;

// Keeps a widget's style sheet until the widget is about to be seen: until it is polished, or shown
// if it was hidden then.
// Qt matches the rules of a sheet with all widgets below it again each time one of them gets a new
// parent, which while a window is put together happens again and again, and a page that is never
// seen needs none. Owned by the widget; GUI thread.
class STYLEDCTL_EXPORT ZELLateSheet : public QObject
{
    Q_OBJECT
public:
    // In place of any sheet that the widget was given before; at once when it has been seen.
    static void set(QWidget* widget, const QString& sheet);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit ZELLateSheet(QWidget* widget);

    QWidget* m_widget; // The parent.
    QString m_sheet;
    bool m_bSet = false; // by the widget's next event this object is gone
};
