// SPDX-License-Identifier: Apache-2.0
#include "OBFeatureTree/OBFeatureTree.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QApplication>
#include <QStyle>

#include <cstring>
#include <limits>

using namespace DescriptionBuilder;

namespace {

QByteArray smallDescription()
{
    Size size = Size::ofFeatures(60);
    size.categories = 6;
    return generate(size);
}

// One feature of every kind, below one category.
QByteArray everyKind()
{
    return wrap(
        "<Category Name=\"Root\"><pFeature>All</pFeature></Category><Category Name=\"All\">"
        "<pFeature>I</pFeature><pFeature>F</pFeature><pFeature>B</pFeature><pFeature>S</pFeature>"
        "<pFeature>E</pFeature><pFeature>C</pFeature><pFeature>R</pFeature></Category>"
        "<Integer Name=\"I\"/><Float Name=\"F\"/><Boolean Name=\"B\"/><String Name=\"S\"/>"
        "<Enumeration Name=\"E\"><EnumEntry Name=\"One\"><Value>1</Value></EnumEntry>"
        "</Enumeration><Command Name=\"C\"/><IntReg Name=\"R\"/>"_s);
}

int anyMode(char*, int* mode, void*)
{
    *mode = OB_FT_ACCESS_READ_WRITE;
    return 0;
}

} // namespace

class TestOBFeatureTree : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestOBFeatureTree()
        : OpenedWindowTest(smallDescription())
    {
    }

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
        QCOMPARE(widget->size(), QSize(900, 700));
        QCOMPARE(widget->pos(), QPoint(10, 10));
        QCOMPARE(widget->cTitleText(), "Test camera"_s);
        QCOMPARE(m_host->count("action 1"_s), 0);
    }

    void firstReadFillsTheTree()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        int filled = 0;
        for (const ORXPropertyTreeItem* item : window.tree()->AllTreeItemsMap())
            filled += item->value()->displayValue().isEmpty() ? 0 : 1;
        QCOMPARE(filled, 60);
        // A new user has no favourites: the first group with features is shown instead.
        QTRY_COMPARE(window.groups()->currentIndex().data().toString(), "Category0"_s);
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
        QCOMPARE(OB_FT_Close(), 0);
        QCOMPARE(m_host->count("action 1"_s), 1);
        const qint64 calls = m_host->callCount();
        QTest::qWait(150);
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

    void releaseWaitsForAHangingCall()
    {
        std::atomic<bool> inside{false};
        std::atomic<bool> returned{false};
        m_host->beforeGet = [&](const QString& name) {
            if (name != QLatin1String("Feature00005") || inside.exchange(true))
                return;
            QThread::msleep(1500);
            returned = true;
        };
        {
            OpenedWindow window(*m_host, m_xml);
            QTRY_VERIFY(inside);
        }
        QVERIFY(returned);
        QVERIFY(MessageGuard::contains("waiting for a call of the host to return"_s));
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
        QFETCH(QByteArray, xml);
        QFETCH(QString, logged);
        QFETCH(int, items);
        if (!logged.isEmpty())
            MessageGuard::ignoreMessage(QtCriticalMsg, QRegularExpression(logged));
        OpenedWindow window(*m_host, xml);
        QCOMPARE(window.tree()->AllTreeItemsMap().size(), items);
        QVERIFY(window.waitForFirstRead());
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
    }

    void badCallbacks_data()
    {
        const Rows<int> row("fault");
        row("every call fails", 0);
        row("nonsense modes", 1);
        row("texts without end, counts beyond the array", 2);
        row("ranges upside down, not a number, no grid", 3);
        row("none", 4);
    }

    void badCallbacks()
    {
        QFETCH(int, fault);
        static const OB_FT_GetFeatureFunc kGets[] = {
            [](int, char*, void*, void*) { return 17; },
            [](int, char*, void*, void*) { return 0; },
            [](int type, char*, void* value, void*) {
                if (type == OB_FT_TYPE_STRING)
                    std::memset(value, 'x', sizeof(_ZDCC_STRINGVALUE_T));
                if (type == OB_FT_TYPE_ENUMERATION)
                    std::memset(value, 0xFF, sizeof(_ZDCC_ENUMVALUE_T));
                if (type == OB_FT_TYPE_BOOLEAN)
                    std::memset(value, 0xA5, 1);
                return 0;
            },
            [](int type, char*, void* value, void*) {
                if (type == OB_FT_TYPE_INTEGER)
                    *static_cast<_ZDCC_INTVALUE_EX_T*>(value) = {
                        5,
                        std::numeric_limits<int64_t>::min(),
                        std::numeric_limits<int64_t>::max(),
                        -7,
                        {}};
                if (type == OB_FT_TYPE_FLOAT)
                    *static_cast<_ZDCC_FLOATVALUE_T*>(value) = {
                        std::numeric_limits<float>::quiet_NaN(),
                        -std::numeric_limits<float>::infinity(),
                        std::numeric_limits<float>::infinity(),
                        {}};
                return 0;
            },
            nullptr,
        };
        static const OB_FT_GetModeFunc kModes[] = {
            [](char*, int*, void*) { return 18; },
            [](char*, int* mode, void*) {
                *mode = -123456;
                return 0;
            },
            anyMode,
            anyMode,
            nullptr,
        };
        OB_FT_Init(everyKind().constData(), nullptr, nullptr);
        QCOMPARE(
            OB_FT_SetCallBackFunc(kGets[fault], nullptr, kModes[fault], nullptr, nullptr, nullptr),
            0);
        QCOMPARE(OB_FT_Start(nullptr, 0), 0);
        ORXFeatureTree* tree = ORXMainFeatureWidget::instance(nullptr)->featureTree(1, false);
        QTRY_VERIFY(tree->HadUpdatedOnce());
        // The window paints whatever came, and lives through another pass.
        QVERIFY(!ORXMainFeatureWidget::instance(nullptr)->grab().isNull());
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
        QTest::qWait(60);
        QCOMPARE(tree->AllTreeItemsMap().size(), 8);
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
