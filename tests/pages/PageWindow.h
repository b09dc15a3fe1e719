// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"
#include "main/ORXMainFeatureWidget.h"
#include "program/HostCallbacks.h"
#include "support/Patience.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QTest>

class CFeatureGroupTreeView;
class IORXFeatureWidget;
class ORXPropertyTreeItem;
class QAbstractButton;

// The window on a camera, as a user sees and drives it: pages by their tabs, groups by the side
// column, values by the editors in sight. Released when it goes.
class PageWindow
{
public:
    enum Opening { WaitForFirstRead, InFirstRead };
    // Opens the window and waits for the first full read, or does not. `camera` is not owned.
    explicit PageWindow(Camera& camera, int language = 0, Opening opening = WaitForFirstRead);
    ~PageWindow();
    PageWindow(const PageWindow&) = delete;
    PageWindow& operator=(const PageWindow&) = delete;

    ORXMainFeatureWidget* widget() const { return ORXMainFeatureWidget::instance(nullptr); }
    ORXFeatureTree* tree() const { return widget()->featureTree(1, false); }
    IORXFeatureWidget* page(int tab) const;
    ORXPropertyTreeItem* item(int tab, const char* name) const;
    // Names of the shown groups of a page, titles of the page and all its groups, and names of a
    // group's items, in order.
    QStringList shownGroups(int tab) const;
    QStringList titles(int tab) const;
    QStringList items(int tab, const char* group) const;

    // Shows the page and the group with the feature by mouse clicks.
    bool show(int tab, ORXPropertyTreeItem* shown) const;
    bool show(int tab, const char* name) const { return show(tab, item(tab, name)); }
    bool isRowShown(int tab, ORXPropertyTreeItem* item) const;
    bool isRowShown(int tab, const char* name) const { return isRowShown(tab, item(tab, name)); }
    // The open editor of the feature, shown and enabled; null when that does not come about.
    QWidget* usableEditor(int tab, ORXPropertyTreeItem* item) const;
    template <typename Editor>
    Editor* editor(int tab, const char* name) const
    {
        return qobject_cast<Editor*>(usableEditor(tab, item(tab, name)));
    }
    // Types the text into the feature's editor, or chooses it, or clicks.
    bool enter(int tab, const char* name, const QString& text) const;
    bool choose(int tab, const char* name, const QString& entry) const;
    bool click(int tab, const char* name) const;
    // A click where a check box has its box.
    static void press(QAbstractButton* button);
    // The feature's row, and making it the current one.
    QModelIndex row(int tab, ORXPropertyTreeItem* item) const;
    QModelIndex row(int tab, const char* name) const { return row(tab, item(tab, name)); }
    bool select(int tab, const char* name) const;
    // What the feature's row shows: text of its editor, "checked", "unchecked".
    QString shown(int tab, const char* name) const;
    bool isEnabled(int tab, const char* name) const;
    // Reads everything again and waits for the end.
    bool refresh() const;

private:
    CFeatureGroupTreeView* column() const;
    QVector<QModelIndex> columnRows(int tab) const; // the page's own first
    QWidget* openedEditor(int tab, ORXPropertyTreeItem* item) const;

    HostCallbacks m_host;
};
