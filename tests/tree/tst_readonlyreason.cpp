// SPDX-License-Identifier: Apache-2.0
// Why a feature cannot be edited, as the window tells it: what passes find at the host, in words,
// below the description, with links.
#include "device/OBDeviceControl.h"
#include "support/DescriptionBuilder.h"
#include "tree/FeatureDescriptionPanel.h"
#include "tree/FeatureInfoTabs.h"
#include "tree/FeatureTreeTest.h"
#include "tree/ReadOnlyReasonLine.h"

#include <QSignalSpy>
#include <QTextBlock>
#include <QToolTip>

using namespace DescriptionBuilder;

namespace {

QString ref(const char* tag, const char* text)
{
    return child(QString::fromLatin1(tag), QString::fromUtf8(text));
}

// The feature that is read-only, and three that may decide.
QString description(const QString& width)
{
    const QString entries = "<EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
                            "<EnumEntry Name=\"Fast\"><Value>7</Value></EnumEntry>"_s;
    return elements("Category Root pFeature=Image,Other; Category Image pFeature=Width;"
                    "Category Other pFeature=Mode,Level,Inner; Integer Level;"
                    "Integer Inner Visibility=Invisible; IntSwissKnife Both pVariable=Mode,Level;"
                    "IntReg Reg; Integer WidthReg pIsLocked=Level") +
           node("Integer"_s, "Width"_s, ref("Description", "Columns.") + width) +
           node("Enumeration"_s, "Mode"_s, ref("DisplayName", "Scan &lt;Mode&gt;") + entries);
}

} // namespace

class TestReadOnlyReason : public FeatureTreeTest
{
    Q_OBJECT

    void setAnswer(const QString& name, const QString& answer)
    {
        FakeHost::Feature feature = m_host->feature(name);
        if (answer == "fails"_s)
            m_host->fail(name, 3);
        else if (answer == "ro"_s)
            feature.mode = OB_FT_ACCESS_READ_ONLY;
        else
            feature.integer = answer.toInt();
        m_host->set(name, feature);
    }
    // A tree over the host, not read.
    void build(const QString& width)
    {
        const QByteArray xml = wrap(description(width));
        m_tree.reset();
        m_host->serve(xml);
        m_host->set("Mode"_s, FakeHost::enumFeature(7));
        m_host->set("Level"_s, FakeHost::integerFeature(3));
        m_host->set("Inner"_s, FakeHost::integerFeature(1));
        m_host->set("Both"_s, FakeHost::integerFeature(1));
        OBDeviceControl::Init(xml.constData(), nullptr);
        m_tree = makeTree(1);
        m_tree->activateWindow();
    }
    void read()
    {
        m_tree->StartUpdateThread();
        QTRY_VERIFY(m_tree->HadUpdatedOnce());
    }
    void reread(const char* name)
    {
        QSignalSpy ended(m_tree.get(), &ORXFeatureTree::SigPassEnded);
        m_tree->rereadInvalidated(QString::fromLatin1(name));
        QTRY_VERIFY(!ended.isEmpty());
    }
    // Width, locked by Level, is read and described.
    void showLocked(const QString& lock = QStringLiteral("Level"))
    {
        build(child("pIsLocked"_s, lock));
        read();
        view()->setCurrentIndex(index(item("Width")));
        emit view()->pressed(index(item("Width")));
        QTRY_VERIFY(line()->isVisible());
    }
    QString reason() { return m_tree->readOnlyReason(*item("Width")); }
    ReadOnlyReasonLine* line() { return m_tree->findChild<ReadOnlyReasonLine*>(); }
    QString focusedLink()
    {
        QTextCursor cursor = line()->textCursor();
        cursor.setPosition(cursor.selectionEnd());
        return cursor.charFormat().anchorHref();
    }
    QPoint placeOf(const QString& shown)
    {
        QTextCursor cursor = line()->document()->find(shown);
        cursor.setPosition(cursor.selectionStart() + 1);
        return line()->cursorRect(cursor).center();
    }
    QStringList links()
    {
        QStringList names;
        const QTextDocument* document = line()->document();
        for (auto part = document->begin().begin(); !part.atEnd(); ++part) {
            if (part.fragment().charFormat().isAnchor())
                names.append(part.fragment().charFormat().anchorHref());
        }
        return names;
    }

private slots:
    void reasons_data()
    {
        // What the host answers: "feature value", "feature ro" or "feature fails".
        const Rows<QString, QString, QString, QStringList> row("width", "host", "text", "links");
        const QString locked = ref("pIsLocked", "Level");
        const QString below = ref("pValue", "WidthReg");
        const char* const readOnly = "Read-only on this camera.";
        row("nothing", locked, "Level 0", "", "");
        row("locked", locked, "", "Locked by Level (3)", "Level");
        row("locked without a shown row", ref("pIsLocked", "Inner"), "", "Locked by Inner (1)", "");
        row("locked by a formula", ref("pIsLocked", "Both"), "",
            "Locked by Scan <Mode> (Fast), Level (3)", "Mode Level");
        row("a decider that cannot be read", ref("pIsLocked", "Both"), "Level fails",
            "Locked by Scan <Mode> (Fast), Level", "Mode Level");
        row("locked by nobody to show", ref("pIsLocked", "Reg"), "", readOnly, "");
        row("not available", ref("pIsAvailable", "Level"), "Level 0",
            "Not available because of Level (0)", "Level");
        row("neither available nor unlocked",
            ref("pIsAvailable", "Level") + ref("pIsLocked", "Mode"), "Level 0",
            "Not available because of Level (0)", "Level");
        row("by the camera's mode", locked, "Level 0,Width ro", readOnly, "");
        row("locked where its value comes from", below, "Width ro", "Locked by Level (3)", "Level");
        row("not locked there", below, "Width ro,Level 0", readOnly, "");
        row("never written", below + ref("ImposedAccessMode", "RO"), "Width ro", readOnly, "");
    }

