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

class TestFeatureTables : public GuardedTest
{
    Q_OBJECT

private slots:
    void everyTableKnowsTheTag_data()
    {
        // What each tag is, through all tables of the library. editor: class name, empty for none
        const Rows<QString, QString, bool, bool, QString> all("tag", "value", "reads", "writes",
                                                              "editor");
        int rows = 0;
        const auto row = [&](const char* tag, const std::type_info& value, bool reads, bool writes,
                             const char* editor) {
            all(*tag ? tag : "any other", tag, value.name(), reads, writes, editor);
            ++rows;
        };
        row("Category", typeid(CTreeItemValue), false, false, "");
        row("Boolean", typeid(CTreeBooleanItemValue), true, true, "ZELCustomCheckBox");
        row("Command", typeid(CTreeCommandItemValue), false, true, "ZELCustomPushButton");
        row("Integer", typeid(CTreeIntergerItemValue), true, true, "ORXPropertySpinBox");
        row("IntReg", typeid(CTreeIntergerItemValue), true, true, "ORXPropertySpinBox");
        row("Enumeration", typeid(CTreeEnumationItemValue), true, true, "ZELCustomComboBox");
        row("Float", typeid(CTreeFloatItemValue), true, true, "QPropertyLineEdit");
        row("Converter", typeid(CTreeFloatItemValue), true, true, "QPropertyLineEdit");
        row("StringReg", typeid(CTreeStringItemValue), true, true, "QPropertyLineEdit");
        row("String", typeid(CTreeStringItemValue), true, true, "QPropertyLineEdit");
        row("CustomTagNameDraw", typeid(CTreeCustomDrawItemValue), false, false, "");
        for (const char* boxes : {"CustomTagNameWatermark", "CustomTagNameEvent"})
            row(boxes, typeid(CTreeCustomWaterMarkItemValue), false, false, "ZELCustomCheckBox");
        row("CustomTagNameCCM", typeid(CTreeCustomCCMItemValue), false, false, "QLabel");
        row("CustomTagNamePalettesMode", typeid(CTreeEnumationItemValue), false, false,
            "ZELCustomComboBox");
        row("CustomTagNameFlatFieldCorrection", typeid(CTreeItemValue), false, false,
            "ZELCustomPushButton");
        row("", typeid(CTreeItemValue), false, false, "");
        QCOMPARE(rows, kFeatureTagCount);
    }

    void everyTableKnowsTheTag()
    {
        const auto [name, value, reads, writes, editorClass] =
            fetchRow<QString, QString, bool, bool, QString>();
        const FeatureTag tag = featureTag(name);
        QCOMPARE(featureTagName(tag), name);
        QCOMPARE(featureTag(name.toLower()), FeatureTag::Other); // case-sensitive
        ApplicationSetup::runOnce();
        ExternalEditor::registerEditor(
            FeatureTag::CCM,
            [](QWidget* parent, ORXPropertyTreeItem*) { return new QLabel(parent); }, {});

        QCOMPARE(QString::fromLatin1(typeid(*makeItemValue(tag)).name()), value);
        QCOMPARE(FeatureValueReader::hasReader(tag), reads);
        QCOMPARE(FeatureWriter::hasHandler(tag), writes);
        QCOMPARE(ExactValue::hasValue(tag), reads);

        ORXPropertyTreeItem root(nullptr, ORXPropertyTreeItem::CommonPage);
        auto* item = new ORXPropertyTreeItem(&root, ORXPropertyTreeItem::CommonPage);
        item->setTagName(name);
        if (auto* boxes = dynamic_cast<CTreeCustomWaterMarkItemValue*>(item->value()))
            boxes->setColumn(1, "Time"_s, "Time"_s);
        ORXPropertyTreeModel model(ORXPropertyTreeItem::CommonPage, nullptr);
        model.updateData(&root);
        const ORXPropertyTreeDelegate delegate(ORXPropertyTreeItem::CommonPage, nullptr);
        QWidget parent;
        const QScopedPointer<QWidget> editor(
            delegate.createEditor(&parent, {}, model.indexFromItem(item, 1)));
        QCOMPARE(QLatin1String(editor ? editor->metaObject()->className() : ""), editorClass);
        const EditorKind* kind = EditorKinds::of(tag);
        QCOMPARE(kind != nullptr, !editorClass.isEmpty());
        // Each editor of ours says when the user acted on it.
        if (kind)
            QCOMPARE(kind->commitSignal(*editor).isValid(), tag != FeatureTag::CCM);
    }
};

OBFT_TEST_MAIN(TestFeatureTables)
#include "tst_featuretables.moc"
