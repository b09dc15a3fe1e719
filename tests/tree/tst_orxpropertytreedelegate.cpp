// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/EditorTest.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/editors/ExternalEditor.h"

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>

namespace {

const QStringList kTags =
    words("Boolean Command Integer IntReg Enumeration Float Converter StringReg String "
          "CustomTagNameWatermark CustomTagNameEvent CustomTagNamePalettesMode "
          "CustomTagNameFlatFieldCorrection");

} // namespace

class TestORXPropertyTreeDelegate : public EditorTest
{
    Q_OBJECT

    static void tags()
    {
        const Rows<QString> row("tag");
        for (const QString& tag : kTags)
            row.of(tag.toLatin1());
    }
    // With a value that is another one in each round.
    void fill(Item* feature, int round, const QString& representation = QString())
    {
        if (auto* boxes = valueOf<CTreeCustomWaterMarkItemValue>(feature)) {
            for (const int column : {0, 1})
                boxes->setCheckState(column, round % 2 ? Qt::Checked : Qt::Unchecked);
        } else if (valueOf<CTreeEnumationItemValue>(feature)) {
            setEntries(feature, {"A%1"_s.arg(round), "B"_s, "C"_s}, {}, {0, 1, 2}, round % 3);
        } else if (valueOf<CTreeIntergerItemValue>(feature)) {
            setInteger(feature, 1234567890 + round, 10 * round, INT32_MAX, round + 1,
                       representation.toLatin1());
        } else if (auto* text = valueOf<CTreeStringItemValue>(feature)) {
            text->setText(QString::number(round) + QString(60, QLatin1Char('w')), 64);
        } else {
            feature->value()->setValue(1.5F + static_cast<float>(round));
        }
        refill(feature);
    }
    static QString textOf(QWidget* widget, QAccessible::Text kind)
    {
        return QAccessible::queryAccessibleInterface(widget)->text(kind);
    }

private slots:
    void editorsOfIntegers_data()
    {
        const Rows<QString, qint64, bool> row("representation", "maximum", "typed");
        row("none", "", 100, false);
        row("hexadecimal", "HexNumber", 100, true);
        row("hardware address", "MACAddress", 100, true);
        const qint64 largest = 1125899906842623; // in a spin box
        row("at the limit of spin boxes", "Linear", largest, false);
        row("above it", "Linear", largest + 1, true);
        row("none, above it", "", largest + 1, true);
    }

    void editorsOfIntegers()
    {
        const auto [representation, maximum, typed] = fetchRow<QString, qint64, bool>();
        open({"Integer"_s});
        Item* width = item("Integer");
        setInteger(width, 10, 0, maximum, 1, representation.toLatin1().constData());
        width->endUpdateItem(1);
        // The first status names no representation yet; the next change of it makes a new editor.
        view()->openPersistentEdit(width, true);
        QTRY_VERIFY(editor("Integer"));
        QCOMPARE(qobject_cast<QPropertyLineEdit*>(editor("Integer")) != nullptr, typed);
        setInteger(width, 10, 0, 100, 1, typed ? "Linear" : "HexNumber");
        QVERIFY(width->endUpdateItem(1));
        QCOMPARE(qobject_cast<QPropertyLineEdit*>(editor("Integer")) != nullptr, !typed);
    }

    void longValuesShowTheirStart_data()
    {
        const Rows<QString, QString> row("tag", "representation");
        row("text", "String", "");
        row("float", "Float", "");
        row("number in a spin box", "Integer", "");
        row("hexadecimal", "Integer", "HexNumber");
    }

    void longValuesShowTheirStart()
    {
        const auto [tag, representation] = fetchRow<QString, QString>();
        open({tag, "Boolean"_s});
        Item* feature = m_page->item(tag);
        const auto edit = [&] { return lineEdit(view()->editorOf(feature)); };
        fill(feature, 0, representation);
        view()->openPersistentEdit(feature, true);
        QTRY_VERIFY(view()->editorOf(feature));
        QCOMPARE(edit()->cursorPosition(), 0);
        fill(feature, 1, representation);
        QCOMPARE(edit()->cursorPosition(), 0);
        QEvent language(QEvent::LanguageChange);
        QCoreApplication::sendEvent(view(), &language);
        QCOMPARE(edit()->cursorPosition(), 0);

        // Not from under the hands of the user.
        type(edit(), "57"_s);
        fill(feature, 2, representation);
        QCOMPARE(edit()->text(), "57"_s);
        QCOMPARE(edit()->cursorPosition(), 2);
        QTest::keyClick(edit(), Qt::Key_Return);
        QCOMPARE(m_page->writes.size(), 1);
        editor("Boolean")->setFocus();
        QCOMPARE(edit()->cursorPosition(), 0);
        fill(feature, 3, representation);
        QCOMPARE(edit()->cursorPosition(), 0);
        edit()->setFocus();
        QTest::keyClick(edit(), Qt::Key_End);
        editor("Boolean")->setFocus();
        QCOMPARE(edit()->cursorPosition(), 0);
    }

