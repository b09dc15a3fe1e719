// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "reading/FeatureDecider.h"
#include "reading/FeatureDocText.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

#include <QTextDocument>

using namespace DescriptionBuilder;

namespace {

const char kDescription[] = R"(
<Category Name="Root"><pFeature>Width</pFeature><pFeature>GevSCDA</pFeature>
<pFeature>GevCurrentIPAddress</pFeature><pFeature>Gain</pFeature><pFeature>Mode</pFeature></Category>
<Integer Name="Width" NameSpace="Custom"/><Integer Name="GevSCDA"/>
<Integer Name="GevCurrentIPAddress"/><Float Name="Gain"/>
<Enumeration Name="Mode"><EnumEntry Name="On" NameSpace="Standard"><Value>1</Value></EnumEntry>
<EnumEntry Name="Gone"><Value>2</Value><pIsAvailable>Never</pIsAvailable></EnumEntry></Enumeration>
<Integer Name="Never"/>)";

QString plain(const QString& html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

} // namespace

class TestFeatureDocText : public GuardedTest
{
    Q_OBJECT
private slots:
    void wholeText();
    void ranges_data();
    void ranges();
    void entries();
    void markersInTextsStay();
    void rebuiltOnlyWhenAnInputChanged();

protected:
    void prepare() override
    {
        FakeHost::uninstall();
        m_description =
            std::make_unique<LoadedDescription>(wrap(QString::fromLatin1(kDescription)));
        m_decider.setNodes(m_description->index.nodes());
    }

private:
    QString info(const char* name)
    {
        return plain(m_text.GetFeatureValueInfo(*m_description->node(name),
                                                m_description->item(name), QStringLiteral("ENG")))
            .trimmed();
    }

    std::unique_ptr<LoadedDescription> m_description;
    FeatureDecider m_decider;
    FeatureDocText m_text{m_decider};
};

void TestFeatureDocText::wholeText()
{
    ORXPropertyTreeItem* width = m_description->item("Width");
    width->value()->setDisplayName(QStringLiteral("Width <px>"));
    width->value()->setDescription(QStringLiteral("The \"visible\" width."));
    width->value()->setTranslateName(QString::fromUtf8("\u5bbd\u5ea6"));
    width->value()->setTranslatedDescription(QString::fromUtf8("\u56fe\u50cf\u5bbd\u5ea6"));
    dynamic_cast<CTreeIntergerItemValue*>(width->value())->setNumbers({8, 4, 4096, 4});
    const auto text = [&](const char* language) {
        return plain(m_text.GetFeatureDocText(*m_description->node("Width"),
                                              QStringLiteral("Yes"), width,
                                              QString::fromLatin1(language)));
    };
    QCOMPARE(text("ENG").trimmed(),
             QStringLiteral("Width <px>\nThe 'visible' width.\n\nNode Name: Width\nType: Integer\n"
                            "Name Space: Custom\nVisibility: Beginner\nStreamable: Yes\n"
                            "Min: 4\nMax: 4096\nInc: 4"));
    QVERIFY(text("CH").startsWith(
        QString::fromUtf8("\u5bbd\u5ea6\n\u56fe\u50cf\u5bbd\u5ea6\n\nNode Name: Width")));
}

void TestFeatureDocText::ranges_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<float>("maximum");
    QTest::addColumn<QString>("expected");
    QTest::newRow("address list") << QByteArray("GevCurrentIPAddress") << 9.0F << QString();
    QTest::newRow("increment without range")
        << QByteArray("GevSCDA") << 9.0F << QStringLiteral("Inc: 2");
    QTest::newRow("integer") << QByteArray("Width") << 9.0F
                             << QStringLiteral("Min: 1\nMax: 9\nInc: 2");
    QTest::newRow("float") << QByteArray("Gain") << 9.0F
                           << QStringLiteral("Min: 1.000000\nMax: 9.000000");
    QTest::newRow("float without positive maximum") << QByteArray("Gain") << 0.0F << QString();
}

void TestFeatureDocText::ranges()
{
    QFETCH(QByteArray, name);
    QFETCH(float, maximum);
    QFETCH(QString, expected);
    CTreeItemValue* value = m_description->item(name.constData())->value();
    if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(value))
        integer->setNumbers({5, 1, static_cast<qint64>(maximum), 2});
    if (auto* number = dynamic_cast<CTreeFloatItemValue*>(value))
        number->setNumbers({5.0F, 1.0F, maximum});
    QCOMPARE(info(name.constData()), expected);
}

void TestFeatureDocText::entries()
{
    QCOMPARE(info("Mode"), QStringLiteral("Enum Entry Name: On\nEnum Entry Value: 1\n"
                                          "Name Space: Standard\nVisibility: Beginner"));
}

void TestFeatureDocText::markersInTextsStay()
{
    ORXPropertyTreeItem* width = m_description->item("Width");
    width->value()->setDisplayName(QStringLiteral("Load of line"));
    width->value()->setDescription(QStringLiteral("At 100 percent of line."));
    const QString text =
        plain(m_text.GetFeatureDocText(*m_description->node("Width"), QStringLiteral("No"), width,
                                       QStringLiteral("ENG")));
    QVERIFY(text.contains(QStringLiteral("At 100 percent of line.")));
}

void TestFeatureDocText::rebuiltOnlyWhenAnInputChanged()
{
    ORXPropertyTreeItem* width = m_description->item("Width");
    const FeatureNode& node = *m_description->node("Width");
    m_text.update(node, width);
    width->value()->setDocText(QStringLiteral("kept"));
    m_text.update(node, width);
    QCOMPARE(width->value()->docText(), QStringLiteral("kept"));
    dynamic_cast<CTreeIntergerItemValue*>(width->value())->setNumbers({8, 4, 5000, 4});
    m_text.update(node, width);
    QVERIFY(plain(width->value()->docText()).contains(QStringLiteral("Max: 5000")));
}

OBFT_TEST_MAIN(TestFeatureDocText)
#include "tst_featuredoctext.moc"
