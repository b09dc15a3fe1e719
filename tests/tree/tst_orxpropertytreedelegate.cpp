// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "basetools/ORXInterface.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/TestPage.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

using Item = ORXPropertyTreeItem;

namespace {

const char* const kTags[] = {"Boolean",
                             "Command",
                             "Integer",
                             "IntReg",
                             "Enumeration",
                             "Float",
                             "Converter",
                             "StringReg",
                             "String",
                             "CustomTagNameWatermark",
                             "CustomTagNameEvent",
                             "CustomTagNamePalettesMode",
                             "CustomTagNameFlatFieldCorrection"};

QStringList allTags()
{
    QStringList tags;
    for (const char* tag : kTags)
        tags.append(QString::fromLatin1(tag));
    return tags;
}

template <typename Value>
Value* valueOf(Item* item)
{
    return dynamic_cast<Value*>(item->value());
}

void setInteger(Item* item, qint64 value, qint64 minimum, qint64 maximum, qint64 step,
                const char* representation = "")
{
    auto* typed = valueOf<CTreeIntergerItemValue>(item);
    typed->setNumbers({value, minimum, maximum, step});
    typed->setRepresentation(QString::fromLatin1(representation));
}

// Entries named in English and Chinese, numbered by `numbers`.
void setEntries(Item* item, const QStringList& english, const QStringList& chinese,
                const QVector<qint64>& numbers, qint64 current)
{
    QMap<qint64, QString> map;
    for (int i = 0; i < numbers.size(); ++i)
        map.insert(numbers.at(i), english.at(qMin(i, english.size() - 1)));
    auto* typed = valueOf<CTreeEnumationItemValue>(item);
    typed->replaceEnumList(english, chinese, map, {});
    typed->setNumber(current);
}

} // namespace

class TestORXPropertyTreeDelegate : public GuardedTest
{
    Q_OBJECT
private slots:
    void editorsOfIntegers_data();
    void editorsOfIntegers();
    void fillingNeverCommits_data();
    void fillingNeverCommits();
    void readOnlyAndCanEditDisable_data();
    void readOnlyAndCanEditDisable();
    void readOnlyItemsAreNeverWritten_data();
    void readOnlyItemsAreNeverWritten();
    void typedTextSurvivesARead_data();
    void typedTextSurvivesARead();
    void escapeShowsWhatCameMeanwhile();
    void lineEditsWriteOnce_data();
    void lineEditsWriteOnce();
    void aRoundedTextIsNoEdit();
    void invalidTextIsRolledBack();
    void failedWriteShowsTheOldValue();
    void spinBoxGrid_data();
    void spinBoxGrid();
    void spinBoxWritesOncePerEdit();
    void enumerationIsWrittenByItsEnglishList();
    void enumerationWithoutMatchCanBeSet();
    void palettesShowPictures();
    void checkBoxesWriteTheirColumn();
    void buttonsExecute();
    void clickGuard();
    void externalEditorIsFilled();
    void viewsOwnCommitsWriteNothing();
    void closingAnEditorWritesNothing();
    void editorsStandInTheirCells_data();
    void editorsStandInTheirCells();
    void rowsArePainted();

protected:
    void prepare() override;
    void finish() override;

private:
    void open(const QStringList& tags);
    Item* item(const char* name) { return m_page->item(QString::fromLatin1(name)); }
    QWidget* editor(const char* name) { return m_page->anyEditor(QString::fromLatin1(name)); }
    void refill(Item* changed);

    TestPage* m_page = nullptr;
};

void TestORXPropertyTreeDelegate::prepare()
{
    ApplicationSetup::runOnce();
    m_page = new TestPage;
}

void TestORXPropertyTreeDelegate::finish()
{
    delete m_page;
    ORXInterface::setLanguage(QStringLiteral("ENG"));
}