    void cutEntriesHaveAToolTip()
    {
        open({"Enumeration"_s});
        Item* feature = item("Enumeration");
        const QString longName(80, QLatin1Char('w'));
        setEntries(feature, {longName, "Off"_s}, {}, {0, 1}, 0);
        refill(feature);
        auto* box = qobject_cast<QComboBox*>(editor("Enumeration"));
        QCOMPARE(box->toolTip(), longName);
        QCOMPARE(box->itemData(0, Qt::ToolTipRole).toString(), longName);
        box->setCurrentIndex(1);
        QCOMPARE(box->toolTip(), "Off"_s);
    }

    void fillingNeverCommits_data() { tags(); }
    void fillingNeverCommits()
    {
        QFETCH(QString, tag);
        open({tag});
        Item* feature = row(0);
        QVERIFY(view()->editorOf(feature));
        QSignalSpy committed(view()->treeDelegate(), &QAbstractItemDelegate::commitData);
        for (int round = 1; round <= 3; ++round) {
            feature->setReadOnly(round == 2);
            fill(feature, round);
        }
        QCOMPARE(committed.size(), 0);
        QVERIFY(m_page->writes.isEmpty());
    }

    void editorsStandInTheirCellsAndCanBeLocked_data() { tags(); }
    void editorsStandInTheirCellsAndCanBeLocked()
    {
        QFETCH(QString, tag);
        open({tag});
        Item* feature = row(0);
        const QWidget* widget = view()->editorOf(feature);
        const QRect place = widget->geometry();
        const QRect cell = view()->visualRect(index(feature, 1));
        QCOMPARE(cell.height(), 38);
        QVERIFY(cell.top() <= place.top() && place.bottom() <= cell.bottom());
        QVERIFY(qAbs(place.center().y() - cell.center().y()) <= 1);
        const bool wide = tag == QLatin1String("CustomTagNamePalettesMode");
        QVERIFY2(wide ? place.left() == 20 : place.left() > cell.left(),
                 qPrintable(QString::number(place.left())));
        QVERIFY(place.right() < cell.right());
        if (const QWidget* name = view()->editorOf(feature, 0))
            QVERIFY(name->geometry().right() <= cell.left());

        QVERIFY(widget->isVisible() && widget->isEnabled());
        if (!valueOf<CTreeCustomWaterMarkItemValue>(feature)) { // its columns have their own flags
            feature->setReadOnly(true);
            refill(feature);
            QCOMPARE(widget->isEnabled(), tag == "CustomTagNameFlatFieldCorrection"_s);
            feature->setReadOnly(false);
        }
        m_page->setIsCanEdit(false);
        QVERIFY(!widget->isEnabled());
        m_page->setIsCanEdit(true);
        QVERIFY(widget->isEnabled());
        feature->value()->setEnabled(false);
        refill(feature);
        QVERIFY(!widget->isEnabled());
    }

    void palettesShowPictures()
    {
        open({"CustomTagNamePalettesMode"_s});
        const QString name = "CustomTagNamePalettesMode"_s;
        QStringList english;
        QVector<qint64> numbers;
        for (int i = 0; i < 15; ++i) {
            english.append("Palette %1"_s.arg(i));
            numbers.append(i);
        }
        setEntries(m_page->item(name), english, {}, numbers, 3);
        refill(m_page->item(name));
        auto* combo = m_page->editor<ZELCustomComboBox>(name);
        QCOMPARE(combo->currentIndex(), 3);
        for (int i = 0; i < 14; ++i)
            QVERIFY2(!combo->itemIcon(i).availableSizes().isEmpty(), qPrintable(english.at(i)));
        QVERIFY(combo->itemIcon(14).availableSizes().isEmpty());
        QVERIFY(!combo->itemData(0).isValid());
        QCOMPARE(combo->cCaption(), m_page->item(name)->value()->displayName());
        combo->setCurrentIndex(4);
        QCOMPARE(m_page->writes, QStringList(name + " 4"_s));
    }

