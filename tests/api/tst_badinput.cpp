// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <cstring>
#include <limits>

using namespace DescriptionBuilder;

namespace {

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

class TestBadInput : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestBadInput()
        : OpenedWindowTest(everyKind())
    {
    }

private slots:
    void descriptions_data()
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
        row("20 MB", generate(Size::ofFeatures(21000)), "", 21000 + 2400);
    }

    void descriptions()
    {
        QFETCH(QByteArray, xml);
        QFETCH(QString, logged);
        QFETCH(int, items);
        if (!logged.isEmpty())
            MessageGuard::ignoreMessage(QtCriticalMsg, QRegularExpression(logged));
        if (items > 10000)
            QVERIFY(xml.size() > 20 * 1000 * 1000);
        OpenedWindow window(*m_host, xml);
        QCOMPARE(window.tree()->AllTreeItemsMap().size(), items);
        QVERIFY(window.waitForFirstRead());
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
    }

    void callbacks_data()
    {
        const Rows<int> row("fault");
        row("every call fails", 0);
        row("nonsense modes", 1);
        row("texts without end, counts beyond the array", 2);
        row("ranges upside down, not a number, no grid", 3);
    }

    void callbacks()
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
        };
        static const OB_FT_GetModeFunc kModes[] = {
            [](char*, int*, void*) { return 18; },
            [](char*, int* mode, void*) {
                *mode = -123456;
                return 0;
            },
            anyMode,
            anyMode,
        };
        OB_FT_Init(m_xml.constData(), nullptr, nullptr);
        OB_FT_SetCallBackFunc(
            kGets[fault], [](int, char*, char*, void*) { return -2; }, kModes[fault], nullptr,
            nullptr, nullptr);
        OB_FT_SetWidgetSize(900, 700);
        OB_FT_Start(nullptr, 0);
        ORXFeatureTree* tree = ORXMainFeatureWidget::instance(nullptr)->featureTree(1, false);
        QTRY_VERIFY(tree->HadUpdatedOnce());
        // The window paints whatever came, and lives through another pass.
        QVERIFY(!ORXMainFeatureWidget::instance(nullptr)->grab().isNull());
        OB_FT_UpdateFeatures();
        QTest::qWait(60);
        QCOMPARE(tree->AllTreeItemsMap().size(), 8);
    }
};

OBFT_TEST_MAIN(TestBadInput)
#include "tst_badinput.moc"
