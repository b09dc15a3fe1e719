// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "changes/ExactValue.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCommandItemValue.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/CTreeCustomDrawItemValue.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "model/ItemValueFactory.h"
#include "model/ORXPropertyTreeModel.h"
#include "reading/FeatureValueReader.h"
#include "support/TestMain.h"
#include "tree/FeatureWriter.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/editors/EditorKinds.h"
#include "tree/editors/ExternalEditor.h"

#include <QLabel>

#include <typeinfo>

namespace {

struct TagRow
{
    const char* tag;
    const std::type_info* value;
    bool reads;
    bool writes;
    const char* editor; // class name, empty for none
};

// What each tag is, through all tables of the library.
const TagRow kRows[] = {
    {"Category", &typeid(CTreeItemValue), false, false, ""},
    {"Boolean", &typeid(CTreeBooleanItemValue), true, true, "ZELCustomCheckBox"},
    {"Command", &typeid(CTreeCommandItemValue), false, true, "ZELCustomPushButton"},
    {"Integer", &typeid(CTreeIntergerItemValue), true, true, "ORXPropertySpinBox"},
    {"IntReg", &typeid(CTreeIntergerItemValue), true, true, "ORXPropertySpinBox"},
    {"Enumeration", &typeid(CTreeEnumationItemValue), true, true, "ZELCustomComboBox"},
    {"Float", &typeid(CTreeFloatItemValue), true, true, "QPropertyLineEdit"},
    {"Converter", &typeid(CTreeFloatItemValue), true, true, "QPropertyLineEdit"},
    {"StringReg", &typeid(CTreeStringItemValue), true, true, "QPropertyLineEdit"},
    {"String", &typeid(CTreeStringItemValue), true, true, "QPropertyLineEdit"},
    {"CustomTagNameDraw", &typeid(CTreeCustomDrawItemValue), false, false, ""},
    {"CustomTagNameWatermark", &typeid(CTreeCustomWaterMarkItemValue), false, false,
     "ZELCustomCheckBox"},
    {"CustomTagNameEvent", &typeid(CTreeCustomWaterMarkItemValue), false, false,
     "ZELCustomCheckBox"},
    {"CustomTagNameCCM", &typeid(CTreeCustomCCMItemValue), false, false, "QLabel"},
    {"CustomTagNamePalettesMode", &typeid(CTreeEnumationItemValue), false, false,
     "ZELCustomComboBox"},
    {"CustomTagNameFlatFieldCorrection", &typeid(CTreeItemValue), false, false,
     "ZELCustomPushButton"},
    {"", &typeid(CTreeItemValue), false, false, ""},
};

} // namespace

class TestFeatureTables : public GuardedTest
{
    Q_OBJECT

private slots:
    void everyTagHasARow()
    {
        QCOMPARE(int(std::size(kRows)), kFeatureTagCount);
        for (int i = 0; i < kFeatureTagCount; ++i) {
            const auto tag = static_cast<FeatureTag>(i);
            QCOMPARE(featureTagName(tag), QLatin1String(kRows[i].tag));
            QCOMPARE(featureTag(QString::fromLatin1(kRows[i].tag)), tag);
        }
        QCOMPARE(featureTag("integer"_s), FeatureTag::Other); // case-sensitive
    }

    void everyTableKnowsTheTag_data()
    {
        const Rows<int> row("row");
        for (int i = 0; i < kFeatureTagCount; ++i)
            row(*kRows[i].tag ? kRows[i].tag : "any other", i);
    }

    void everyTableKnowsTheTag()
    {
        QFETCH(int, row);
        const TagRow& expected = kRows[row];
        const auto tag = static_cast<FeatureTag>(row);
        ApplicationSetup::runOnce();
        ExternalEditor::registerEditor(
            FeatureTag::CCM,
            [](QWidget* parent, ORXPropertyTreeItem*) { return new QLabel(parent); }, {});

        QVERIFY(typeid(*makeItemValue(tag)) == *expected.value);
        QCOMPARE(FeatureValueReader::hasReader(tag), expected.reads);
        QCOMPARE(FeatureWriter::hasHandler(tag), expected.writes);
        QCOMPARE(ExactValue::hasValue(tag), expected.reads);

        ORXPropertyTreeItem root(nullptr, ORXPropertyTreeItem::CommonPage);
        auto* item = new ORXPropertyTreeItem(&root, ORXPropertyTreeItem::CommonPage);
        item->setTagName(QString::fromLatin1(expected.tag));
        if (auto* boxes = dynamic_cast<CTreeCustomWaterMarkItemValue*>(item->value()))
            boxes->setColumn(1, "Time"_s, "Time"_s);
        ORXPropertyTreeModel model(ORXPropertyTreeItem::CommonPage, nullptr);
        model.updateData(&root);
        const ORXPropertyTreeDelegate delegate(ORXPropertyTreeItem::CommonPage, nullptr);
        QWidget parent;
        const QScopedPointer<QWidget> editor(
            delegate.createEditor(&parent, {}, model.indexFromItem(item, 1)));
        QCOMPARE(editor ? editor->metaObject()->className() : "", expected.editor);
        const EditorKind* kind = EditorKinds::of(tag);
        QCOMPARE(kind != nullptr, *expected.editor != '\0');
        // Each editor of ours says when the user acted on it.
        if (kind)
            QCOMPARE(kind->commitSignal(*editor).isValid(), tag != FeatureTag::CCM);
    }
};

OBFT_TEST_MAIN(TestFeatureTables)
#include "tst_featuretables.moc"