    void buttonsExecute()
    {
        open({"Command"_s, "CustomTagNameFlatFieldCorrection"_s});
        auto* command = m_page->editor<ZELCustomPushButton>("Command"_s);
        auto* tool = m_page->editor<ZELCustomPushButton>("CustomTagNameFlatFieldCorrection"_s);
        QCOMPARE(command->text(), "Execute"_s);
        QCOMPARE(tool->text(), "Open Tool"_s);
        QVERIFY(!tool->icon().availableSizes().isEmpty());
        QTest::mouseClick(command, Qt::LeftButton);
        QVERIFY(!m_page->lastWritten.isValid());
        QTest::mouseClick(tool, Qt::LeftButton);
        QCOMPARE(m_page->writes.size(), 2);
        ORXInterface::setLanguage("CH"_s);
        QEvent language(QEvent::LanguageChange);
        QCoreApplication::sendEvent(view(), &language);
        QCOMPARE(command->text(), "\u6267\u884c"_s);
        QCOMPARE(tool->text(), "\u6253\u5f00\u5de5\u5177"_s);
    }

    void externalEditorIsFilled()
    {
        ExternalEditor::registerEditor(
            FeatureTag::CCM, [](QWidget* parent, Item*) { return new QLabel(parent); },
            [](QWidget* label, Item* matrix) {
                qobject_cast<QLabel*>(label)->setText(matrix->value()->displayName());
            });
        open({"CustomTagNameCCM"_s});
        auto* label = m_page->editor<QLabel>("CustomTagNameCCM"_s);
        QCOMPARE(label->text(), "CustomTagNameCCM"_s);
        QCOMPARE(label->x(), 20);
        QVERIFY(label->height() > 120);
        item("CustomTagNameCCM")->value()->setDisplayName("Matrix"_s);
        refill(item("CustomTagNameCCM"));
        QCOMPARE(label->text(), "Matrix"_s);
    }

    void rowsArePainted()
    {
        open(kTags);
        const auto picture = [this] { return view()->viewport()->grab().toImage(); };
        const QImage plain = picture();
        item("Integer")->setSearchText("teg"_s, 1);
        const QImage marked = picture();
        QVERIFY(marked != plain);
        view()->treeDelegate()->setCurMoveItem(item("Float"));
        const QImage dropping = picture();
        QVERIFY(dropping != marked);
        const QRect moved = view()->visualRect(index(item("Float")));
        for (int y = 0; y < plain.height(); ++y) {
            if (y < moved.top() - 1 || y > moved.top() + 1)
                QCOMPARE(dropping.copy(0, y, plain.width(), 1),
                         marked.copy(0, y, plain.width(), 1));
        }
    }

    void whatScreenReadersAreTold_data()
    {
        const Rows<QString, QAccessible::Role, QString> row("tag", "role", "value");
        row.of("Boolean", QAccessible::CheckBox, "checked");
        row.of("Command", QAccessible::Button, "");
        row.of("Integer", QAccessible::SpinBox, "10");
        row.of("Enumeration", QAccessible::ComboBox, "Off");
        row.of("Float", QAccessible::EditableText, "1.5000");
        row.of("String", QAccessible::EditableText, "text");
        row.of("CustomTagNamePalettesMode", QAccessible::ComboBox, "Off");
    }

    void whatScreenReadersAreTold()
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
        view()->describeEditors();
        QCOMPARE(textOf(editor, QAccessible::Description), "Locked by somebody (1)"_s);

        feature->setReadOnly(false);
        feature->endUpdateItem(1);
        QTRY_COMPARE(editor->accessibleDescription(), QString());
        ORXInterface::setLanguage("CH"_s);
        refill(feature);
        QTRY_COMPARE(textOf(editor, QAccessible::Name), "增益"_s);
    }

    void boxesOfTwoAndNumbers()
    {
        open({"Integer"_s, "CustomTagNameEvent"_s});
        const auto boxName = [this](int column) {
            return textOf(view()->editorOf(row(1), column), QAccessible::Name);
        };
        QCOMPARE(boxName(0), "Left"_s);
        QCOMPARE(boxName(1), "Right"_s);
        QAccessibleValueInterface* value =
            QAccessible::queryAccessibleInterface(editor("Integer"))->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toLongLong(), 10LL);
        QCOMPARE(value->minimumValue().toLongLong(), 0LL);
        QCOMPARE(value->maximumValue().toLongLong(), 100LL);
        value->setCurrentValue(11);
        QTRY_COMPARE(m_page->writes, QStringList{"Integer 11"_s});
    }
};

OBFT_TEST_MAIN(TestORXPropertyTreeDelegate)
#include "tst_orxpropertytreedelegate.moc"