void TestORXPropertyTreeDelegate::open(const QStringList& tags)
{
    m_page->makeRoot = [this, tags] { return m_page->addGroupOfTags(tags); };
    m_page->getRootItem(1, true);
    Item* group = m_page->getRootItem(1, false)->child(0);
    const QVector<Item*> features = group->children();
    for (Item* feature : features) {
        if (auto* boxes = valueOf<CTreeCustomWaterMarkItemValue>(feature)) {
            boxes->setColumn(0, feature->tagName() + QStringLiteral("0"), QStringLiteral("Left"));
            boxes->setColumn(1, feature->tagName() + QStringLiteral("1"), QStringLiteral("Right"));
        } else if (valueOf<CTreeEnumationItemValue>(feature)) {
            setEntries(feature, {QStringLiteral("Off"), QStringLiteral("Once")}, {}, {0, 5}, 0);
        } else if (valueOf<CTreeIntergerItemValue>(feature)) {
            setInteger(feature, 10, 0, 100, 1);
        } else if (auto* number = valueOf<CTreeFloatItemValue>(feature)) {
            number->setNumbers({1.5F, 0.0F, 100.0F});
        } else if (auto* text = valueOf<CTreeStringItemValue>(feature)) {
            text->setText(QStringLiteral("text"), 64);
        }
    }
    m_page->open();
}

void TestORXPropertyTreeDelegate::refill(Item* changed)
{
    changed->notifyViewUpdate(1, -1, false);
}

void TestORXPropertyTreeDelegate::editorsOfIntegers_data()
{
    QTest::addColumn<QString>("representation");
    QTest::addColumn<qint64>("maximum");
    QTest::addColumn<bool>("typed");
    QTest::newRow("none") << QString() << qint64(100) << false;
    QTest::newRow("linear") << QStringLiteral("Linear") << qint64(100) << false;
    QTest::newRow("pure number") << QStringLiteral("PureNumber") << qint64(100) << true;
    QTest::newRow("hexadecimal") << QStringLiteral("HexNumber") << qint64(100) << true;
    QTest::newRow("address") << QStringLiteral("IPV4Address") << qint64(100) << true;
    QTest::newRow("hardware address") << QStringLiteral("MACAddress") << qint64(100) << true;
    QTest::newRow("too large for a spin box") << QStringLiteral("Linear") << qint64(INT64_MAX)
                                              << true;
}

void TestORXPropertyTreeDelegate::editorsOfIntegers()
{
    QFETCH(QString, representation);
    QFETCH(qint64, maximum);
    QFETCH(bool, typed);
    open({QStringLiteral("Integer")});
    Item* width = item("Integer");
    setInteger(width, 10, 0, maximum, 1, representation.toLatin1().constData());
    width->endUpdateItem(1);
    // The first status names no representation yet; the next change of it makes a new editor.
    m_page->treeView()->openPersistentEdit(width, true);
    QTRY_VERIFY(editor("Integer"));
    QCOMPARE(qobject_cast<QPropertyLineEdit*>(editor("Integer")) != nullptr, typed);
    setInteger(width, 10, 0, 100, 1, typed ? "Linear" : "HexNumber");
    QVERIFY(width->endUpdateItem(1));
    QCOMPARE(qobject_cast<QPropertyLineEdit*>(editor("Integer")) != nullptr, !typed);
}

void TestORXPropertyTreeDelegate::fillingNeverCommits_data()
{
    QTest::addColumn<QString>("tag");
    for (const char* tag : kTags)
        QTest::newRow(tag) << QString::fromLatin1(tag);
}

