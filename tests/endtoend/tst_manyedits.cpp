// SPDX-License-Identifier: Apache-2.0
#include "changes/ChangesPanel.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"
#include "tree/ValueWatch.h"

#include <malloc.h>

using namespace DescriptionBuilder;

namespace {

constexpr int kEdits = 10000;
constexpr int kWarmUp = 2000; // edits until everything that is kept once is kept
constexpr int kEdited = 4;
constexpr int kFollowers = 5; // of each of them
constexpr int kFarthest = kEdited + kFollowers - 1;
constexpr int kRound = 500; // edits between two looks at everything
// Less than eight bytes an edit.
constexpr qint64 kFlatBytes = 60000;

QString nameOf(int index)
{
    return "Feature%1"_s.arg(index);
}

// A write of one of the first features changes itself and the five after it.
QByteArray description()
{
    QStringList names;
    QString elements;
    for (int i = 0; i <= kFarthest; ++i) {
        names.append(nameOf(i));
        QString behind;
        for (int writer = qMax(0, i - kFollowers); writer < qMin(i, kEdited); ++writer)
            behind += child("pInvalidator"_s, "Reg"_s + nameOf(writer));
        elements += node("Integer"_s, nameOf(i), child("pValue"_s, "Reg"_s + nameOf(i))) +
                    node("MaskedIntReg"_s, "Reg"_s + nameOf(i), behind);
    }
    return wrap(category("Root"_s, words("Group")) + category("Group"_s, names) + elements);
}

qint64 usedBytes()
{
    return static_cast<qint64>(mallinfo2().uordblks);
}

} // namespace

// A script of the host's that edits without pause, on a camera that takes 1 ms a call.
class TestManyEdits : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestManyEdits()
        : OpenedWindowTest(description())
    {
    }

private:
    bool agrees(const OpenedWindow& window) const
    {
        for (int i = 0; i <= kFarthest; ++i) {
            const qint64 number = m_host->feature(nameOf(i)).integer;
            if (window.item(nameOf(i).toLatin1())->value()->displayValue() !=
                QString::number(number))
                return false;
        }
        return true;
    }

private slots:
    void nothingIsLostAndMemoryStaysFlat()
    {
        m_host->afterSet = [this](const QString& name) {
            const int edited = name.mid(7).toInt();
            const qint64 number = m_host->feature(name).integer;
            for (int i = 1; i <= kFollowers; ++i)
                m_host->set(nameOf(edited + i), FakeHost::integerFeature(number + i));
        };
        const OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        // The trend keeps a sample a second, for ten minutes.
        window.tree()->valueWatch()->setClock([] { return 0; });
        // The list of changes is as long as it gets.
        QVector<ValueChange> flood(ChangeJournal::kMaxLines);
        for (ValueChange& change : flood) {
            change.name = nameOf(0);
            change.before = change.now = 0;
        }
        window.tree()->findChild<ChangesPanel*>()->journal()->append(flood);
        m_host->setLatencyMs(1);
        QStringList entered;
        qint64 before = 0;
        for (int i = 0; i < kEdits; ++i) {
            const QString name = nameOf(i % kEdited);
            QVERIFY(window.tree()->setFeatureValue("Integer"_s, name, i));
            entered.append("set %1 %2"_s.arg(name).arg(i));
            QCoreApplication::processEvents();
            if (i % kRound < kRound - 1)
                continue;
            // What each of them has changed is shown.
            QTRY_VERIFY_WITH_TIMEOUT(agrees(window) && !window.tree()->isReading(),
                                     kWindowPatienceMs);
            QCOMPARE(m_host->writes(), entered);
            m_host->clearCalls();
            entered.clear();
            // What is kept of the log grows, too.
            QCOMPARE(MessageGuard::takeFaults(), QStringList());
            if (i == kWarmUp - 1)
                before = usedBytes();
        }
        const qint64 grown = usedBytes() - before;
        qInfo("%lld bytes more after %d edits", static_cast<long long>(grown), kEdits - kWarmUp);
        QVERIFY2(grown < kFlatBytes, qPrintable(QString::number(grown)));
    }
};

OBFT_TEST_MAIN(TestManyEdits)
#include "tst_manyedits.moc"
