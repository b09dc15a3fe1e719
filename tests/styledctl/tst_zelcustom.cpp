// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomQssHelper.h"
#include "styledctl/ZELCustomWidget.h"
#include "support/TestMain.h"

#include <QImage>
#include <QRawFont>
#include <QResource>
#include <QTemporaryDir>
#include <QWidget>

#include <atomic>
#include <cmath>
#include <thread>

namespace {

// Every key that the feature window asks for.
const QStringList kKeys = words(
    "ZEL_DB_COLOR_CommonColor_Font_Little_Black CommonColor_FeatureTree_Font "
    "CommonColor_PushButton_Bottom_Border CommonColor_DragBox_Border "
    "CommonColor_FeatureWidget_backgroundRole "
    "ZEL_DB_COLOR_CommonColor_FeatureWidget_backgroundRole "
    "ORXPropertyTreeModelColor_Foreground_Default ORXPropertyTreeModelColor_Foreground "
    "QGetFeaturesThreadColor_FeatureTitle QGetFeaturesThreadColor_FeatureDesc "
    "ZEL_DB_COLOR_IORXFeatureWidgetColor_Background "
    "ZEL_DB_COLOR_ORXMainFeatureWidgetColor_TitleBar_Background_Gradient "
    "ZEL_DB_COLOR_ORXFeatureToolBarColor_Background_Gradient QLUTDrawWidgetColor_Background "
    "QLUTDrawWidgetColor_Grid QLUTDrawWidgetColor_Line QLUTDrawWidgetColor_Label_Font1 "
    "QLUTDrawWidgetColor_Label_Font2 ZEL_DB_COLOR_ORXFeatureSaveWidgetColor_Label_Font_Orange "
    "ZEL_DB_COLOR_ORXFeatureSaveWidgetColor_Label_Font_Gray "
    "ZEL_DB_COLOR_ORXFeatureSaveWidgetColor_Label_Font_Black");

const char kTheme[] = ":/ORX/QSS/CustomStyleSheet_ORX.xml";

qreal luminance(const QColor& color)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

qreal contrast(const QColor& a, const QColor& b)
{
    const qreal high = qMax(luminance(a), luminance(b));
    const qreal low = qMin(luminance(a), luminance(b));
    return (high + 0.05) / (low + 0.05);
}

} // namespace

class TestZELCustom : public GuardedTest
{
    Q_OBJECT

private:
    QString themeFile(const QByteArray& content)
    {
        QFile file(m_folder.filePath("theme%1.xml"_s.arg(++m_files)));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName();
    }

    // Adds a theme of these elements.
    bool add(const QByteArray& elements)
    {
        return ZELCustom::addXmlPath(themeFile("<Theme>" + elements + "</Theme>"));
    }

    QTemporaryDir m_folder;
    int m_files = 0;

private slots:
    void unknownColourIsReportedOnce()
    {
        const QString key = "Nowhere_Background"_s;
        const QColor color = ZELCustom::getDataBaseColor(key);
        QCOMPARE(color, ZELCustom::getDataBaseColor("StyledCtlColor_Surface"_s));
        ZELCustom::getDataBaseColor("ZEL_DB_COLOR_Nowhere_Background"_s);
        QCOMPARE(MessageGuard::messages().filter(key).size(), 1);
        QVERIFY(!ZELCustom::hasDataBaseColor(key));
    }

    void worksWithoutPacks()
    {
        MessageGuard::expectMessage("cannot be opened"_s);
        QVERIFY(!ZELCustom::addXmlPath(QString::fromLatin1(kTheme)));
        for (const QString& key : kKeys)
            QVERIFY2(ZELCustom::getDataBaseColor(key).isValid(), qPrintable(key));
        QVERIFY(!ZELCustom::styleSheet(ZELCustom::Sheet_Tree).isEmpty());
    }