void TestORXPropertyTreeDelegate::fillingNeverCommits()
{
    QFETCH(QString, tag);
    open({tag});
    Item* feature = m_page->item(tag);
    if (!feature) // of the two boxes the first one names the item
        feature = m_page->item(tag + QLatin1Char('0'));
    QVERIFY(m_page->treeView()->editorOf(feature));
    QSignalSpy committed(m_page->treeView()->treeDelegate(), &QAbstractItemDelegate::commitData);
    for (int round = 1; round <= 3; ++round) {
        if (auto* boxes = valueOf<CTreeCustomWaterMarkItemValue>(feature)) {
            boxes->setCheckState(0, round % 2 ? Qt::Checked : Qt::Unchecked);
            boxes->setCheckState(1, round % 2 ? Qt::Checked : Qt::Unchecked);
        } else if (valueOf<CTreeEnumationItemValue>(feature)) {
            setEntries(feature,
                       {QStringLiteral("A%1").arg(round), QStringLiteral("B"), QStringLiteral("C")},
                       {}, {0, 1, 2}, round % 3);
        } else if (valueOf<CTreeIntergerItemValue>(feature)) {
            setInteger(feature, 20 * round, 10 * round, 100, round);
        } else {
            feature->value()->setValue(round);
        }
        feature->setReadOnly(round == 2);
        refill(feature);
    }
    QCOMPARE(committed.size(), 0);
    QVERIFY(m_page->writes.isEmpty());
}

void TestORXPropertyTreeDelegate::readOnlyAndCanEditDisable_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<bool>("usableWhenReadOnly");
    for (const char* tag : kTags)
        QTest::newRow(tag) << QString::fromLatin1(tag)
                           << QLatin1String(tag).startsWith(QLatin1String("CustomTagNameFlat"));
}

void TestORXPropertyTreeDelegate::readOnlyAndCanEditDisable()
{
    QFETCH(QString, tag);
    QFETCH(bool, usableWhenReadOnly);
    open({tag});
    Item* feature = m_page->getRootItem(1, false)->child(0)->child(0);
    const QWidget* widget = m_page->treeView()->editorOf(feature);
    QVERIFY(widget->isEnabled());
    if (!valueOf<CTreeCustomWaterMarkItemValue>(feature)) { // its columns have flags of their own
        feature->setReadOnly(true);
        refill(feature);
        QCOMPARE(widget->isEnabled(), usableWhenReadOnly);
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

void TestORXPropertyTreeDelegate::readOnlyItemsAreNeverWritten_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("written");
    QTest::newRow("boolean") << QStringLiteral("Boolean") << QString();
    QTest::newRow("command") << QStringLiteral("Command") << QString();
    QTest::newRow("flat field") << QStringLiteral("CustomTagNameFlatFieldCorrection")
                                << QStringLiteral("CustomTagNameFlatFieldCorrection ");
}

void TestORXPropertyTreeDelegate::readOnlyItemsAreNeverWritten()
{
    QFETCH(QString, tag);
    QFETCH(QString, written);
    open({tag});
    // It became read-only, but the editor has not been told yet.
    m_page->item(tag)->setReadOnly(true);
    QTest::mouseClick(m_page->anyEditor(tag), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(m_page->writes.join(QLatin1Char('|')), written);
}

void TestORXPropertyTreeDelegate::typedTextSurvivesARead_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QVariant>("read");
    QTest::addColumn<QString>("written");
    QTest::newRow("text") << QStringLiteral("String") << QVariant(QStringLiteral("other"))
                          << QStringLiteral("7");
    QTest::newRow("float") << QStringLiteral("Float") << QVariant(3.5F) << QStringLiteral("7");
    QTest::newRow("integer") << QStringLiteral("Integer") << QVariant(50) << QStringLiteral("7");
}

void TestORXPropertyTreeDelegate::typedTextSurvivesARead()
{
    QFETCH(QString, tag);
    QFETCH(QVariant, read);
    QFETCH(QString, written);
    open({tag});
    Item* feature = m_page->item(tag);
    QWidget* widget = m_page->anyEditor(tag);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, QStringLiteral("7"));
    feature->value()->setValue(read);
    feature->endUpdateItem(1);
    auto* edit = qobject_cast<QLineEdit*>(widget);
    if (!edit)
        edit = widget->findChild<QLineEdit*>();
    QCOMPARE(edit->text(), QStringLiteral("7"));
    QVERIFY(widget->hasFocus());
    QCOMPARE(m_page->anyEditor(tag), widget);
    QTest::keyClick(widget, Qt::Key_Return);
    QCOMPARE(m_page->writes, QStringList(tag + QLatin1Char(' ') + written));
}

