// SPDX-License-Identifier: Apache-2.0
// The names and descriptions of standard features that the library brings along, and how they are
// looked up.
#include "device/OBDeviceControl.h"
#include "device/XmlDocument.h"
#include "styledctl/ZELCustom.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QFile>
#include <QFontMetrics>
#include <QHash>
#include <QSet>
#include <QTemporaryDir>

namespace {

// Width of a name in a window of 900 pixels: half of what the side column leaves, less the
// indentation of a feature in a branch.
constexpr int kNameWidth = (900 - 195) / 2 - 60;
constexpr int kNameFontSize = 14;
constexpr int kMinFeatures = 450;
constexpr int kMaxDescription = 400;

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

XmlDocument load(const char* path)
{
    QFile file(QString::fromUtf8(path));
    XmlDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(file.readAll()))
        qFatal("cannot read %s", path);
    return document;
}

QString nameOf(pugi::xml_node element)
{
    return XmlText::attribute(element, "Name");
}

QString textOf(pugi::xml_node element, const char* tag)
{
    return XmlText::of(element.child(tag));
}

bool hasHan(const QString& text)
{
    for (const QChar& letter : text) {
        if (letter.script() == QChar::Script_Han)
            return true;
    }
    return false;
}

QVector<pugi::xml_node> childrenOf(pugi::xml_node parent, const char* tag)
{
    QVector<pugi::xml_node> children;
    for (const pugi::xml_node child : parent.children(tag))
        children.append(child);
    return children;
}

} // namespace

class TestTranslations : public GuardedTest
{
    Q_OBJECT

private:
    // Makes this the library's own file of translations.
    void install(const QByteArray& table)
    {
        QVERIFY(
            storeFile(m_directory.filePath("FeatureTreeResource/FeaturesTranslate.xml"_s), table));
        OBDeviceControl::SetDllPath(m_directory.path());
    }

    const QTemporaryDir m_directory;

    // In Chinese.
    QString entryText(const QString& feature, const QString& entry) const
    {
        for (const pugi::xml_node each : childrenOf(m_byName.value(feature), "EnumEntry")) {
            if (nameOf(each) == entry)
                return textOf(each, "DisplayName::cn");
        }
        return QString();
    }

    QVector<pugi::xml_node> m_features;
    QHash<QString, pugi::xml_node> m_byName;
    XmlDocument m_table;
    XmlDocument m_camera;

private slots:
    void initTestCase()
    {
        m_table = load(OBFT_FEATURE_TEXTS);
        m_camera = load(OBFT_DEMO_CAMERA);
        m_features = childrenOf(m_table.documentElement(), "Feature");
        for (const pugi::xml_node feature : qAsConst(m_features))
            m_byName.insert(nameOf(feature), feature);
    }

    void textsAreComplete()
    {
        QCOMPARE(m_byName.size(), m_features.size());
        QVERIFY2(m_byName.size() >= kMinFeatures, qPrintable(QString::number(m_byName.size())));
        QStringList faults;
        const auto check = [&faults](pugi::xml_node element, const char* kind) {
            const QString name = nameOf(element);
            const QByteArray tag(kind);
            const QString english = textOf(element, (tag + "::en").constData());
            const QString chinese = textOf(element, (tag + "::cn").constData());
            // Formats and standards keep their symbol: "RGB8", "JPEG", "2048".
            const bool isSymbol = english == chinese && !english.contains(QLatin1Char(' '));
            if (english.trimmed() != english || english.isEmpty() || chinese.trimmed() != chinese ||
                chinese.isEmpty() || hasHan(english) || (!hasHan(chinese) && !isSymbol))
                faults +=
                    name + " "_s + QString::fromLatin1(kind) + ": "_s + english + " / "_s + chinese;
        };
        for (const pugi::xml_node feature : qAsConst(m_features)) {
            check(feature, "DisplayName");
            check(feature, "Description");
            if (textOf(feature, "Description::cn").size() > kMaxDescription ||
                textOf(feature, "Description::en").size() > 2 * kMaxDescription)
                faults += nameOf(feature);
            for (const pugi::xml_node entry : childrenOf(feature, "EnumEntry"))
                check(entry, "DisplayName");
        }
        QCOMPARE(faults, QStringList());
    }

