// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessibleWidget>

class QComboBox;

// What a combo box tells assistive technology: its name beside its current entry. Qt's own tells
// the entry twice on Linux. Owned by QAccessible; GUI thread.
class ZELAccessibleComboBox : public QAccessibleWidget
{
public:
    // Has QAccessible make these for every ZELCustomComboBox from now on, until the library goes.
    static void install();

    explicit ZELAccessibleComboBox(QComboBox* box);

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    // The list of the entries.
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int, int) const override
    {
        return nullptr;
    } // a window of its own
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    QComboBox* box() const;
};
