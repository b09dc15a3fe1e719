// SPDX-License-Identifier: Apache-2.0
// One opening after the other, each used a little, one that stays open, and one that is edited
// without pause: nothing is left behind. OBFT_SOAK_OPENINGS chooses how many, OBFT_SOAK_MINUTES how
// long.
#include "changes/ChangesPanel.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"
#include "tree/ValueWatch.h"

#include <QDir>
#include <QLineEdit>

#include <malloc.h>

using namespace DescriptionBuilder;

namespace {

constexpr int kOpenings = 30;
constexpr int kOpeningsOfARow = 10;
constexpr int kFeatures = 120;
constexpr int kMinutes = 3;

constexpr int kEdits = 10000;
constexpr int kWarmUp = 2000; // edits until everything that is kept once is kept
constexpr int kEdited = 4;
constexpr int kFollowers = 5; // of each of them
constexpr int kFarthest = kEdited + kFollowers - 1;
constexpr int kRound = 500; // edits between two looks at everything
// Less than eight bytes an edit.
constexpr std::size_t kFlatBytes = 60000;

struct Held
{
    int threads;
    int files;
    int widgets;
    std::size_t bytes; // of the heap, in use
};

int entriesOf(const QString& folder)
{
    const QDir::Filters all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System;
    return int(QDir(folder).entryList(all).size());
}

// The system counts a thread for a moment longer than one waits for its end.
int threads()
{
    return entriesOf("/proc/self/task"_s);
}

Held held()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const std::size_t bytes = mallinfo2().uordblks; // before the folders are listed
    return {threads(), entriesOf("/proc/self/fd"_s), int(QApplication::allWidgets().size()), bytes};
}

int wanted(const char* variable, int usual)
{
    const int number = qEnvironmentVariableIntValue(variable);
    return number > 0 ? number : usual;
}

QByteArray description()
{
    return generate(Size::ofFeatures(kFeatures));
}

QString nameOf(int index)
{
    return "Feature%1"_s.arg(index);
}

// A write of one of the first features changes itself and the five after it.
QByteArray editedDescription()
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

// The trend keeps a sample a second, for ten minutes, and the list of changes is as long as it
// gets.
void fillHistory(ORXFeatureTree* tree)
{
    tree->valueWatch()->setClock([] { return 0; });
    tree->findChild<ChangesPanel*>()->journal()->append(
        QVector<ValueChange>(ChangeJournal::kMaxLines));
}

} // namespace

class TestSoak : public DescribedWindowTest<description>
{
    Q_OBJECT

    void openAndUse(int round)
    {
        const OpenedWindow window(*m_host, m_xml, round % 2);
        QVERIFY(window.waitForFirstRead());
        window.column()->findChild<QLineEdit*>("FeatureSearch"_s)->setText("1"_s);
        QApplication::processEvents();
        window.widget()->SetLanguage((round + 1) % 2);
        OBDeviceControl::SetUserLevel(round % 2);
        window.widget()->OnUserLeverChanged();
        window.column()->ClearSearch();
        OB_FT_UpdateFeatures();
        QApplication::processEvents();
        OB_FT_Close();
        OB_FT_Start(nullptr, 0);
        QApplication::processEvents();
        OB_FT_Close();
        m_host->clearCalls(); // its log would grow
    }

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

    Held m_before = {};

private slots:
    // In rows, since a test function keeps the log lines of all that it does.
    void nothingIsLeftBehind_data()
    {
        const int rows = qMax(2, wanted("OBFT_SOAK_OPENINGS", kOpenings) / kOpeningsOfARow);
        QTest::addColumn<bool>("isFirst");
        for (int row = 0; row < rows; ++row)
            QTest::addRow("%d", row * kOpeningsOfARow) << (row == 0);
    }

    void nothingIsLeftBehind()
    {
        QFETCH(bool, isFirst);
        for (int round = 0; round < kOpeningsOfARow; ++round)
            openAndUse(round);
        const Held now = held();
        // Fonts, styles and pictures are made once.
        if (isFirst)
            m_before = now;
        qInfo("%d threads, %d files, %d widgets, %zu bytes", now.threads, now.files, now.widgets,
              now.bytes);
        OBFT_TRY_VERIFY(threads() <= m_before.threads);
        QCOMPARE(now.files, m_before.files);
        QCOMPARE(now.widgets, m_before.widgets);
        QVERIFY(now.bytes <= m_before.bytes + m_before.bytes / 100);
    }