    void packsHoldAllPictures()
    {
        for (const char* pack : {"Client", "StyledCtl", "ToolBarBtn"}) {
            QVERIFY2(
                QResource::registerResource(
                    QStringLiteral(OBFT_RESOURCE_DIR "/%1_Default.rcc").arg(QLatin1String(pack))),
                pack);
        }
        QStringList names;
        for (const QString& name :
             words("mode1_WhiteHot mode2_BlackHot mode3_Fusion1 mode4_Rainbow mode5_Fusion2 "
                   "mode6_Ironbow1 mode7_Ironbow2 mode8_Sepia mode9_Color1 mode10_Color2 "
                   "mode11_IceFire mode12_Rain mode13_GreenHot mode14_RedHot"))
            names << ":/ORX/Temperature/"_s + name;
        for (const QString& name :
             words("Save Save_sel Save_dis refresh refresh_sel refresh_dis icon_Cn_normal "
                   "icon_Cn_hover icon_En_normal icon_En_hover"))
            names << ":/ORXToolBarBtn/"_s + name;
        names << ":/ORX/btn/FFC tool"_s
              << ":/ORX/icon/window"_s
              << ":/ORXStyledCtl/message_error"_s;
        for (const QString& name : qAsConst(names)) {
            const QImage once(name + ".png"_s);
            const QImage twice(name + "@2x.png"_s);
            QVERIFY2(!once.isNull(), qPrintable(name));
            QCOMPARE(twice.size(), once.size() * 2);
            if (name.contains("Temperature"_s))
                QCOMPARE(once.size(), QSize(182, 22));
        }
    }

    void everyKeyIsDefined()
    {
        QVERIFY(ZELCustom::addXmlPath(QString::fromLatin1(kTheme)));
        for (const QString& key : kKeys)
            QVERIFY2(ZELCustom::hasDataBaseColor(key), qPrintable(key));
        QVERIFY(!MessageGuard::contains("Theme has no"_s));
        const QBrush gradient = ZELCustom::getDataBaseBrush(
            "ZEL_DB_COLOR_ORXFeatureToolBarColor_Background_Gradient"_s);
        QCOMPARE(gradient.style(), Qt::LinearGradientPattern);
    }

    void textIsReadable_data()
    {
        const Rows<QString, QStringList> row("text", "grounds");
        const char* const plain = "StyledCtlColor_Input StyledCtlColor_Window "
                                  "StyledCtlColor_Surface StyledCtlColor_Raised "
                                  "StyledCtlColor_Popup";
        row.of("StyledCtlColor_Text", words(plain) + words("StyledCtlColor_Hover"));
        row.of("StyledCtlColor_TextMuted", plain);
        row.of("StyledCtlColor_TextDisabled", plain);
        row.of("StyledCtlColor_Placeholder", "StyledCtlColor_Input");
        row.of("StyledCtlColor_Error", "StyledCtlColor_Raised StyledCtlColor_Hover");
        row.of("StyledCtlColor_OnAccent", "StyledCtlColor_Accent StyledCtlColor_AccentHover "
                                          "StyledCtlColor_AccentPressed");
        row.of("StyledCtlColor_SelectionText",
               "StyledCtlColor_Selection StyledCtlColor_TextSelection");
        const char* const rows = "IORXFeatureWidgetColor_Background StyledCtlColor_Selection";
        row.of("ORXPropertyTreeModelColor_Foreground_Default", rows);
        row.of("ORXPropertyTreeModelColor_Foreground", "IORXFeatureWidgetColor_Background");
        row.of("CommonColor_PushButton_Bottom_Border", rows);
        row.of("QGetFeaturesThreadColor_FeatureDesc", "StyledCtlColor_Window");
        row.of("QLUTDrawWidgetColor_Label_Font1", "QLUTDrawWidgetColor_Background");
        row.of("ORXFeatureSaveWidgetColor_Label_Font_Orange", "StyledCtlColor_Surface");
    }

