// SPDX-License-Identifier: Apache-2.0
// Rows that several workers lock at the same time.
#include "model/CTreeItemValue.h"
#include "tree/FeatureTreeTest.h"
#include "tree/SelectorRowsLock.h"

class TestSelectorRowsLock : public FeatureTreeTest
{
    Q_OBJECT

private:
    // Those of the names that cannot be edited.
    QStringList locked(const QStringList& names)
    {
        QStringList result;
        for (const QString& name : names) {
            if (!item(name.toLatin1())->value()->enabled())
                result.append(name);
        }
        return result;
    }

private slots:
    void rowsAreFreeWhenTheLastEnds_data()
    {
        const Rows<bool> row("firstEndsFirst");
        row("in the order of their beginning", true);
        row("the other way round", false);
    }

    void rowsAreFreeWhenTheLastEnds()
    {
        QFETCH(bool, firstEndsFirst);
        const QStringList all = words("Width Height Gain");
        readOnce();
        SelectorRowsLock first;
        SelectorRowsLock second;
        first.lock(m_tree.get(), words("Width Height NoSuchFeature"));
        first.lock(m_tree.get(), words("Width Height NoSuchFeature")); // still the one lock
        second.lock(m_tree.get(), words("Height Gain"));
        QCOMPARE(locked(all), all);
        (firstEndsFirst ? first : second).unlock();
        (firstEndsFirst ? first : second).unlock(); // it has none any more
        QCOMPARE(locked(all), firstEndsFirst ? words("Height Gain") : words("Width Height"));
        (firstEndsFirst ? second : first).unlock();
        QCOMPARE(locked(all), QStringList());
    }

    // One that turns to other rows leaves alone what others hold.
    void turnsToOtherRows()
    {
        const QStringList all = words("Width Height Gain");
        readOnce();
        SelectorRowsLock first;
        {
            SelectorRowsLock second;
            first.lock(m_tree.get(), words("Width Height"));
            second.lock(m_tree.get(), words("Width"));
            first.lock(m_tree.get(), words("Height Gain"));
            QCOMPARE(locked(all), all);
        }
        QCOMPARE(locked(all), words("Height Gain"));
        first.lock(nullptr, words("Width"));
        QCOMPARE(locked(all), QStringList());
        QVERIFY(!first.isLocked());
    }

    void outliveTheTree()
    {
        SelectorRowsLock first;
        SelectorRowsLock second;
        first.lock(m_tree.get(), words("Width"));
        second.lock(m_tree.get(), words("Width"));
        m_tree.reset();
        first.unlock();
        m_tree = makeTree(1);
        readOnce();
        first.lock(m_tree.get(), words("Width"));
        second.unlock(); // of the tree that is gone
        QCOMPARE(locked(words("Width")), words("Width"));
        first.unlock();
        QCOMPARE(locked(words("Width")), QStringList());
    }
};

OBFT_TEST_MAIN(TestSelectorRowsLock)
#include "tst_selectorrowslock.moc"