    // What is polled each second is polled at every tick here: a minute passes in three seconds.
    void nothingGrowsWithTime()
    {
        QByteArray xml = m_xml;
        xml.replace("<PollingTime>1000<", "<PollingTime>50<");
        const ReadWindow window(*m_host, xml);
        ORXFeatureTree* tree = window.tree();
        fillHistory(tree);
        QStringList numbers;
        for (const QString& name : featureNames(Size::ofFeatures(kFeatures))) {
            if (m_host->feature(name).type == OB_FT_TYPE_INTEGER)
                numbers.append(name);
        }
        const QString polled = numbers.first();
        const QString edited = numbers.last();
        const CTreeItemValue* shown = tree->propertyItemByName(polled)->value();
        const int minutes = wanted("OBFT_SOAK_MINUTES", kMinutes);
        for (int second = 0; second < minutes * 60; ++second) {
            m_host->set(polled, FakeHost::integerFeature(second));
            if (second % 10 == 3)
                QVERIFY(tree->setFeatureValue("Integer"_s, edited, second));
            if (second % 30 == 5)
                window.widget()->SetLanguage(second / 30 % 2);
            if (second % 60 == 15) {
                OBDeviceControl::SetUserLevel(second / 60 % 2);
                window.widget()->OnUserLeverChanged();
            }
            tree->OnTimerFeatureNoCache(); // else every two seconds
            OBFT_TRY_COMPARE(shown->displayValue(), QString::number(second));
            if (second % 60 < 59)
                continue;
            m_host->clearCalls();
            QCOMPARE(MessageGuard::takeFaults(), QStringList());
            const Held now = held();
            qInfo("minute %d: %d threads, %d files, %d widgets, %zu bytes", second / 60,
                  now.threads, now.files, now.widgets, now.bytes);
            if (second < 60)
                m_before = now;
            OBFT_TRY_VERIFY(threads() <= m_before.threads);
            QCOMPARE(now.files, m_before.files);
            QVERIFY(now.bytes <= m_before.bytes + m_before.bytes / 100);
        }
    }

    // A script of the host's that edits without pause, on a camera that takes 1 ms a call.
    void noEditIsLostAndMemoryStaysFlat()
    {
        const QByteArray xml = editedDescription();
        m_host->serve(xml);
        m_host->afterSet = [this](const QString& name) {
            const int edited = name.mid(7).toInt();
            const qint64 number = m_host->feature(name).integer;
            for (int i = 1; i <= kFollowers; ++i)
                m_host->set(nameOf(edited + i), FakeHost::integerFeature(number + i));
        };
        const ReadWindow window(*m_host, xml);
        fillHistory(window.tree());
        m_host->setLatencyMs(1);
        QStringList entered;
        std::size_t before = 0;
        for (int i = 0; i < kEdits; ++i) {
            const QString name = nameOf(i % kEdited);
            QVERIFY(window.tree()->setFeatureValue("Integer"_s, name, i));
            entered.append("set %1 %2"_s.arg(name).arg(i));
            QCoreApplication::processEvents();
            if (i % kRound < kRound - 1)
                continue;
            // What each of them has changed is shown.
            OBFT_TRY_VERIFY(agrees(window) && !window.tree()->isReading());
            QCOMPARE(m_host->writes(), entered);
            m_host->clearCalls();
            entered.clear();
            // What is kept of the log grows, too.
            QCOMPARE(MessageGuard::takeFaults(), QStringList());
            if (i == kWarmUp - 1)
                before = held().bytes;
        }
        const std::size_t now = held().bytes;
        QVERIFY2(now < before + kFlatBytes, qPrintable("%1 > %2"_s.arg(now).arg(before)));
    }
};

OBFT_TEST_MAIN(TestSoak)
#include "tst_soak.moc"
