// SPDX-License-Identifier: Apache-2.0
// What the editors say to screen readers and the like.
#include "basetools/ORXInterface.h"
#include "model/CTreeBooleanItemValue.h"
#include "tree/EditorTest.h"

#include <QAccessible>

class TestAssistiveTechnology : public EditorTest
{
    Q_OBJECT

    static QString textOf(QWidget* widget, QAccessible::Text kind)
    {
        return QAccessible::queryAccessibleInterface(widget)->text(kind);
    }

private slots:
    void editors_data()
    {
        const Rows<QString, QAccessible::Role, QString> row("tag", "role", "value");
        row.of("Boolean", QAccessible::CheckBox, "checked");
        row.of("Command", QAccessible::Button, "");
        row.of("Integer", QAccessible::SpinBox, "10");
        row.of("IntReg", QAccessible::SpinBox, "10");
        row.of("Enumeration", QAccessible::ComboBox, "Off");
        row.of("Float", QAccessible::EditableText, "1.5000");
        row.of("Converter", QAccessible::EditableText, "1.5000");
        row.of("StringReg", QAccessible::EditableText, "text");
        row.of("String", QAccessible::EditableText, "text");
        row.of("CustomTagNamePalettesMode", QAccessible::ComboBox, "Off");
    }

    void editors()
    {
        QFETCH(QString, tag);
        open({tag});
        Item* feature = m_page->item(tag);
        feature->value()->setDisplayName("Gain & <Offset>"_s);
        feature->value()->setTranslateName("增益"_s);
        if (auto* box = valueOf<CTreeBooleanItemValue>(feature))
            box->setValue(true);
        refill(feature);
        QWidget* editor = m_page->anyEditor(tag);
        QTRY_COMPARE(textOf(editor, QAccessible::Name), "Gain & <Offset>"_s);
        const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(editor);
        QTEST(told->role(), "role");
        const QString value =
            told->state().checked ? "checked"_s : textOf(editor, QAccessible::Value);
        QTEST(value, "value");
        QVERIFY(!told->state().disabled);
        QCOMPARE(editor->accessibleDescription(), QString());

        m_page->reason = "Locked by somebody"_s;
        feature->setReadOnly(true, ReadOnlyCause::Locked);
        QVERIFY(feature->endUpdateItem(1));
        QTRY_COMPARE(textOf(editor, QAccessible::Description), "Locked by somebody"_s);
        QVERIFY(told->state().disabled);
        // The decider was read, the feature itself says nothing new.
        m_page->reason = "Locked by somebody (1)"_s;
        m_page->treeView()->describeEditors();
        QCOMPARE(textOf(editor, QAccessible::Description), "Locked by somebody (1)"_s);

        feature->setReadOnly(false);
        feature->endUpdateItem(1);
        QTRY_COMPARE(editor->accessibleDescription(), QString());
        ORXInterface::setLanguage("CH"_s);
        refill(feature);
        QTRY_COMPARE(textOf(editor, QAccessible::Name), "增益"_s);
    }

    void boxesOfTwo()
    {
        open({"CustomTagNameEvent"_s});
        QCOMPARE(textOf(m_page->anyEditor("CustomTagNameEvent0"_s, 0), QAccessible::Name),
                 "Left"_s);
        QCOMPARE(textOf(m_page->anyEditor("CustomTagNameEvent0"_s, 1), QAccessible::Name),
                 "Right"_s);
    }

    void numbersOfASpinBox()
    {
        open({"Integer"_s});
        QWidget* editor = m_page->anyEditor("Integer"_s);
        QAccessibleValueInterface* value =
            QAccessible::queryAccessibleInterface(editor)->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toLongLong(), 10LL);
        QCOMPARE(value->minimumValue().toLongLong(), 0LL);
        QCOMPARE(value->maximumValue().toLongLong(), 100LL);
        value->setCurrentValue(11);
        QTRY_COMPARE(m_page->writes, QStringList{"Integer 11"_s});
    }
};

OBFT_TEST_MAIN(TestAssistiveTechnology)
#include "tst_assistivetechnology.moc"
