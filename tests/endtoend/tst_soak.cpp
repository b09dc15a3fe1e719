// SPDX-License-Identifier: Apache-2.0
// One opening after the other, each used a little: nothing is left behind by any of them.
// OBFT_SOAK_OPENINGS chooses how many.
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>

#include <malloc.h>

namespace {

constexpr int kOpenings = 30;
constexpr int kOpeningsOfARow = 10;
constexpr int kFeatures = 120;

struct Held
{
    int threads;
    int files;
    int widgets;
    std::size_t bytes; // of the heap, in use
};

Held held()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QDir::Filters all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System;
    const std::size_t bytes = mallinfo2().uordblks; // before the folders are listed
    return {int(QDir("/proc/self/task"_s).entryList(all).size()),
            int(QDir("/proc/self/fd"_s).entryList(all).size()),
            int(QApplication::allWidgets().size()), bytes};
}

} // namespace

class TestSoak : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestSoak()
        : OpenedWindowTest(
              DescriptionBuilder::generate(DescriptionBuilder::Size::ofFeatures(kFeatures)))
    {
    }

private:
    void openAndUse(int round)
    {
        const OpenedWindow window(*m_host, m_xml, round % 2);
        QVERIFY(window.waitForFirstRead());
        window.column()->findChild<QLineEdit*>("FeatureSearch"_s)->setText("1"_s);
        QApplication::processEvents();
        window.widget()->SetLanguage((round + 1) % 2);
        OBDeviceControl::SetUserLevel(round % 3);
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

    Held m_before = {};

private slots:
    // In rows, since a test function keeps the log lines of all that it does.
    void nothingIsLeftBehind_data()
    {
        const int wanted = qEnvironmentVariableIntValue("OBFT_SOAK_OPENINGS");
        const int rows = qMax(2, (wanted > 0 ? wanted : kOpenings) / kOpeningsOfARow);
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
        QCOMPARE(now.threads, m_before.threads);
        QCOMPARE(now.files, m_before.files);
        QCOMPARE(now.widgets, m_before.widgets);
        QVERIFY(now.bytes <= m_before.bytes + m_before.bytes / 100);
    }
};

OBFT_TEST_MAIN(TestSoak)
#include "tst_soak.moc"