void TestORXPropertyTreeDelegate::escapeShowsWhatCameMeanwhile()
{
    open({QStringLiteral("String"), QStringLiteral("Integer")});
    for (const char* name : {"String", "Integer"}) {
        QWidget* widget = editor(name);
        widget->setFocus();
        QTest::keyClicks(widget, QStringLiteral("7"));
        item(name)->value()->setValue(50);
        item(name)->endUpdateItem(1);
        QTest::keyClick(widget, Qt::Key_Escape);
        QVERIFY(widget->hasFocus()); // the first Escape takes the text back
    }
    QTRY_COMPARE(qobject_cast<QLineEdit*>(editor("String"))->text(), QStringLiteral("50"));
    QTRY_COMPARE(qobject_cast<ORXPropertySpinBox*>(editor("Integer"))->value(), qlonglong(50));
    QVERIFY(m_page->writes.isEmpty());
}

void TestORXPropertyTreeDelegate::lineEditsWriteOnce_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("representation");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("written");
    QTest::newRow("text") << QStringLiteral("String") << QString() << QStringLiteral("lab")
                          << QVariant(QStringLiteral("lab"));
    QTest::newRow("float") << QStringLiteral("Float") << QString() << QStringLiteral("2.5")
                           << QVariant(2.5F);
    QTest::newRow("converter") << QStringLiteral("Converter") << QString() << QStringLiteral("-1")
                               << QVariant(1e-6F);
    QTest::newRow("pure number") << QStringLiteral("Integer") << QStringLiteral("PureNumber")
                                 << QStringLiteral("250") << QVariant(qlonglong(100));
    QTest::newRow("hexadecimal") << QStringLiteral("IntReg") << QStringLiteral("HexNumber")
                                 << QStringLiteral("0x1F") << QVariant(qlonglong(31));
    QTest::newRow("address") << QStringLiteral("Integer") << QStringLiteral("IPV4Address")
                             << QStringLiteral("10.0.0.2") << QVariant(qlonglong(0x0A000002));
}

void TestORXPropertyTreeDelegate::lineEditsWriteOnce()
{
    QFETCH(QString, tag);
    QFETCH(QString, representation);
    QFETCH(QString, typed);
    QFETCH(QVariant, written);
    open({tag, QStringLiteral("Boolean")});
    if (!representation.isEmpty()) {
        setInteger(m_page->item(tag), 10, 0, 100, 1, representation.toLatin1().constData());
        m_page->treeView()->openPersistentEdit(m_page->item(tag), true);
        QTRY_VERIFY(m_page->editor<QPropertyLineEdit>(tag));
    }
    auto* edit = m_page->editor<QPropertyLineEdit>(tag);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, typed);
    QVERIFY(m_page->writes.isEmpty());
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_page->writes.size(), 1);
    QCOMPARE(m_page->lastWritten, written);
    editor("Boolean")->setFocus();
    QCOMPARE(m_page->writes.size(), 1);
}

void TestORXPropertyTreeDelegate::aRoundedTextIsNoEdit()
{
    open({QStringLiteral("Float"), QStringLiteral("Boolean")});
    valueOf<CTreeFloatItemValue>(item("Float"))->setNumber(1.23456F);
    refill(item("Float"));
    auto* edit = m_page->editor<QPropertyLineEdit>(QStringLiteral("Float"));
    QCOMPARE(edit->text(), QStringLiteral("1.2346"));
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_End);
    editor("Boolean")->setFocus();
    QVERIFY(m_page->writes.isEmpty());
    QCOMPARE(item("Float")->value()->value().toFloat(), 1.23456F);
}

