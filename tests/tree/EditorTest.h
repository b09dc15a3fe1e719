// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/TestMain.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/TestPage.h"

// Base of tests of editors in a page with one group, one feature a tag.
class EditorTest : public GuardedTest
{
protected:
    using Item = ORXPropertyTreeItem;

    void prepare() override;
    void finish() override;

    // Shows the page with a feature for each tag, of a plain value.
    void open(const QStringList& tags);
    Item* item(const char* name) { return m_page->item(QString::fromLatin1(name)); }
    QWidget* editor(const char* name) { return m_page->anyEditor(QString::fromLatin1(name)); }
    void refill(Item* changed) { changed->notifyViewUpdate(1, -1, false); }

    TestPage* m_page = nullptr; // Owned.

    template <typename Value>
    static Value* valueOf(Item* item)
    {
        return dynamic_cast<Value*>(item->value());
    }
    static void setInteger(Item* item, qint64 value, qint64 minimum, qint64 maximum, qint64 step,
                           const char* representation = "");
    // Entries named in English and Chinese, numbered by `numbers`.
    static void setEntries(Item* item, const QStringList& english, const QStringList& chinese,
                           const QVector<qint64>& numbers, qint64 current);
};
