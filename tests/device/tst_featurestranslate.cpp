// SPDX-License-Identifier: Apache-2.0
// The names and descriptions of standard features that the library brings along.
#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustom.h"
#include "support/TestMain.h"

#include <QDomDocument>
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

QDomDocument load(const char* path)
{
    QFile file(QString::fromUtf8(path));
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("cannot read %s", path);
    return document;
}

QString textOf(const QDomElement& element, const char* tag)
{
    return element.firstChildElement(QString::fromLatin1(tag)).text();
}

bool hasHan(const QString& text)
{
    for (const QChar& letter : text) {
        if (letter.script() == QChar::Script_Han)
            return true;
    }
    return false;
}

QVector<QDomElement> childrenOf(const QDomElement& parent, const char* tag)
{
    QVector<QDomElement> children;
    const QString name = QString::fromLatin1(tag);
    for (QDomElement e = parent.firstChildElement(name); !e.isNull();
         e = e.nextSiblingElement(name))
        children.append(e);
    return children;
}

} // namespace

class TestFeaturesTranslate : public GuardedTest
{
    Q_OBJECT

private:
    QVector<QDomElement> m_features;
    QDomDocument m_table;
    QDomDocument m_camera;

private slots:
    void initTestCase()
    {
        m_table = load(OBFT_FEATURE_TEXTS);
        m_camera = load(OBFT_DEMO_CAMERA);
        m_features = childrenOf(m_table.documentElement(), "Feature");

        // The library itself reads the file from below its folder.
        QTemporaryDir directory;
        QDir(directory.path()).mkdir("FeatureTreeResource"_s);
        QVERIFY(QFile::copy(QStringLiteral(OBFT_FEATURE_TEXTS),
                            directory.filePath("FeatureTreeResource/FeaturesTranslate.xml"_s)));
        OBDeviceControl::SetDllPath(directory.path());
        OBDeviceControl::parsePropertyTransXml();
    }

    void enoughFeatures()
    {
        QSet<QString> names;
        for (const QDomElement& feature : qAsConst(m_features))
            names.insert(feature.attribute("Name"_s));
        QCOMPARE(names.size(), m_features.size());
        QVERIFY2(names.size() >= kMinFeatures, qPrintable(QString::number(names.size())));
    }

    void textsAreComplete()
    {
        QStringList faults;
        const auto check = [&faults](const QDomElement& element, const char* kind) {
            const QString name = element.attribute("Name"_s);
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
        for (const QDomElement& feature : qAsConst(m_features)) {
            check(feature, "DisplayName");
            check(feature, "Description");
            if (textOf(feature, "Description::cn").size() > kMaxDescription ||
                textOf(feature, "Description::en").size() > 2 * kMaxDescription)
                faults += feature.attribute("Name"_s);
            for (const QDomElement& entry : childrenOf(feature, "EnumEntry"))
                check(entry, "DisplayName");
        }
        QCOMPARE(faults, QStringList());
    }

    void textsAreUnique()
    {
        QStringList faults;
        const auto check = [&faults](const QVector<QDomElement>& elements, const char* tag) {
            QHash<QString, QString> owners;
            for (const QDomElement& element : elements) {
                const QString name = element.attribute("Name"_s);
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
        for (const QDomElement& feature : qAsConst(m_features)) {
            for (const char* tag : {"DisplayName::en", "DisplayName::cn"})
                check(childrenOf(feature, "EnumEntry"), tag);
        }
        QCOMPARE(faults, QStringList());
    }

    void namesFitTheColumn()
    {
        const QFontMetrics metrics(ZELCustom::font(kNameFontSize));
        QStringList tooLong;
        for (const QDomElement& feature : qAsConst(m_features)) {
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
        const auto name = [](const char* feature) {
            return OBDeviceControl::GetDisplayNameTrans(QString::fromLatin1(feature));
        };
        for (const char* feature : {"LineSelector", "LineMode", "LineStatus", "LineDebouncerTime"})
            QVERIFY2(name(feature).startsWith(ioLine), feature);
        QVERIFY(!name("AcquisitionLineRate").contains(ioLine));
        const QString source = "TriggerSource"_s;
        QVERIFY(OBDeviceControl::GetEnumerationTrans(source, "Line0"_s).startsWith(ioLine));
        QVERIFY(!OBDeviceControl::GetEnumerationTrans("TriggerSelector"_s, "LineStart"_s)
                     .contains(ioLine));
    }

    void demoCameraIsCovered()
    {
        QStringList missing;
        int features = 0;
        const QDomNodeList references = m_camera.elementsByTagName("pFeature"_s);
        QHash<QString, QDomElement> nodes;
        QVector<QDomElement> open = {m_camera.documentElement()};
        while (!open.isEmpty()) {
            const QDomElement element = open.takeLast();
            for (QDomElement e = element.firstChildElement(); !e.isNull();
                 e = e.nextSiblingElement()) {
                if (e.tagName() == QLatin1String("Group"))
                    open.append(e);
                else if (e.hasAttribute("Name"_s))
                    nodes.insert(e.attribute("Name"_s), e);
            }
        }
        for (int i = 0; i < references.size(); ++i) {
            const QString name = references.at(i).toElement().text().trimmed();
            ++features;
            if (OBDeviceControl::GetDisplayNameTrans(name).isEmpty() ||
                OBDeviceControl::GetDescriptionTrans(name).isEmpty())
                missing += name;
            for (const QDomElement& entry : childrenOf(nodes.value(name), "EnumEntry")) {
                const QString entryName = entry.attribute("Name"_s);
                if (OBDeviceControl::GetEnumerationTrans(name, entryName).isEmpty())
                    missing += name + "."_s + entryName;
            }
        }
        QVERIFY(features > 200);
        QCOMPARE(missing, QStringList());
    }
};

OBFT_TEST_MAIN(TestFeaturesTranslate)
#include "tst_featurestranslate.moc"
