// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "device/XmlLimits.h"
#include "support/TestMain.h"

class TestXmlLimits : public GuardedTest
{
    Q_OBJECT

private slots:
    void nesting_data()
    {
        const Rows<QByteArray, bool> row("text", "acceptable");
        const auto nested = [](int depth) {
            return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
        };
        row("empty", "", true);
        row("1,000 levels", nested(1000), true);
        row("1,001 levels", nested(1001), false);
        row("100,000 opened, none closed", QByteArray("<a>").repeated(100000), false);
        row("many siblings", "<r>" + QByteArray("<a></a>").repeated(5000) + "</r>", true);
        row("elements that close themselves", QByteArray("<a/>").repeated(5000), true);
        row("tags inside comments", "<r><!--" + QByteArray("<a>").repeated(2000) + "--></r>", true);
        row("tags inside CDATA", "<r><![CDATA[" + QByteArray("<a>").repeated(2000) + "]]></r>",
            true);
        row("sign inside an attribute", "<r>" + QByteArray("<a t='/>'>").repeated(1500) + "</r>",
            false);
        row("unfinished comment", "<r><!-- <a>", true);
        row("quoted end of the declaration",
            "<?xml version='1.0' encoding='?><!--'?>" + nested(1001), false);
        row("apostrophe in a processing instruction", "<?p it's?>" + nested(1001), false);
        row("document type declaration", "<!DOCTYPE r><r/>", false);
        row("document type behind what may precede it",
            "<?xml version='1.0'?>\n<!-- it's --><?p '?> <!DOCTYPE r [<!ENTITY a 'b'>]><r>&a;</r>",
            false);
        row("document type inside a comment", "<!-- <!DOCTYPE r> --><r/>", true);
        row("document type inside CDATA", "<r><![CDATA[<!DOCTYPE r>]]></r>", true);
        row("65 MB", QByteArray(65 * 1024 * 1024, ' '), false);
    }

    void nesting()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, acceptable);
        QCOMPARE(XmlLimits::acceptable(text.constData(), static_cast<std::size_t>(text.size())),
                 acceptable);
    }

    void descriptionsThatDoNotParse_data()
    {
        const Rows<QByteArray> row("text");
        row("empty", "");
        row("no XML", "Width=640");
        row("cut off", "<RegisterDescription><Category");
        row("100,000 levels", QByteArray("<a>").repeated(100000));
        row("two roots", "<RegisterDescription/><RegisterDescription/>");
        row("no root", "<?xml version='1.0'?><!-- nothing -->");
        row("document type", "<!DOCTYPE r><RegisterDescription/>");
        row("levels behind an apostrophe in the document type",
            "<!DOCTYPE r [<!-- it's -->]>" + QByteArray("<a>").repeated(100000) +
                QByteArray("</a>").repeated(100000));
    }

    void descriptionsThatDoNotParse()
    {
        QFETCH(QByteArray, text);
        OBDeviceControl::Init("<RegisterDescription/>", nullptr);
        QVERIFY(OBDeviceControl::GetDeviceXml()->documentElement());
        MessageGuard::ignoreMessage(QtCriticalMsg, "Create XML pDeviceXml DomDocument Failed");
        OBDeviceControl::Init(text.constData(), nullptr);
        QVERIFY(!OBDeviceControl::GetDeviceXml()->documentElement());
    }

    void textOfAnElement_data()
    {
        const Rows<QByteArray, QString, QString> row("inner", "text", "inOnePiece");
        row("blanks around it", " \n a b\t", " \n a b\t", "a b");
        row("only blanks", "  ", "", "");
        row("CDATA", "<![CDATA[ a<b ]]>", " a<b ", "a<b");
        row("references", "&lt;&#181;&amp;&quot;", "<µ&\"", "<µ&\"");
        row("of an entity that nobody declares", "&a;", "&a;", "&a;");
        row("line breaks", "a\r\nb", "a\nb", "a\nb");
        row("around a comment", "a<!-- c -->b", "ab", "");
        row("around an element", "a<i>b<i>c</i></i>d", "abcd", "");
        row("broken UTF-8", "a\xFF", "a\uFFFD", "a\uFFFD");
    }

    void textOfAnElement()
    {
        QFETCH(QByteArray, inner);
        XmlDocument document;
        QVERIFY(document.setContent("<r>" + inner + "</r>"));
        QTEST(XmlText::of(document.documentElement()), "text");
        QTEST(XmlText::toString(XmlText::trimmed(document.documentElement())), "inOnePiece");
    }

    void nullKeepsTheDescription()
    {
        OBDeviceControl::Init("\xEF\xBB\xBF<RegisterDescription ModelName='x'/>", nullptr);
        OBDeviceControl::Init(nullptr, nullptr);
        QCOMPARE(
            XmlText::attribute(OBDeviceControl::GetDeviceXml()->documentElement(), "ModelName"),
            "x"_s);
    }
};

OBFT_TEST_MAIN(TestXmlLimits)
#include "tst_xmllimits.moc"
