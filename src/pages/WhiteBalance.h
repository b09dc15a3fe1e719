// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QTimer>

class CuratedPage;
class ORXPropertyTreeItem;

// The simplified white balance of the common page: either one command, or ratio and colour, as it
// fits the camera's state. Owned by the page; GUI thread.
//
// Ratio and colour are copies of the camera's "BalanceRatio" and "BalanceRatioSelector", which the
// page observes; what the user enters is written to those.
class WhiteBalance : public QObject
{
    Q_OBJECT
public:
    // Names of the page items.
    static constexpr char kSelector[] = "Custom_BalanceRatioSelector";
    static constexpr char kRatio[] = "Custom_BalanceRatio";
    static constexpr char kCommand[] = "Custom_BalanceCommand";

    // The page is not owned.
    explicit WhiteBalance(CuratedPage& page);

    // Whether a change of the feature, of its value or of its visibility, matters here.
    static bool concerns(const QString& name, bool valueChanged);
    // Copies the camera's white balance into a page that is being built.
    void build(ORXPropertyTreeItem* root);
    // Copies what the feature `name` changed into the page of the shown camera.
    void take(const QString& name);
    // Has it decided soon which items show, in one go for all changes, by the values that passes
    // have read; at the end of it while the first full read is under way.
    void scheduleVisible();
    // Writes the camera feature of that name, "BalanceRatioSelector" as an enumeration, any other
    // as an integer; features that depend on it are read again. False when the camera lacks it or
    // refuses.
    bool write(const QString& name, const QVariant& value);

private:
    struct Parts;
    Parts parts(ORXPropertyTreeItem* root);
    void updateVisible();
    bool balanceOnce();

    CuratedPage& m_page;   // Not owned.
    QTimer m_visibleTimer; // one decision for the changes of one round of the event loop
};
