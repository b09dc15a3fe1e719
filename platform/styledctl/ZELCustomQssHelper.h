// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QMetaObject>
#include <QString>
#include <QVector>

class QWidget;

// Mixin for widgets that take style sheets from the theme: sets them, and sets them again when the
// theme changes. GUI thread only.
//
//     class View : public QTreeView, public ZELCustomQssHelper
//     { View(QWidget* p) : QTreeView(p), ZELCustomQssHelper(this)
//       { cSetStyleSheets({ZELCustom::Sheet_Tree, ZELCustom::Sheet_ScrollBar}); } };
class STYLEDCTL_EXPORT ZELCustomQssHelper
{
public:
    explicit ZELCustomQssHelper(QWidget* widget);
    virtual ~ZELCustomQssHelper();
    ZELCustomQssHelper(const ZELCustomQssHelper&) = delete;
    ZELCustomQssHelper& operator=(const ZELCustomQssHelper&) = delete;

    // Numbered sheets, joined in the given order, followed by `extra` (may hold "@key@").
    void cSetStyleSheets(const QVector<int>& numbers, const QString& extra = QString());
    // Fills in the colours again.
    void cApplyStyleSheets();

protected:
    // Called after the theme changed and the sheets were applied again; for colours that the
    // widget keeps itself.
    virtual void cThemeChanged() {}

private:
    QWidget* m_widget; // Not owned.
    QVector<int> m_numbers;
    QString m_extra;
    QMetaObject::Connection m_connection;
};
