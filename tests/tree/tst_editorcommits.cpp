// SPDX-License-Identifier: Apache-2.0
// What the user's input in an editor writes, and what never does.
#include "basetools/ORXInterface.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/EditorTest.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/QPropertyLineEdit.h"

class TestEditorCommits : public EditorTest
{
    Q_OBJECT

private slots:
    void readOnlyItemsAreNeverWritten()
    {
        const QStringList tags = words("Boolean Command CustomTagNameFlatFieldCorrection");
        open(tags);
        for (const QString& tag : tags) {
            // It became read-only, but the editor has not been told yet.
            m_page->item(tag)->setReadOnly(true);
            QTest::mouseClick(m_page->anyEditor(tag), Qt::LeftButton, {}, QPoint(8, 8));
        }
        // The tool's button writes nothing to the camera.
        QCOMPARE(m_page->writes, QStringList("CustomTagNameFlatFieldCorrection "_s));
    }

    void typedTextSurvivesARead_data()
    {
        const Rows<QString, QVariant> row("tag", "read");
        row.of("String", "other"_s);
        row.of("Float", 3.5F);
        row.of("Integer", 50);
    }

    void typedTextSurvivesARead()
    {
        const auto [tag, read] = fetchRow<QString, QVariant>();
        open({tag});
        QWidget* widget = m_page->anyEditor(tag);
        for (const char* before : {"", "7"}) { // typed before the read comes, the rest after it
            type(widget, QString::fromLatin1(before));
            arrives(m_page->item(tag), read);
            QTest::keyClicks(widget, "8"_s);
            QCOMPARE(lineEdit(widget)->text(), QLatin1String(before) + "8"_s);
            QVERIFY(widget->hasFocus());
            QCOMPARE(m_page->anyEditor(tag), widget);
            QTest::keyClick(widget, Qt::Key_Return);
            QCOMPARE(m_page->writes.last(), tag + QLatin1Char(' ') + QLatin1String(before) + "8"_s);
        }
        QCOMPARE(m_page->writes.size(), 2);
    }

    // On its way to "64" the text is what the camera has: the user is not done with it.
    void typingThroughTheShownValue()
    {
        open({"String"_s, "Integer"_s});
        for (const char* tag : {"String", "Integer"}) {
            QWidget* widget = editor(tag);
            enter(widget, "6"_s);
            m_page->writes.clear();
            type(widget, "6"_s);
            arrives(item(tag), 50);
            QTest::keyClicks(widget, "4"_s);
            QTest::keyClick(widget, Qt::Key_Return);
            QCOMPARE(m_page->writes, QStringList(QLatin1String(tag) + " 64"_s));
            type(widget, "64"_s);
            arrives(item(tag), 50);
            QTest::keyClick(widget, Qt::Key_Return);
            QCOMPARE(m_page->writes.size(), 2); // it is no longer what the camera has
        }
    }

    void escapeShowsWhatCameMeanwhile()
    {
        open({"String"_s, "Integer"_s});
        for (const char* name : {"String", "Integer"}) {
            QWidget* widget = editor(name);
            widget->setFocus();
            QTest::keyClicks(widget, "7"_s);
            arrives(item(name), 50);
            QTest::keyClick(widget, Qt::Key_Escape);
            QVERIFY(widget->hasFocus()); // the first Escape takes the text back
        }
        QTRY_COMPARE(qobject_cast<QLineEdit*>(editor("String"))->text(), "50"_s);
        QTRY_COMPARE(qobject_cast<ORXPropertySpinBox*>(editor("Integer"))->value(), qlonglong(50));
        QVERIFY(m_page->writes.isEmpty());
    }

    void lineEditsWriteOnce_data()
    {
        const Rows<QString, QString, QString, QVariant> row("tag", "representation", "typed",
                                                            "written");
        row("text", "String", "", "lab", "lab"_s);
        row("float", "Float", "", "2.5", 2.5F);
        row("converter", "Converter", "", "-1", 1e-6F);
        row("pure number", "Integer", "PureNumber", "250", qlonglong(100));
        row("hexadecimal", "IntReg", "HexNumber", "0x1F", qlonglong(31));
        row("address", "Integer", "IPV4Address", "10.0.0.2", qlonglong(0x0A000002));
    }