void TestORXPropertyTreeDelegate::invalidTextIsRolledBack()
{
    open({QStringLiteral("Float"), QStringLiteral("Boolean")});
    auto* edit = m_page->editor<QPropertyLineEdit>(QStringLiteral("Float"));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("1,5"));
    editor("Boolean")->setFocus();
    QCOMPARE(edit->text(), QStringLiteral("1.5000"));
    QVERIFY(m_page->writes.isEmpty());
}

void TestORXPropertyTreeDelegate::failedWriteShowsTheOldValue()
{
    open({QStringLiteral("Boolean"), QStringLiteral("Enumeration"), QStringLiteral("Integer"),
          QStringLiteral("String")});
    m_page->answer = false;
    auto* check = m_page->editor<ZELCustomCheckBox>(QStringLiteral("Boolean"));
    QTest::mouseClick(check, Qt::LeftButton, {}, QPoint(8, check->height() / 2));
    QVERIFY(!check->isChecked());
    auto* combo = m_page->editor<ZELCustomComboBox>(QStringLiteral("Enumeration"));
    combo->setCurrentIndex(1);
    QCOMPARE(combo->currentIndex(), 0);
    auto* spin = m_page->editor<ORXPropertySpinBox>(QStringLiteral("Integer"));
    spin->stepUp();
    QCOMPARE(spin->value(), qlonglong(10));
    auto* edit = m_page->editor<QPropertyLineEdit>(QStringLiteral("String"));
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("x"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edit->text(), QStringLiteral("text"));
    QCOMPARE(m_page->writes.size(), 4);
}

void TestORXPropertyTreeDelegate::spinBoxGrid_data()
{
    QTest::addColumn<qlonglong>("minimum");
    QTest::addColumn<qlonglong>("maximum");
    QTest::addColumn<qlonglong>("step");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<qlonglong>("written");
    const qlonglong low = INT64_MIN;
    const qlonglong high = INT64_MAX;
    QTest::newRow("down onto the grid") << 3LL << 100LL << 4LL << "13" << 11LL;
    QTest::newRow("above the maximum") << 3LL << 100LL << 4LL << "400" << 99LL;
    QTest::newRow("maximum off the grid") << 0LL << 10LL << 4LL << "10" << 8LL;
    QTest::newRow("at the minimum") << 3LL << 100LL << 4LL << "3" << 3LL;
    QTest::newRow("below the minimum") << 3LL << 100LL << 4LL << "-8" << 3LL;
    QTest::newRow("step 0 is no grid") << 0LL << 100LL << 0LL << "13" << 13LL;
    QTest::newRow("negative step is no grid") << 0LL << 100LL << -5LL << "13" << 13LL;
    QTest::newRow("whole range, top") << low << high << 1LL << QString::number(high) << high;
    QTest::newRow("whole range, coarse") << low << high << high << QString::number(high)
                                         << high - 1;
    QTest::newRow("whole range, bottom") << low << high << 7LL << QString::number(low) << low;
}

void TestORXPropertyTreeDelegate::spinBoxGrid()
{
    QFETCH(qlonglong, minimum);
    QFETCH(qlonglong, maximum);
    QFETCH(qlonglong, step);
    QFETCH(QString, typed);
    QFETCH(qlonglong, written);
    open({QStringLiteral("Integer")});
    auto* value = valueOf<CTreeIntergerItemValue>(item("Integer"));
    value->setNumbers({minimum + 7, minimum, maximum, step}); // 7: none of the typed values
    refill(item("Integer"));
    auto* spin = m_page->editor<ORXPropertySpinBox>(QStringLiteral("Integer"));
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, typed);
    QTest::keyClick(spin, Qt::Key_Return);
    QCOMPARE(m_page->writes.size(), 1);
    QCOMPARE(m_page->lastWritten, QVariant(written));
    QCOMPARE(spin->value(), written);
}