    void textsAreUnique()
    {
        QStringList faults;
        const auto check = [&faults](const QVector<pugi::xml_node>& elements, const char* tag) {
            QHash<QString, QString> owners;
            for (const pugi::xml_node element : elements) {
                const QString name = nameOf(element);
                const QString text = textOf(element, tag);
                if (owners.contains(text))
                    faults += text + ": "_s + owners.value(text) + ", "_s + name;
                owners.insert(text, name);
            }
        };
        for (const char* tag :
             {"DisplayName::en", "DisplayName::cn", "Description::en", "Description::cn"})
            check(m_features, tag);
        // Those of entries within their feature.
        for (const pugi::xml_node feature : qAsConst(m_features)) {
            for (const char* tag : {"DisplayName::en", "DisplayName::cn"})
                check(childrenOf(feature, "EnumEntry"), tag);
        }
        QCOMPARE(faults, QStringList());
    }

    void namesFitTheColumn()
    {
        const QFontMetrics metrics(ZELCustom::font(kNameFontSize));
        QStringList tooLong;
        for (const pugi::xml_node feature : qAsConst(m_features)) {
            for (const char* tag : {"DisplayName::en", "DisplayName::cn"}) {
                const QString text = textOf(feature, tag);
                if (metrics.horizontalAdvance(text) > kNameWidth)
                    tooLong += "%1 (%2)"_s.arg(text).arg(metrics.horizontalAdvance(text));
            }
        }
        QCOMPARE(tooLong, QStringList());
    }

    // A line is a signal of the connector or a row of pixels.
    void ioLinesAndImageLinesHaveTheirOwnTerms()
    {
        const QString ioLine = "\u7ebf\u8def"_s;
        const auto name = [this](const char* feature) {
            return textOf(m_byName.value(QString::fromLatin1(feature)), "DisplayName::cn");
        };
        for (const char* feature : {"LineSelector", "LineMode", "LineStatus", "LineDebouncerTime"})
            QVERIFY2(name(feature).startsWith(ioLine), feature);
        QVERIFY(!name("AcquisitionLineRate").contains(ioLine));
        QVERIFY(entryText("TriggerSource"_s, "Line0"_s).startsWith(ioLine));
        QVERIFY(!entryText("TriggerSelector"_s, "LineStart"_s).contains(ioLine));
    }

    void demoCameraIsCovered()
    {
        QStringList missing;
        QSet<QString> features;
        const pugi::xml_node camera = m_camera.documentElement();
        for (const pugi::xpath_node& reference : camera.select_nodes("//pFeature")) {
            const QString name = XmlText::of(reference.node()).trimmed();
            features.insert(name);
            if (!m_byName.contains(name))
                missing += name;
        }
        const pugi::xpath_node_set entries = camera.select_nodes("//EnumEntry");
        for (const pugi::xpath_node& each : entries) {
            const QString entry = nameOf(each.node());
            const QString name = nameOf(each.parent());
            if (features.contains(name) && entryText(name, entry).isEmpty())
                missing += name + "."_s + entry;
        }
        QVERIFY(features.size() > 200 && entries.size() > 200);
        QCOMPARE(missing, QStringList());
    }

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

    void brokenHostTableChangesNothing()
    {
        for (const char* text : {"<a><Feature", "<!DOCTYPE a><a><Feature Name='Kept'/></a>"}) {
            OBDeviceControl::Init(nullptr,
                                  "<a><Feature Name='Kept'><DisplayName::cn>x</DisplayName::cn>"
                                  "</Feature></a>");
            MessageGuard::ignoreMessage(QtCriticalMsg, "Create XML Translate DomDocument Failed");
            OBDeviceControl::Init(nullptr, text);
            QCOMPARE(OBDeviceControl::GetDisplayNameTrans("Kept"_s), "x"_s);
        }
    }

    void htmlFilter_data()
    {
        const Rows<QString, bool, QString> row("text", "bold", "inner");
        row("markup", "<a & \"b\" 'c'>", false, "&lt;a &amp; &quot;b&quot; &#39;c&#39;&gt;");
        row("line ends", "a\r\nb", true, "a<br><br>b");
    }

    void htmlFilter()
    {
        const auto [text, bold, inner] = fetchRow<QString, bool, QString>();
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