    void textIsReadable()
    {
        const auto [text, grounds] = fetchRow<QString, QStringList>();
        for (const QString& ground : grounds) {
            QVERIFY(ZELCustom::hasDataBaseColor(ground));
            const qreal ratio =
                contrast(ZELCustom::getDataBaseColor(text), ZELCustom::getDataBaseColor(ground));
            QVERIFY2(ratio >= 4.5, qPrintable("%1 on %2"_s.arg(ratio).arg(ground)));
        }
    }

    void laterFileOverrides()
    {
        const QString link = "CommonColor_DragBox_Border"_s;
        QVERIFY(add("<Color key=\"StyledCtlColor_Accent\" value=\"#FFB000\"/>"
                    "<Color key=\"ZEL_DB_COLOR_Extra\" value=\"#80112233\"/>"
                    "<StyleSheet number=\"77\">QFrame { color: @Extra@; }</StyleSheet>"));
        QCOMPARE(ZELCustom::getDataBaseColor("StyledCtlColor_Accent"_s), QColor(255, 176, 0));
        // Keys that refer to an overridden colour follow it.
        QCOMPARE(ZELCustom::getDataBaseColor(link), QColor(255, 176, 0));
        QCOMPARE(ZELCustom::styleSheet(77), "QFrame { color: rgba(17,34,51,128); }"_s);
        QVERIFY(add("<Color key=\"StyledCtlColor_Accent\" value=\"#34BFA9\"/>"));
        QCOMPARE(ZELCustom::getDataBaseColor(link), QColor(0x34, 0xBF, 0xA9));
        QVERIFY(ZELCustom::hasDataBaseColor("Extra"_s));
    }

    void malformedFileChangesNothing_data()
    {
        const Rows<QByteArray> row("content");
        const QByteArray good("<Color key=\"StyledCtlColor_Text\" value=\"#010203\"/>");
        row("not closed", "<Theme>" + good);
        row("other root", "<Style>" + good + "</Style>");
        row("no colour", "<Theme>" + good + "<Color key=\"A\" value=\"blueish\"/></Theme>");
        row("no key", "<Theme>" + good + "<Color value=\"#000000\"/></Theme>");
        row("half a gradient", "<Theme>" + good + "<Gradient key=\"A\" from=\"#000000\"/></Theme>");
        row("no number", "<Theme>" + good + "<StyleSheet>x</StyleSheet></Theme>");
        row("unknown element", "<Theme>" + good + "<Colour/></Theme>");
        row("empty", "");
    }

    void malformedFileChangesNothing()
    {
        QFETCH(QByteArray, content);
        const QColor before = ZELCustom::getDataBaseColor("StyledCtlColor_Text"_s);
        MessageGuard::expectMessage("is not used"_s);
        QVERIFY(!ZELCustom::addXmlPath(themeFile(content)));
        QVERIFY(MessageGuard::contains("is not used"_s));
        QCOMPARE(ZELCustom::getDataBaseColor("StyledCtlColor_Text"_s), before);
    }

    void circularReferenceIsUndefined()
    {
        QVERIFY(add("<Color key=\"Egg_Font\" ref=\"Hen_Font\"/>"
                    "<Color key=\"Hen_Font\" ref=\"Egg_Font\"/>"));
        QCOMPARE(ZELCustom::getDataBaseColor("Egg_Font"_s),
                 ZELCustom::getDataBaseColor("StyledCtlColor_Text"_s));
        QVERIFY(MessageGuard::contains("Egg_Font"_s));
    }

    void sheetsAreComplete()
    {
        QWidget widget;
        for (int number = ZELCustom::Sheet_Base; number <= ZELCustom::Sheet_Tree; ++number) {
            const QString sheet = ZELCustom::styleSheet(number);
            QVERIFY2(!sheet.isEmpty(), qPrintable(QString::number(number)));
            QVERIFY2(!sheet.contains(QLatin1Char('@')), qPrintable(sheet));
            // Parsing warns about faults in a sheet, and the guard turns a warning into a failure.
            widget.setStyleSheet(sheet);
            widget.ensurePolished();
        }
        QVERIFY(!MessageGuard::contains("Theme has no"_s));
        QVERIFY(ZELCustom::styleSheet(4711).isEmpty());
        QCOMPARE(MessageGuard::messages().filter("style sheet 4711"_s).size(), 1);
    }

