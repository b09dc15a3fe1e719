// SPDX-License-Identifier: Apache-2.0
// Who is told to have changed a value.
#include "support/Patience.h"
#include "tree/FeatureTreeTest.h"

#include <QDeadlineTimer>

class TestValueWatch : public FeatureTreeTest
{
    Q_OBJECT

private:
    // Waits for the reading threads alone: what they tell this thread stays in its queue.
    bool readingEnds() const
    {
        const QDeadlineTimer patience(kWindowPatienceMs);
        while (m_tree->isReading() && !patience.hasExpired())
            QThread::yieldCurrentThread();
        return !m_tree->isReading();
    }

private slots:
    // The end of an earlier pass is heard when the one that reads the edit has ended, too.
    void editIsTheCauseAlsoBehindAnEarlierPass()
    {
        readOnce();
        QVector<ValueChange> changes;
        connect(m_tree->valueWatch(), &ValueWatch::SigChanged, this,
                [&](const QVector<ValueChange>& some) { changes += some; });
        m_tree->rereadInvalidated("Gain"_s);
        QVERIFY(readingEnds());
        QVERIFY(m_tree->OnIntegerNodeValueChanged("Width"_s, 640));
        m_tree->OnTimeInvalidaterFeaturesUpdate();
        QVERIFY(readingEnds());
        QTRY_COMPARE(changes.size(), 1);
        QCOMPARE(changes.first().name, "Width"_s);
        QCOMPARE(changes.first().now.toLongLong(), 640);
        QVERIFY(changes.first().cause == ValueChange::Cause::Edited);
        // That is over: now it is the camera.
        m_host.set("Width"_s, FakeHost::integerFeature(320));
        m_tree->rereadInvalidated("Width"_s);
        QTRY_COMPARE(changes.size(), 2);
        QVERIFY(changes.last().cause == ValueChange::Cause::Camera);
    }
};

OBFT_TEST_MAIN(TestValueWatch)
#include "tst_valuewatch.moc"
