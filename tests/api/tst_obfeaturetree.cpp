// SPDX-License-Identifier: Apache-2.0
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"
#include "support/Periods.h"

#include <QStyle>
#include <QThread>

#include <atomic>
#include <thread>

using namespace DescriptionBuilder;

class TestOBFeatureTree : public DescribedWindowTest<generateSmall>
{
    Q_OBJECT

private slots:
    void windowAsTheHostAskedForIt()
    {
        QWidget parent;
        OB_FT_Init(m_xml.constData(), nullptr, &parent);
        QCOMPARE(ORXMainFeatureWidget::instance(nullptr)->parentWidget(), &parent);
        OpenedWindow window(*m_host, m_xml);
        ORXMainFeatureWidget* widget = window.widget();
        QVERIFY(!widget->parentWidget());
        QVERIFY(widget->isVisible());
        QVERIFY(widget->windowFlags() & Qt::WindowStaysOnTopHint);
        QCOMPARE(m_host->count("action 1"_s), 0);
    }

    void secondRoundMakesANewWindow()
    {
        const QByteArray first = wrap(category("Root"_s, {"A"_s}));
        const QByteArray second = wrap(category("Root"_s, {"B"_s}));
        {
            OpenedWindow window(*m_host, first);
            QVERIFY(window.tree()->propertyItemByName("A"_s));
        }
        const QStyle* style = QApplication::style();
        OpenedWindow window(*m_host, second);
        QVERIFY(window.tree()->propertyItemByName("B"_s));
        QVERIFY(!window.tree()->propertyItemByName("A"_s));
        QCOMPARE(QApplication::style(), style);
    }

    void initTwiceKeepsTheWindow()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        ORXMainFeatureWidget* widget = window.widget();
        OBDeviceControl::GetFavoritesFeatureMap()->append({"Feature00001"_s, "Feature 1"_s});
        QCOMPARE(OB_FT_Init("<Other/>", nullptr, nullptr), 0);
        QVERIFY(MessageGuard::contains("called again without OB_FT_Release"_s));
        QCOMPARE(window.widget(), widget);
        QCOMPARE(OBDeviceControl::GetFavoritesFeatureMap()->size(), 1);
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        // The callbacks may be given again while the window reads.
        OB_FT_UpdateFeatures();
        m_host->installInWindow();
        QVERIFY(window.waitForFirstRead());
        QVERIFY(window.tree()->propertyItemByName("Feature00001"_s));
    }

    void closingTellsTheHostAndStopsReading()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        const QString held = "Feature00005"_s;
        m_host->pace().closeGate(held);
        OB_FT_UpdateFeatures();
        QTRY_COMPARE(m_host->pace().waitingAt(held), 1);
        // It waits for the call under way.
        std::atomic<bool> closed{false};
        std::thread opens([&] {
            while (!closed && !MessageGuard::contains("waiting for a call of the host to return"_s))
                QThread::yieldCurrentThread();
            m_host->pace().openGate(held);
        });
        QCOMPARE(OB_FT_Close(), 0);
        const int waiting = m_host->pace().waitingAt(held);
        closed = true;
        opens.join();
        QCOMPARE(waiting, 0);
        QCOMPARE(m_host->count("action 1"_s), 1);
        const qint64 calls = m_host->callCount();
        QVERIFY(twentyPeriodsPass());
        QCOMPARE(m_host->callCount(), calls);
        window.widget()->hide();
        QCOMPARE(m_host->count("action 1"_s), 2);
        OB_FT_Start(nullptr, 0);
        QTRY_VERIFY(m_host->callCount() > calls);
        QVERIFY(window.waitForFirstRead());
        OB_FT_Release();
        QCOMPARE(m_host->count("action 1"_s), 3);
    }

    void parentMayTakeTheWindowAlong()
    {
        auto parent = std::make_unique<QWidget>();
        OB_FT_Init(m_xml.constData(), nullptr, parent.get());
        parent.reset();
        // The window is made anew, with nothing in it until the callbacks are given.
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
    }

    void badDescriptions_data()
    {
        const Rows<QByteArray, QString, int> row("xml", "logged", "items");
        row("does not parse", "<a><b></a>", "Create XML pDeviceXml DomDocument Failed", 0);
        row("no Root", wrap(category("Other"_s, {"A"_s})), "", 0);
        row("names missing nodes", wrap(category("Root"_s, {"A"_s, "B"_s})), "", 2);
        row("category in circles", wrap(category("Root"_s, {"Root"_s, "A"_s})),
            "category Root contains itself", 2);
        row("feature in circles",
            wrap(category("Root"_s, {"A"_s}) + node("Integer"_s, "A"_s, child("pValue"_s, "A"_s))),
            "node A refers to itself in a circle", 1);
        row("21,000 features", generate(Size::ofFeatures(21000)), "", 21000 + 2400);
    }

    void badDescriptions()
    {
        const auto [xml, logged, items] = fetchRow<QByteArray, QString, int>();
        if (!logged.isEmpty())
            MessageGuard::ignoreMessage(QtCriticalMsg, QRegularExpression(logged));
        OpenedWindow window(*m_host, xml);
        QCOMPARE(window.tree()->AllTreeItemsMap().size(), items);
        QVERIFY(window.waitForFirstRead());
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
    }

    // Wrong answers are in the matrix of faults; here there is nothing to ask, and nothing comes.
    void badCallbacks()
    {
        for (const bool exist : {false, true}) {
            OB_FT_Init(m_xml.constData(), nullptr, nullptr);
            const auto get = [](int, char*, void*, void*) { return 0; };
            const auto getMode = [](char*, int* mode, void*) {
                *mode = OB_FT_ACCESS_READ_WRITE;
                return 0;
            };
            QCOMPARE(OB_FT_SetCallBackFunc(exist ? +get : nullptr, nullptr,
                                           exist ? +getMode : nullptr, nullptr, nullptr, nullptr),
                     0);
            QCOMPARE(OB_FT_Start(nullptr, 0), 0);
            ORXMainFeatureWidget* window = ORXMainFeatureWidget::instance(nullptr);
            QTRY_VERIFY(window->featureTree(1, false)->HadUpdatedOnce());
            QCOMPARE(OB_FT_UpdateFeatures(), 0);
            QVERIFY(twentyPeriodsPass());
            OB_FT_Release();
        }
    }

    void languageIsTheHosts()
    {
        for (const int language : {0, 1, 2}) {
            OpenedWindow window(*m_host, m_xml, language);
            QCOMPARE(ORXInterface::language(), language == 1 ? "CH"_s : "ENG"_s);
        }
    }
};

OBFT_TEST_MAIN(TestOBFeatureTree)
#include "tst_obfeaturetree.moc"