void TestORXPropertyTreeDelegate::spinBoxWritesOncePerEdit()
{
    open({QStringLiteral("Integer"), QStringLiteral("Boolean")});
    auto* spin = m_page->editor<ORXPropertySpinBox>(QStringLiteral("Integer"));
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, QStringLiteral("42"));
    QVERIFY(m_page->writes.isEmpty());
    editor("Boolean")->setFocus();
    QCOMPARE(m_page->writes, QStringList(QStringLiteral("Integer 42")));
    spin->setFocus();
    QTest::keyClick(spin, Qt::Key_Up); // a step writes at once
    QCOMPARE(m_page->writes.size(), 2);
    QCOMPARE(m_page->writes.last(), QStringLiteral("Integer 43"));
}

void TestORXPropertyTreeDelegate::enumerationIsWrittenByItsEnglishList()
{
    open({QStringLiteral("Enumeration")});
    const QStringList english = {QStringLiteral("Off"), QStringLiteral("Once"),
                                 QStringLiteral("Continuous")};
    const QStringList chinese = {QStringLiteral("\u5173"), QStringLiteral("\u5f00"),
                                 QStringLiteral("\u5f00")};
    // Two numbers have the text "Continuous"; the first one is written. It needs 32 bits.
    setEntries(item("Enumeration"), english, chinese, {0, 1, 4000000000LL, 4000000001LL}, 0);
    ORXInterface::setLanguage(QStringLiteral("CH"));
    refill(item("Enumeration"));
    auto* combo = m_page->editor<ZELCustomComboBox>(QStringLiteral("Enumeration"));
    QCOMPARE(combo->itemText(2), chinese.at(2));
    combo->setCurrentIndex(2);
    QCOMPARE(m_page->lastWritten.toLongLong(), 4000000000LL);
    QCOMPARE(combo->currentIndex(), 2);
    setEntries(item("Enumeration"), english, {}, {0, 1, 2}, 1);
    refill(item("Enumeration"));
    QCOMPARE(combo->currentText(), QStringLiteral("Once")); // no Chinese list
}

void TestORXPropertyTreeDelegate::enumerationWithoutMatchCanBeSet()
{
    open({QStringLiteral("Enumeration")});
    setEntries(item("Enumeration"), {QStringLiteral("Off"), QStringLiteral("Once")}, {}, {0, 5},
               99);
    refill(item("Enumeration"));
    auto* combo = m_page->editor<ZELCustomComboBox>(QStringLiteral("Enumeration"));
    QCOMPARE(combo->currentIndex(), -1);
    QVERIFY(combo->isEnabled());
    combo->setCurrentIndex(0);
    QCOMPARE(m_page->writes, QStringList(QStringLiteral("Enumeration 0")));
    // An entry list that empties leaves nothing to write.
    setEntries(item("Enumeration"), {}, {}, {}, 0);
    refill(item("Enumeration"));
    QCOMPARE(combo->count(), 0);
    QCOMPARE(m_page->writes.size(), 1);
}