    void lineEditsWriteOnce()
    {
        const auto [tag, representation, typed, written] =
            fetchRow<QString, QString, QString, QVariant>();
        open({tag, "Boolean"_s});
        if (!representation.isEmpty()) {
            setInteger(m_page->item(tag), 10, 0, 100, 1, representation.toLatin1().constData());
            m_page->treeView()->openPersistentEdit(m_page->item(tag), true);
            QTRY_VERIFY(m_page->editor<QPropertyLineEdit>(tag));
        }
        auto* edit = m_page->editor<QPropertyLineEdit>(tag);
        type(edit, typed);
        QVERIFY(m_page->writes.isEmpty());
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(m_page->writes.size(), 1);
        QCOMPARE(m_page->lastWritten, written);
        editor("Boolean")->setFocus();
        QCOMPARE(m_page->writes.size(), 1);
    }

    void roundedAndInvalidTextsAreNoEdits()
    {
        open({"Float"_s, "Boolean"_s});
        valueOf<CTreeFloatItemValue>(item("Float"))->setNumber(1.23456F);
        refill(item("Float"));
        auto* edit = m_page->editor<QPropertyLineEdit>("Float"_s);
        QCOMPARE(edit->text(), "1.2346"_s);
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_End);
        editor("Boolean")->setFocus();
        QCOMPARE(item("Float")->value()->value().toFloat(), 1.23456F);
        type(edit, "1,5"_s); // no number
        editor("Boolean")->setFocus();
        QCOMPARE(edit->text(), "1.2346"_s);
        QVERIFY(m_page->writes.isEmpty());
    }

    void failedWriteShowsTheOldValue()
    {
        open({"Boolean"_s, "Enumeration"_s, "Integer"_s, "String"_s});
        m_page->answer = false;
        auto* check = m_page->editor<ZELCustomCheckBox>("Boolean"_s);
        QTest::mouseClick(check, Qt::LeftButton, {}, QPoint(8, check->height() / 2));
        QVERIFY(!check->isChecked());
        auto* combo = m_page->editor<ZELCustomComboBox>("Enumeration"_s);
        combo->setCurrentIndex(1);
        QCOMPARE(combo->currentIndex(), 0);
        auto* spin = m_page->editor<ORXPropertySpinBox>("Integer"_s);
        spin->stepUp();
        QCOMPARE(spin->value(), qlonglong(10));
        auto* edit = m_page->editor<QPropertyLineEdit>("String"_s);
        enter(edit, "x"_s);
        QCOMPARE(edit->text(), "text"_s);
        QCOMPARE(m_page->writes.size(), 4);
    }

    void spinBoxGrid_data()
    {
        const Rows<qlonglong, qlonglong, qlonglong, QString, qlonglong> row(
            "minimum", "maximum", "step", "typed", "written");
        const qlonglong low = INT64_MIN;
        const qlonglong high = INT64_MAX;
        row("down onto the grid", 3, 100, 4, "13", 11);
        row("above the maximum", 3, 100, 4, "400", 99);
        row("maximum off the grid", 0, 10, 4, "10", 8);
        row("at the minimum", 3, 100, 4, "3", 3);
        row("below the minimum", 3, 100, 4, "-8", 3);
        row("step 0 is no grid", 0, 100, 0, "13", 13);
        row("negative step is no grid", 0, 100, -5, "13", 13);
        row("whole range, top", low, high, 1, QString::number(high), high);
        row("whole range, coarse", low, high, high, QString::number(high), high - 1);
        row("whole range, bottom", low, high, 7, QString::number(low), low);
    }

    void spinBoxGrid()
    {
        const auto [minimum, maximum, step, typed, written] =
            fetchRow<qlonglong, qlonglong, qlonglong, QString, qlonglong>();
        open({"Integer"_s});
        auto* value = valueOf<CTreeIntergerItemValue>(item("Integer"));
        value->setNumbers({minimum + 7, minimum, maximum, step}); // 7: none of the typed values
        refill(item("Integer"));
        auto* spin = m_page->editor<ORXPropertySpinBox>("Integer"_s);
        enter(spin, typed);
        QCOMPARE(m_page->writes.size(), 1);
        QCOMPARE(m_page->lastWritten, QVariant(written));
        QCOMPARE(spin->value(), written);
    }

    void spinBoxWritesOncePerEdit()
    {
        open({"Integer"_s, "Boolean"_s});
        auto* spin = m_page->editor<ORXPropertySpinBox>("Integer"_s);
        type(spin, "42"_s);
        QVERIFY(m_page->writes.isEmpty());
        editor("Boolean")->setFocus();
        QCOMPARE(m_page->writes, QStringList("Integer 42"_s));
        spin->setFocus();
        QTest::keyClick(spin, Qt::Key_Up); // a step writes at once
        QCOMPARE(m_page->writes, (QStringList{"Integer 42"_s, "Integer 43"_s}));
    }

    void enumerationIsWrittenByItsEnglishList()
    {
        open({"Enumeration"_s});
        Item* feature = item("Enumeration");
        const auto fill = [&](const QStringList& english, const QStringList& chinese,
                              const QVector<qint64>& numbers, qint64 current) {
            setEntries(feature, english, chinese, numbers, current);
            refill(feature);
        };
        const QStringList english = {"Off"_s, "Once"_s, "Continuous"_s};
        const QStringList chinese = {"\u5173"_s, "\u5f00"_s, "\u5f00"_s};
        ORXInterface::setLanguage("CH"_s);
        // Two numbers have the text "Continuous"; the first one is written. It needs 32 bits.
        fill(english, chinese, {0, 1, 4000000000LL, 4000000001LL}, 0);
        auto* combo = m_page->editor<ZELCustomComboBox>("Enumeration"_s);
        QCOMPARE(combo->itemText(2), chinese.at(2));
        combo->setItemData(0, "marked"_s);
        refill(feature); // an equal list may be open right now
        QCOMPARE(combo->itemData(0).toString(), "marked"_s);
        combo->setCurrentIndex(2);
        QCOMPARE(m_page->lastWritten.toLongLong(), 4000000000LL);
        QCOMPARE(combo->currentIndex(), 2);
        fill(english, {}, {0, 1, 2}, 1);
        QCOMPARE(combo->currentText(), "Once"_s); // no Chinese list
        fill(english, {}, {0, 1, 2}, 99);         // no such entry
        QCOMPARE(combo->currentIndex(), -1);
        QVERIFY(combo->isEnabled());
        combo->setCurrentIndex(0);
        QCOMPARE(m_page->writes, (QStringList{"Enumeration 4000000000"_s, "Enumeration 0"_s}));
        fill({}, {}, {}, 0); // nothing to write
        QCOMPARE(combo->count(), 0);
        QCOMPARE(m_page->writes.size(), 2);
    }

    void checkBoxesWriteTheirColumn()
    {
        open({"Boolean"_s, "CustomTagNameWatermark"_s});
        QTest::keyClick(editor("Boolean"), Qt::Key_Space);
        Item* boxes = row(1);
        auto* left = qobject_cast<ZELCustomCheckBox*>(view()->editorOf(boxes, 0));
        auto* right = qobject_cast<ZELCustomCheckBox*>(view()->editorOf(boxes, 1));
        left->click();
        right->click();
        QCOMPARE(m_page->writes, (QStringList{"Boolean true"_s, "CustomTagNameWatermark0 true"_s,
                                              "CustomTagNameWatermark1 true"_s}));
        auto* value = valueOf<CTreeCustomWaterMarkItemValue>(boxes);
        QCOMPARE(value->checkState(0), int(Qt::Checked));
        value->setColumnDisabled(0, true);
        refill(boxes);
        QVERIFY(!left->isEnabled() && right->isEnabled());
    }

    void clickGuard()
    {
        m_page->makeRoot = [this] {
            Item* root = m_page->addGroupOfTags({"Command"_s});
            m_page->add(root->child(0), "TriggerSoftware"_s, "Command");
            return root;
        };
        m_page->open();
        const auto clicks = [this](const char* name) {
            m_page->writes.clear();
            auto* button = m_page->editor<ZELCustomPushButton>(QString::fromLatin1(name));
            button->cSetClickClock([] { return qint64(0); }); // all clicks at the same moment
            for (int i = 0; i < 3; ++i)
                QTest::mouseClick(button, Qt::LeftButton);
            return int(m_page->writes.size());
        };
        QCOMPARE(clicks("Command"), 1);
        QCOMPARE(clicks("TriggerSoftware"), 3);
    }

    void viewsOwnCommitsWriteNothing()
    {
        open({"String"_s});
        auto* edit = m_page->editor<QPropertyLineEdit>("String"_s);
        edit->setText("typed"_s);
        view()->treeDelegate()->setModelData(edit, view()->model(), index(item("String"), 1));
        emit view()->treeDelegate()->commitData(edit);
        QVERIFY(m_page->writes.isEmpty());
    }
};

OBFT_TEST_MAIN(TestEditorCommits)
#include "tst_editorcommits.moc"
