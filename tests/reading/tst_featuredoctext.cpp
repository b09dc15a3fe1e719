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

#include <functional>

using namespace DescriptionBuilder;
using Change = std::function<void(ORXPropertyTreeItem& item, FakeHost& host)>;
Q_DECLARE_METATYPE(Change)

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

protected:
    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        m_host->install();
        m_description =
            std::make_unique<LoadedDescription>(wrap(QString::fromLatin1(kDescription)));
        m_decider.setNodes(m_description->index.nodes());
        m_decider.beginItem();
    }
    void finish() override { FakeHost::uninstall(); }

private:
    QString info(const char* name)
    {
        return plain(m_text.GetFeatureValueInfo(*m_description->node(name),
                                                m_description->item(name), "ENG"_s))
            .trimmed();
    }

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<LoadedDescription> m_description;
    FeatureDecider m_decider;
    FeatureDocText m_text{m_decider};

private slots:
    void wholeText()
    {
        ORXPropertyTreeItem* width = m_description->item("Width");
        width->value()->setDisplayName("Width <px>"_s);
        width->value()->setDescription("The \"visible\" width."_s);
        width->value()->setTranslateName("\u5bbd\u5ea6"_s);
        width->value()->setTranslatedDescription("\u56fe\u50cf\u5bbd\u5ea6"_s);
        dynamic_cast<CTreeIntergerItemValue*>(width->value())->setNumbers({8, 4, 4096, 4});
        const auto text = [&](const char* language) {
            return plain(m_text.GetFeatureDocText(*m_description->node("Width"), "Yes"_s, width,
                                                  QString::fromLatin1(language)));
        };
        QCOMPARE(text("ENG").trimmed(),
                 "Width <px>\nThe 'visible' width.\n\nNode Name: Width\nType: Integer\n"
                 "Name Space: Custom\nVisibility: Beginner\nStreamable: Yes\n"
                 "Min: 4\nMax: 4096\nInc: 4"_s);
        QVERIFY(
            text("CH").startsWith("\u5bbd\u5ea6\n\u56fe\u50cf\u5bbd\u5ea6\n\nNode Name: Width"_s));
        width->value()->setTranslatedDescription(QString());
        QVERIFY(text("CH").startsWith("\u5bbd\u5ea6\nThe 'visible' width.\n"_s));
    }

    void ranges_data()
    {
        const Rows<QByteArray, float, QString> row("name", "maximum", "expected");
        row("address list", "GevCurrentIPAddress", 9.0F, "");
        row("increment without range", "GevSCDA", 9.0F, "Inc: 2");
        row("integer", "Width", 9.0F, "Min: 1\nMax: 9\nInc: 2");
        row("float", "Gain", 9.0F, "Min: 1.000000\nMax: 9.000000");
        row("float without positive maximum", "Gain", 0.0F, "");
    }

    void ranges()
    {
        QFETCH(QByteArray, name);
        QFETCH(float, maximum);
        CTreeItemValue* value = m_description->item(name.constData())->value();
        if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(value))
            integer->setNumbers({5, 1, static_cast<qint64>(maximum), 2});
        if (auto* number = dynamic_cast<CTreeFloatItemValue*>(value))
            number->setNumbers({5.0F, 1.0F, maximum});
        QTEST(info(name.constData()), "expected");
    }

    void entries()
    {
        QCOMPARE(info("Mode"), "Enum Entry Name: On\nEnum Entry Value: 1\n"
                               "Name Space: Standard\nVisibility: Beginner"_s);
    }

    void markersInTextsStay()
    {
        ORXPropertyTreeItem* width = m_description->item("Width");
        width->value()->setDisplayName("Load %1 of line"_s);
        width->value()->setDescription("Duty cycle at %3 of %4 line %2."_s);
        const QString text =
            plain(m_text.GetFeatureDocText(*m_description->node("Width"), "No"_s, width, "ENG"_s));
        QVERIFY(text.startsWith("Load %1 of line\nDuty cycle at %3 of %4 line %2."_s));
    }

    void rebuiltOnlyWhenAnInputChanged_data()
    {
        using Item = ORXPropertyTreeItem;
        const auto integer = [](qint64 least, qint64 most, qint64 step) {
            return [=](Item& item, FakeHost&) {
                dynamic_cast<CTreeIntergerItemValue*>(item.value())
                    ->setNumbers({8, least, most, step});
            };
        };
        // shown: in one of the two texts afterwards
        const Rows<QByteArray, Change, QString> row("name", "change", "shown");
        row("minimum", "Width", integer(2, 4096, 4), "Min: 2");
        row("maximum", "Width", integer(4, 5000, 4), "Max: 5000");
        row("increment", "Width", integer(4, 4096, 8), "Inc: 8");
        const auto range = [](Item& item, FakeHost&) {
            dynamic_cast<CTreeFloatItemValue*>(item.value())->setNumbers({5.0F, 1.0F, 7.0F});
        };
        row("range of a float", "Gain", Change(range), "Max: 7.000000");
        const auto visibility = [](Item& item, FakeHost&) { item.setVisibilityString("Guru"_s); };
        row("visibility", "Width", Change(visibility), "Visibility: Guru");
        const auto name = [](Item& item, FakeHost&) { item.value()->setDisplayName("Columns"_s); };
        row("name", "Width", Change(name), "Columns");
        const auto translated = [](Item& item, FakeHost&) {
            item.value()->setTranslateName("\u5bbd\u5ea6"_s);
        };
        row("translated name", "Width", Change(translated), "\u5bbd\u5ea6");
        const auto entry = [](Item&, FakeHost& host) {
            host.set("Never"_s, FakeHost::integerFeature(1));
        };
        row("entry that comes", "Mode", Change(entry), "Enum Entry Name: Gone");
    }

    void rebuiltOnlyWhenAnInputChanged()
    {
        QFETCH(QByteArray, name);
        QFETCH(Change, change);
        QFETCH(QString, shown);
        ORXPropertyTreeItem* item = m_description->item(name.constData());
        const FeatureNode& node = *m_description->node(name.constData());
        if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(item->value()))
            integer->setNumbers({8, 4, 4096, 4});
        m_text.update(node, item);
        item->value()->setDocText("kept"_s);
        m_text.update(node, item);
        QCOMPARE(item->value()->docText(), "kept"_s);
        change(*item, *m_host);
        m_decider.beginItem(); // another pass
        m_text.update(node, item);
        const CTreeItemValue* value = item->value();
        QVERIFY(plain(value->docText() + value->docTextCN()).contains(shown));
    }
};

OBFT_TEST_MAIN(TestFeatureDocText)
#include "tst_featuredoctext.moc"