void TestORXPropertyTreeDelegate::palettesShowPictures()
{
    open({QStringLiteral("CustomTagNamePalettesMode")});
    const QString name = QStringLiteral("CustomTagNamePalettesMode");
    QStringList english;
    QVector<qint64> numbers;
    for (int i = 0; i < 15; ++i) {
        english.append(QStringLiteral("Palette %1").arg(i));
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
    combo->setCurrentIndex(4);
    QCOMPARE(m_page->writes, QStringList(name + QStringLiteral(" 4")));
}

void TestORXPropertyTreeDelegate::checkBoxesWriteTheirColumn()
{
    open({QStringLiteral("Boolean"), QStringLiteral("CustomTagNameWatermark")});
    auto* check = m_page->editor<ZELCustomCheckBox>(QStringLiteral("Boolean"));
    QTest::keyClick(check, Qt::Key_Space);
    QCOMPARE(m_page->writes, QStringList(QStringLiteral("Boolean true")));
    Item* boxes = m_page->getRootItem(1, false)->child(0)->child(1);
    ORXFeatureTreeView* view = m_page->treeView();
    auto* left = qobject_cast<ZELCustomCheckBox*>(view->editorOf(boxes, 0));
    auto* right = qobject_cast<ZELCustomCheckBox*>(view->editorOf(boxes, 1));
    QCOMPARE(left->text(), QStringLiteral("Left"));
    QCOMPARE(right->text(), QStringLiteral("Right"));
    left->click();
    QCOMPARE(m_page->writes.last(), QStringLiteral("CustomTagNameWatermark0 true"));
    right->click();
    QCOMPARE(m_page->writes.last(), QStringLiteral("CustomTagNameWatermark1 true"));
    auto* value = valueOf<CTreeCustomWaterMarkItemValue>(boxes);
    QCOMPARE(value->checkState(0), int(Qt::Checked));
    value->setColumnDisabled(0, true);
    refill(boxes);
    QVERIFY(!left->isEnabled());
    QVERIFY(right->isEnabled());
}

void TestORXPropertyTreeDelegate::buttonsExecute()
{
    open({QStringLiteral("Command"), QStringLiteral("CustomTagNameFlatFieldCorrection")});
    auto* command = m_page->editor<ZELCustomPushButton>(QStringLiteral("Command"));
    auto* tool =
        m_page->editor<ZELCustomPushButton>(QStringLiteral("CustomTagNameFlatFieldCorrection"));
    QCOMPARE(command->text(), QStringLiteral("Execute"));
    QCOMPARE(tool->text(), QStringLiteral("Open Tool"));
    QVERIFY(!tool->icon().availableSizes().isEmpty());
    QTest::mouseClick(command, Qt::LeftButton);
    QVERIFY(!m_page->lastWritten.isValid());
    QTest::mouseClick(tool, Qt::LeftButton);
    QCOMPARE(m_page->writes.size(), 2);
    ORXInterface::setLanguage(QStringLiteral("CH"));
    m_page->treeView()->updateAllEditorData();
    QCOMPARE(command->text(), QStringLiteral("\u6267\u884c"));
    QCOMPARE(tool->text(), QStringLiteral("\u6253\u5f00\u5de5\u5177"));
}

void TestORXPropertyTreeDelegate::clickGuard()
{
    m_page->makeRoot = [this] {
        Item* root = m_page->addGroupOfTags({QStringLiteral("Command")});
        m_page->add(root->child(0), QStringLiteral("TriggerSoftware"), "Command");
        return root;
    };
    m_page->open();
    const auto clicks = [this](const char* name) {
        m_page->writes.clear();
        auto* button = m_page->editor<ZELCustomPushButton>(QString::fromLatin1(name));
        button->cSetClickClock([] { return qint64(0); }); // all clicks at the same moment
        for (int i = 0; i < 3; ++i)
            QTest::mouseClick(button, Qt::LeftButton);
        return m_page->writes.size();
    };
    QCOMPARE(clicks("Command"), 1);
    QCOMPARE(clicks("TriggerSoftware"), 3);
}

void TestORXPropertyTreeDelegate::externalEditorIsFilled()
{
    ORXPropertyTreeDelegate::registerExternalEditor(
        FeatureTag::CCM, [](QWidget* parent, Item*) { return new QLabel(parent); },
        [](QWidget* label, Item* matrix) {
            qobject_cast<QLabel*>(label)->setText(matrix->value()->displayName());
        });
    open({QStringLiteral("CustomTagNameCCM")});
    auto* label = m_page->editor<QLabel>(QStringLiteral("CustomTagNameCCM"));
    QCOMPARE(label->text(), QStringLiteral("CustomTagNameCCM"));
    QCOMPARE(label->x(), 20);
    QVERIFY(label->height() > 120);
    item("CustomTagNameCCM")->value()->setDisplayName(QStringLiteral("Matrix"));
    refill(item("CustomTagNameCCM"));
    QCOMPARE(label->text(), QStringLiteral("Matrix"));
}

void TestORXPropertyTreeDelegate::viewsOwnCommitsWriteNothing()
{
    open({QStringLiteral("String")});
    ORXFeatureTreeView* view = m_page->treeView();
    auto* edit = m_page->editor<QPropertyLineEdit>(QStringLiteral("String"));
    edit->setText(QStringLiteral("typed"));
    view->treeDelegate()->setModelData(edit, view->model(),
                                       view->treeModel()->indexFromItem(item("String"), 1));
    emit view->treeDelegate()->commitData(edit);
    QVERIFY(m_page->writes.isEmpty());
}

void TestORXPropertyTreeDelegate::closingAnEditorWritesNothing()
{
    open({QStringLiteral("String"), QStringLiteral("Integer")});
    for (const char* name : {"String", "Integer"}) {
        editor(name)->setFocus();
        QTest::keyClicks(editor(name), QStringLiteral("7"));
        m_page->treeView()->openPersistentEdit(item(name), true);
        QTRY_VERIFY(editor(name) && !editor(name)->hasFocus());
    }
    editor("String")->setFocus();
    QTest::keyClicks(editor("String"), QStringLiteral("7"));
    m_page->resetCamaraID(-1);
    QVERIFY(m_page->writes.isEmpty());
}

void TestORXPropertyTreeDelegate::editorsStandInTheirCells_data()
{
    QTest::addColumn<QString>("tag");
    for (const char* tag : kTags)
        QTest::newRow(tag) << QString::fromLatin1(tag);
}

void TestORXPropertyTreeDelegate::editorsStandInTheirCells()
{
    QFETCH(QString, tag);
    open({tag});
    ORXFeatureTreeView* view = m_page->treeView();
    Item* feature = m_page->getRootItem(1, false)->child(0)->child(0);
    const QWidget* widget = view->editorOf(feature);
    const QModelIndex cell = view->treeModel()->indexFromItem(feature, 1);
    const QRect place = widget->geometry();
    const QRect row = view->visualRect(cell);
    QCOMPARE(row.height(), 38);
    QVERIFY(row.top() <= place.top() && place.bottom() <= row.bottom());
    QVERIFY(qAbs(place.center().y() - row.center().y()) <= 1);
    const bool wide = tag == QLatin1String("CustomTagNamePalettesMode");
    QVERIFY2(wide ? place.left() == 20 : place.left() > row.left(),
             qPrintable(QString::number(place.left())));
    QVERIFY(place.right() < row.right());
    QVERIFY(widget->isVisible());
    if (const QWidget* name = view->editorOf(feature, 0))
        QVERIFY(name->geometry().right() <= row.left());
}

void TestORXPropertyTreeDelegate::rowsArePainted()
{
    open(allTags());
    ORXFeatureTreeView* view = m_page->treeView();
    const auto picture = [view] { return view->viewport()->grab().toImage(); };
    const QImage plain = picture();
    m_page->item(QStringLiteral("Integer"))->setSearchText(QStringLiteral("teg"), 1);
    const QImage marked = picture();
    QVERIFY(marked != plain);
    view->treeDelegate()->setCurMoveItem(m_page->item(QStringLiteral("Float")));
    const QImage dropping = picture();
    QVERIFY(dropping != marked);
    const QRect row = view->visualRect(
        view->treeModel()->indexFromItem(m_page->item(QStringLiteral("Float")), 0));
    for (int y = 0; y < plain.height(); ++y) {
        if (y < row.top() - 1 || y > row.top() + 1)
            QCOMPARE(dropping.copy(0, y, plain.width(), 1), marked.copy(0, y, plain.width(), 1));
    }
    const QByteArray directory = qgetenv("OBFT_TEST_PICTURES");
    if (!directory.isEmpty())
        m_page->grab().save(QString::fromLocal8Bit(directory) + QStringLiteral("/delegate.png"));
}

OBFT_TEST_MAIN(TestORXPropertyTreeDelegate)
#include "tst_orxpropertytreedelegate.moc"