    void widgetsFollowTheTheme()
    {
        class Panel : public QWidget, public ZELCustomQssHelper
        {
        public:
            Panel()
                : ZELCustomQssHelper(this)
            {
                cSetStyleSheets({ZELCustom::Sheet_ScrollBar}, "* { color: @Own@; }"_s);
            }
            int changes = 0;

        protected:
            void cThemeChanged() override { ++changes; }
        };
        QVERIFY(add("<Color key=\"Own\" value=\"#010203\"/>"));
        Panel panel;
        ZELCustomLabel label;
        label.cSetTextColor("Own"_s);
        // Before the panel is to be seen, and afterwards.
        QVERIFY(add("<Color key=\"Own\" value=\"#0A0B0C\"/>"));
        QVERIFY(panel.styleSheet().isEmpty());
        panel.ensurePolished();
        QVERIFY(panel.styleSheet().contains("rgba(10,11,12,255)"_s));
        QVERIFY(add("<Color key=\"Own\" value=\"#F0E0D0\"/>"));
        QVERIFY(panel.styleSheet().contains("rgba(240,224,208,255)"_s));
        QCOMPARE(panel.changes, 2);
        // A page that stays hidden when its window appears.
        QWidget window;
        Panel page;
        page.setParent(&window);
        page.hide();
        window.show();
        QVERIFY(page.styleSheet().isEmpty());
        page.show();
        QVERIFY(page.styleSheet().contains("rgba(240,224,208,255)"_s));
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(0xF0, 0xE0, 0xD0));
    }

    // Qt takes each list of families for a font of its own and loads it again.
    void nestedWidgetsShareAFont()
    {
        ZELCustomWidget outer;
        ZELCustomWidget middle(&outer);
        const ZELCustomLabel inner(&middle);
        QCOMPARE(inner.font().families(), ZELCustom::font(13).families());
        QCOMPARE(inner.font().families().size(), 1);
    }

    void workersLookUpWhileAFileIsLoaded()
    {
        const QStringList files = {
            themeFile("<Theme><Color key=\"Tick\" value=\"#000001\"/></Theme>"),
            themeFile("<Theme><Color key=\"Tick\" value=\"#000002\"/></Theme>")};
        QVERIFY(ZELCustom::addXmlPath(files.at(0)));
        std::atomic<bool> stop{false};
        std::atomic<int> wrong{0};
        const auto look = [&] {
            while (!stop) {
                const int blue = ZELCustom::getDataBaseColor("Tick"_s).blue();
                wrong += blue != 1 && blue != 2;
                wrong += ZELCustom::globalFontFamily(1).isEmpty();
                ZELCustom::getDataBaseColor("Unknown_Font"_s);
            }
        };
        std::thread first(look);
        std::thread second(look);
        for (int i = 0; i < 50; ++i)
            ZELCustom::addXmlPath(files.at(i % 2));
        stop = true;
        first.join();
        second.join();
        QCOMPARE(wrong.load(), 0);
    }

    void fontShowsChinese()
    {
        QVERIFY(!ZELCustom::globalFontFamily(1).isEmpty());
        QCOMPARE(ZELCustom::font(17).pixelSize(), 17);
        const QRawFont raw = QRawFont::fromFont(ZELCustom::font(13));
        QVERIFY2(raw.supportsCharacter(0x66DDu) && raw.supportsCharacter(QLatin1Char('g')),
                 qPrintable(raw.familyName()));
    }
};

OBFT_TEST_MAIN(TestZELCustom)
#include "tst_zelcustom.moc"