    void reasons()
    {
        const auto [width, host, text, expectedLinks] =
            fetchRow<QString, QString, QString, QStringList>();
        build(width);
        const QStringList answers = host.split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString& answer : answers)
            setAnswer(answer.section(QLatin1Char(' '), 0, 0), answer.section(QLatin1Char(' '), 1));
        read();
        m_host->fail("Level"_s, 0);
        view()->setCurrentIndex(index(item("Width")));
        emit view()->pressed(index(item("Width")));
        QTRY_COMPARE(line()->toPlainText(), text);
        QCOMPARE(reason(), text);
        QCOMPARE(line()->isVisible(), !text.isEmpty());
        QCOMPARE(links(), expectedLinks);
    }

    void linksByKeyboardAndMouseAndFromTheRow()
    {
        showLocked("Both"_s);
        QSignalSpy shown(m_tree.get(), &ORXFeatureTree::SigShowFeature);
        auto* panel = m_tree->findChild<FeatureDescriptionPanel*>();
        panel->setFocus();
        QTRY_VERIFY(panel->hasFocus());
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        press(Qt::Key_Tab);
        QVERIFY(line()->hasFocus());
        QCOMPARE(focusedLink(), "Mode"_s);
        press(Qt::Key_Tab);
        QCOMPARE(focusedLink(), "Level"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Backtab);
        QCOMPARE(focusedLink(), "Mode"_s);
        press(Qt::Key_Backtab);
        QVERIFY(!line()->hasFocus());
        QTest::mouseClick(line()->viewport(), Qt::LeftButton, {}, placeOf("Level"_s));
        QCOMPARE(shown, QList<QVariantList>({{"Level"_s}, {"Level"_s}}));
        // From the row by Enter: Tab would go on through the editors of other rows.
        m_tree->infoTabs()->addPanel(new QWidget, [] { return "Other"_s; });
        m_tree->infoTabs()->setCurrentIndex(1);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2}) {
            view()->setFocus();
            QTRY_VERIFY(view()->hasFocus());
            // Also right after the row has become the current one.
            view()->setCurrentIndex(index(item("Level")));
            QTRY_VERIFY(!line()->isVisible());
            view()->setCurrentIndex(index(item("Width")));
            QTest::keyClick(view(), key);
            QVERIFY(line()->hasFocus());
            QCOMPARE(focusedLink(), "Mode"_s);
            QTest::keyClick(line(), Qt::Key_Tab);
            QTest::keyClick(line(), Qt::Key_Escape);
            QVERIFY(view()->hasFocus());
        }
    }

    // The user is about to follow a link.
    void decidersChange()
    {
        showLocked("Both"_s);
        line()->setFocus(Qt::BacktabFocusReason);
        QTRY_COMPARE(focusedLink(), "Level"_s);
        m_host->set("Level"_s, FakeHost::integerFeature(4));
        reread("Level");
        QTRY_COMPARE(line()->toPlainText(), "Locked by Scan <Mode> (Fast), Level (4)"_s);
        QCOMPARE(focusedLink(), "Level"_s);
        QSignalSpy shown(m_tree.get(), &ORXFeatureTree::SigShowFeature);
        QTest::keyClick(line(), Qt::Key_Return);
        QCOMPARE(shown, QList<QVariantList>({{"Level"_s}}));
        // The lock goes, and the line with it; not the focus.
        m_host->set("Both"_s, FakeHost::integerFeature(0));
        reread("Level");
        QTRY_VERIFY(!line()->isVisible());
        QVERIFY(m_tree->findChild<FeatureDescriptionPanel*>()->hasFocus());
        QCOMPARE(reason(), QString());
    }

    void levelOfTheUserOlderValueAndLongNames()
    {
        showLocked();
        const int width = m_tree->minimumSizeHint().width();
        QCOMPARE(links(), QStringList{"Level"_s});
        item("Level")->setVisible(false, 1);
        QTRY_COMPARE(links(), QStringList());
        QCOMPARE(line()->toPlainText(), "Locked by Level (3)"_s);
        // The value that decides was read before the lock was: it says the contrary.
        item("Level")->value()->setValue(0);
        QCOMPARE(reason(), "Locked by Level"_s);
        item("Level")->value()->setDisplayName(QString(500, QLatin1Char('W')));
        m_tree->notifyEditorUpdate();
        QVERIFY(line()->toPlainText().contains(QString(50, QLatin1Char('W'))));
        line()->selectAll();
        m_tree->notifyEditorUpdate();
        QVERIFY(line()->textCursor().hasSelection()); // the text has not changed
        QCOMPARE(m_tree->minimumSizeHint().width(), width);
        QVERIFY(line()->height() < m_tree->height() / 8);
        QTRY_COMPARE(line()->document()->idealWidth() <= line()->viewport()->width(), true);
    }

    void toolTips()
    {
        showLocked("Both"_s);
        QWidget* spinBox = nullptr;
        QTRY_VERIFY((spinBox = view()->editorOf(item("Width"))) &&
                    !spinBox->accessibleDescription().isEmpty());
        const auto tipAt = [](QWidget* widget, const QPoint& at) {
            QHelpEvent event(QEvent::ToolTip, at, widget->mapToGlobal(at));
            QApplication::sendEvent(widget, &event);
            const QString text = QToolTip::text();
            QToolTip::hideText();
            return text;
        };
        const QString why = "Locked by Scan &lt;Mode&gt; (Fast), Level (3)"_s;
        QVERIFY(tipAt(spinBox, QPoint(5, 5)).contains(why + "<br>Min:"_s));
        QWidget* rows = view()->viewport();
        const QPoint edge = spinBox->geometry().topRight() + QPoint(4, 4);
        QVERIFY(tipAt(rows, edge).contains(why));
        m_host->set("Both"_s, FakeHost::integerFeature(0));
        reread("Level");
        QTRY_VERIFY(spinBox->isEnabled());
        QVERIFY(!tipAt(spinBox, QPoint(5, 5)).contains("Locked"_s));
        QVERIFY(!tipAt(rows, edge).contains("Locked"_s));
    }
};

OBFT_TEST_MAIN(TestReadOnlyReason)
#include "tst_readonlyreason.moc"
