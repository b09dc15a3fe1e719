// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustom.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

namespace {

const char kOwnTable[] = R"(<Features>
<Feature Name="Gain"><DisplayName::en>Gain</DisplayName::en><DisplayName::cn>own gain</DisplayName::cn>
<Description::cn>own text</Description::cn></Feature>
<Feature Name="Mode"><DisplayName::cn>own mode</DisplayName::cn>
<EnumEntry Name="On"><DisplayName::cn>own on</DisplayName::cn></EnumEntry>
<EnumEntry Name="Off"><DisplayName::cn>own off</DisplayName::cn></EnumEntry></Feature>
</Features>)";

const char kHostTable[] = R"(<Host>
<Other Name="Gain"><DisplayName::cn>not a feature</DisplayName::cn></Other>
<Feature Name="Mode"><DisplayName::en>Mode</DisplayName::en>
<EnumEntry Name="On"><DisplayName::cn>host on</DisplayName::cn></EnumEntry></Feature>
</Host>)";

} // namespace

class TestTranslations : public GuardedTest
{
    Q_OBJECT
private slots:
    void hostTableTakesPrecedence();
    void brokenHostTableChangesNothing();
    void htmlFilter_data();
    void htmlFilter();
};

void TestTranslations::hostTableTakesPrecedence()
{
    QTemporaryDir directory;
    QDir(directory.path()).mkdir(QStringLiteral("FeatureTreeResource"));
    QFile file(directory.filePath(QStringLiteral("FeatureTreeResource/FeaturesTranslate.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(kOwnTable);
    file.close();
    OBDeviceControl::SetDllPath(directory.path());
    OBDeviceControl::Init(nullptr, kHostTable);
    const QString gain = QStringLiteral("Gain");
    const QString mode = QStringLiteral("Mode");
    QCOMPARE(OBDeviceControl::GetDisplayNameTrans(gain), QStringLiteral("own gain"));
    QCOMPARE(OBDeviceControl::GetDescriptionTrans(gain), QStringLiteral("own text"));
    // The host knows the feature: its text counts, even an empty one.
    QCOMPARE(OBDeviceControl::GetDisplayNameTrans(mode), QString());
    QCOMPARE(OBDeviceControl::getPropDisplayNameTrans(mode), QStringLiteral("own mode"));
    QCOMPARE(OBDeviceControl::GetEnumerationTrans(mode, QStringLiteral("On")),
             QStringLiteral("host on"));
    QCOMPARE(OBDeviceControl::GetEnumerationTrans(mode, QStringLiteral("Off")), QString());
    QCOMPARE(OBDeviceControl::getPropEnumerationTrans(mode, QStringLiteral("Off")),
             QStringLiteral("own off"));
    QCOMPARE(OBDeviceControl::GetDisplayNameTrans(QStringLiteral("Unknown")), QString());
}

void TestTranslations::brokenHostTableChangesNothing()
{
    OBDeviceControl::Init(nullptr, "<a><Feature Name='Kept'><DisplayName::cn>x</DisplayName::cn>"
                                   "</Feature></a>");
    MessageGuard::ignoreMessage(QtCriticalMsg, "Create XML Translate DomDocument Failed");
    OBDeviceControl::Init(nullptr, "<a><Feature");
    QCOMPARE(OBDeviceControl::GetDisplayNameTrans(QStringLiteral("Kept")), QStringLiteral("x"));
}

void TestTranslations::htmlFilter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<QString>("inner");
    QTest::newRow("markup") << QStringLiteral("<a & \"b\" 'c'>") << false
                            << QStringLiteral("&lt;a &amp; &quot;b&quot; &#39;c&#39;&gt;");
    QTest::newRow("line ends") << QStringLiteral("a\r\nb") << true
                               << QStringLiteral("a<br><br>b");
}

void TestTranslations::htmlFilter()
{
    QFETCH(QString, text);
    QFETCH(bool, bold);
    QFETCH(QString, inner);
    const QString family = ZELCustom::globalFontFamily(1);
    QCOMPARE(OBDeviceControl::stringToHtmlFilter(text, QColor(18, 52, 171), bold),
             QStringLiteral("<span style=\" color:#1234ab; font-size:13px;font-family:") + family
                 + QStringLiteral(" ;")
                 + (bold ? QStringLiteral("font-weight:bold") : QString()) + QStringLiteral("\">")
                 + inner + QStringLiteral("</span>"));
}

OBFT_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
