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

private:
    // Makes this the library's own file of translations.
    void install(const QByteArray& table)
    {
        QDir(m_directory.path()).mkdir("FeatureTreeResource"_s);
        QFile file(m_directory.filePath("FeatureTreeResource/FeaturesTranslate.xml"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(table);
        OBDeviceControl::SetDllPath(m_directory.path());
    }

    const QTemporaryDir m_directory;

private slots:
    // Before the table is filled, once per process.
    void ownTableWithADocumentTypeIsRefused()
    {
        install(QByteArray("<!DOCTYPE r>") + kOwnTable);
        OBDeviceControl::Init(nullptr, nullptr);
        QCOMPARE(OBDeviceControl::GetDisplayNameTrans("Gain"_s), QString());
    }

    void hostTableTakesPrecedence()
    {
        install(kOwnTable);
        OBDeviceControl::Init(nullptr, kHostTable);
        const QString gain = "Gain"_s;
        const QString mode = "Mode"_s;
        QCOMPARE(OBDeviceControl::GetDisplayNameTrans(gain), "own gain"_s);
        QCOMPARE(OBDeviceControl::GetDescriptionTrans(gain), "own text"_s);
        // The host knows the feature: its text counts, even an empty one.
        QCOMPARE(OBDeviceControl::GetDisplayNameTrans(mode), QString());
        QCOMPARE(OBDeviceControl::getPropDisplayNameTrans(mode), "own mode"_s);
        QCOMPARE(OBDeviceControl::GetEnumerationTrans(mode, "On"_s), "host on"_s);
        QCOMPARE(OBDeviceControl::GetEnumerationTrans(mode, "Off"_s), QString());
        QCOMPARE(OBDeviceControl::getPropEnumerationTrans(mode, "Off"_s), "own off"_s);
        QCOMPARE(OBDeviceControl::GetDisplayNameTrans("Unknown"_s), QString());
    }

    void brokenHostTableChangesNothing_data()
    {
        const Rows<QByteArray> row("text");
        row("cut off", "<a><Feature");
        row("document type", "<!DOCTYPE a><a><Feature Name='Kept'/></a>");
    }

    void brokenHostTableChangesNothing()
    {
        QFETCH(QByteArray, text);
        OBDeviceControl::Init(nullptr,
                              "<a><Feature Name='Kept'><DisplayName::cn>x</DisplayName::cn>"
                              "</Feature></a>");
        MessageGuard::ignoreMessage(QtCriticalMsg, "Create XML Translate DomDocument Failed");
        OBDeviceControl::Init(nullptr, text.constData());
        QCOMPARE(OBDeviceControl::GetDisplayNameTrans("Kept"_s), "x"_s);
    }

    void htmlFilter_data()
    {
        const Rows<QString, bool, QString> row("text", "bold", "inner");
        row("markup", "<a & \"b\" 'c'>", false, "&lt;a &amp; &quot;b&quot; &#39;c&#39;&gt;");
        row("line ends", "a\r\nb", true, "a<br><br>b");
    }

    void htmlFilter()
    {
        QFETCH(QString, text);
        QFETCH(bool, bold);
        QFETCH(QString, inner);
        const QString family = ZELCustom::globalFontFamily(1);
        QCOMPARE(OBDeviceControl::stringToHtmlFilter(text, QColor(18, 52, 171), bold),
                 "<span style=\" color:#1234ab; font-size:13px;font-family:"_s + family + " ;"_s +
                     (bold ? "font-weight:bold"_s : QString()) + "\">"_s + inner + "</span>"_s);
    }

    // The filter of plain texts fills its template one marker after the other.
    void htmlFilterFillsAMarkerOfTheText()
    {
        const QColor colour(18, 52, 171);
        QVERIFY(OBDeviceControl::stringToHtmlFilter("a %1 b"_s, colour, true)
                    .contains(">a font-weight:bold b<"_s));
    }
};

OBFT_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
