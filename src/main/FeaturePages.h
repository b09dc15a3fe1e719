// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QObject>

class IORXFeatureWidget;
class ORXFeatureTree;
class ORXFeatureTreeView;
class ORXImgProcessingFeature;
class ORXPropertyTreeItem;
class PageTabBar;
class QStackedWidget;

// The pages of the window, one for each tab: the trees of the cameras, one upon the other, and
// three curated pages that show one camera at a time. GUI thread.
class FeaturePages : public QObject
{
    Q_OBJECT
public:
    enum Tab { WholeTree = 0, Common = 1, Trigger = 2, ImageProcessing = 3 };
    static constexpr int kTabs = 4;

    // `window` owns this and all widgets; it lays out tab bar and stack.
    explicit FeaturePages(QWidget* window);

    PageTabBar* tabBar() const { return m_pTabs; }
    QStackedWidget* stack() const { return m_pStack; }
    int current() const;
    void turnTo(int tab);
    // Destroys the curated pages, before the trees whose items they borrow.
    void clear();

    // Shows the camera of the tree on all pages, or on the one of a tab alone.
    void showCamera(ORXFeatureTree* tree, qint64 key);
    void showCamera(ORXFeatureTree* tree, qint64 key, int tab);
    void addTree(ORXFeatureTree* tree);
    void removeTree(ORXFeatureTree* tree);
    // The curated pages forget the camera.
    void removeCamera(qint64 key);
    // The root of each curated page for the camera, made if needed.
    QList<ORXPropertyTreeItem*> curatedRoots(qint64 key) const;
    // Null when the tab has no curated page.
    IORXFeatureWidget* curatedPage(int tab) const { return m_curated.value(tab - Common, nullptr); }
    // The view of a tab's page if that shows the camera; of the first tab that of `tree`.
    ORXFeatureTreeView* view(int tab, qint64 key, const ORXFeatureTree* tree) const;

    // Asks the workers of the pages to stop; returns at once.
    void requestStop();
    // As requestStop(), and waits.
    void stopHostCalls();
    void setCuratedEnabled(bool enabled);
    void translateCurated();
    void retranslateTabs();
    // Elided to 80 pixels.
    static QString cutTabText(const QString& text);

signals:
    // What the user has before him on a curated page; see ORXFeatureTreeView.
    void SigRowsInSight(const QStringList& names);

private:
    PageTabBar* m_pTabs;                   // Owned by the window.
    ORXImgProcessingFeature* m_pImagePage; // Owned by the window.
    QList<IORXFeatureWidget*> m_curated;   // Owned by the window.
    QStackedWidget* m_pTreeStack;          // Owned by the window.
    QStackedWidget* m_pStack;              // Owned by the window.
};
