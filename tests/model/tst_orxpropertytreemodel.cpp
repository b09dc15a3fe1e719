// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "basetools/ORXInterface.h"
#include "model/CTreeItemValue.h"
#include "model/IFeatureValueWriter.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QColor>

using Item = ORXPropertyTreeItem;

namespace {

// Notes what the model writes and answers as told.
class Writer : public IFeatureValueWriter
{
public:
    bool setFeatureValue(const QString& tag, const QString& name, const QVariant& value) override
    {
        log.append(tag + QLatin1Char(' ') + name + QLatin1Char(' ') + value.toString());
        if (onWrite)
            onWrite();
        return answer;
    }
    void afterSetFeatureValue(const QString& name) override { log.append("after "_s + name); }
    bool answer = true;
    std::function<void()> onWrite;
    QStringList log;
};

} // namespace

class TestORXPropertyTreeModel : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        ApplicationSetup::runOnce();
        m_root = new Item(nullptr, Item::FeatureTreePage);
        m_root->setItemType(Item::CustomItem);
        m_favorites = add(m_root, "ORXCustom_Favorites", "");
        m_favorites->setItemType(Item::FavoritesGroup);
        Item* image = add(m_root, "Image", "");
        m_width = add(image, "Width", "Integer");
        add(image, "Gain", "Float");
        m_model = new ORXPropertyTreeModel(Item::FeatureTreePage, nullptr);
        m_tester = new QAbstractItemModelTester(
            m_model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        m_model->updateData(m_root);
        m_model->resetCamearID(1);
        m_writer = Writer();
        m_model->bindingFeatureWidget(&m_writer);
    }
    void finish() override
    {
        delete m_tester;
        delete m_model;
        delete m_root;
        ORXInterface::setLanguage("ENG"_s);
    }

private:
    Item* add(Item* parent, const char* name, const char* tag)
    {
        auto* item = new Item(parent, Item::FeatureTreePage);
        item->value()->setNodeName(QString::fromLatin1(name));
        item->value()->setDisplayName(QString::fromLatin1(name) + " shown"_s);
        item->setTagName(QString::fromLatin1(tag));
        item->setItemType(Item::FeatureItem);
        return item;
    }

    Item* m_root = nullptr;
    Item* m_favorites = nullptr;
    Item* m_width = nullptr;
    ORXPropertyTreeModel* m_model = nullptr;
    QAbstractItemModelTester* m_tester = nullptr;
    Writer m_writer;

private slots:
    void structureSurvivesChanges()
    {
        for (int i = 0; i < 3; ++i)
            m_model->addItems(m_favorites, {add(nullptr, "Copy", "Integer")});
        const QModelIndex group = m_model->indexFromItem(m_favorites, 0);
        QCOMPARE(m_model->rowCount(group), 3);
        Item* middle = m_favorites->child(1);
        m_model->removeItems(m_favorites, middle);
        delete middle;
        QCOMPARE(m_model->rowCount(group), 2);
        const QVector<Item*> rest = m_favorites->children();
        m_model->removeItems(m_favorites, nullptr);
        qDeleteAll(rest);
        QCOMPARE(m_model->rowCount(group), 0);
        QCOMPARE(m_model->parent(m_model->indexFromItem(m_width, 1)),
                 m_model->indexFromItem(m_width->parent(Item::FeatureTreePage), 0));
        m_model->updateData(nullptr);
        QCOMPARE(m_model->rowCount(), 0);
    }

    void textsAndColoursOfCells()
    {
        const QColor normal =
            ZELCustom::getDataBaseColor("ORXPropertyTreeModelColor_Foreground_Default"_s);
        const QColor dimmed = ZELCustom::getDataBaseColor("ORXPropertyTreeModelColor_Foreground"_s);
        QVERIFY(normal != dimmed);
        const QModelIndex name = m_model->indexFromItem(m_width, 0);
        const QModelIndex value = name.siblingAtColumn(1);
        const auto colour = [](const QModelIndex& cell) {
            return cell.data(Qt::ForegroundRole).value<QColor>();
        };
        QCOMPARE(colour(name), normal);
        QCOMPARE(colour(value), dimmed);
        m_width->setReadOnly(false);
        QCOMPARE(colour(value), normal);
        m_model->setIsCanEdit(false);
        QCOMPARE(colour(value), dimmed);
        m_width->value()->setTranslateName("\u5bbd\u5ea6"_s);
        QCOMPARE(name.data().toString(), "Width shown"_s);
        ORXInterface::setLanguage("CH"_s);
        QCOMPARE(name.data().toString(), "\u5bbd\u5ea6"_s);
        QVERIFY(!value.data().isValid());
    }

    void flagsOfCells()
    {
        const QModelIndex value = m_model->indexFromItem(m_width, 1);
        QVERIFY(!(value.flags() & Qt::ItemIsEditable));
        m_width->setReadOnly(false);
        QVERIFY(value.flags() & Qt::ItemIsEditable);
        QVERIFY(!(value.siblingAtColumn(0).flags() & Qt::ItemIsEditable));
        QVERIFY(!(value.flags() & Qt::ItemIsDragEnabled));
        Item* copy = add(nullptr, "Width", "Integer");
        m_model->addItems(m_favorites, {copy});
        QVERIFY(m_model->indexFromItem(copy, 0).flags() & Qt::ItemIsDragEnabled);
        m_width->setTagName("CustomTagNameCCM"_s);
        QCOMPARE(value.flags(), Qt::ItemFlags(Qt::NoItemFlags));
    }

    void sameValue_data()
    {
        const Rows<QString, QVariant, QVariant, bool> row("tag", "value", "edited", "same");
        const qlonglong large = 4000000000LL;
        row("boolean", "Boolean", true, true, true);
        row("other boolean", "Boolean", true, false, false);
        row("integer", "Integer", 5, 5, true);
        row("other integer", "IntReg", 5, qlonglong(INT64_MAX), false);
        row("entry", "Enumeration", 3, 3, true);
        row("entry above 31 bits", "Enumeration", 3, large, false);
        row("palette", "CustomTagNamePalettesMode", 3, 4, false);
        row("float within what shows", "Float", 1.5F, 1.5005F, true);
        row("other float", "Converter", 1.5F, 1.51F, false);
        row("text", "String", "a"_s, "a"_s, true);
        row("other text", "StringReg", "a"_s, "A"_s, false);
    }

    void sameValue()
    {
        const auto [tag, value, edited, same] = fetchRow<QString, QVariant, QVariant, bool>();
        m_width->setTagName(tag);
        m_width->value()->setValue(value);
        QCOMPARE(ORXPropertyTreeModel::isSameValue(tag, m_width->value(), edited), same);
        QVERIFY(!ORXPropertyTreeModel::isSameValue(tag, m_root->value(), edited));
        QVERIFY(!ORXPropertyTreeModel::isSameValue("Command"_s, m_width->value(), edited));
        ORXPropertyTreeModel::setItemValue(m_width, "Width"_s, edited);
        QCOMPARE(m_width->value()->value().toString(), edited.toString());
    }

    void editing()
    {
        const QModelIndex value = m_model->indexFromItem(m_width, 1);
        QVERIFY(m_model->setData(value, 640, Qt::EditRole));
        QVERIFY(m_model->setData(value, 640, Qt::EditRole)); // unchanged: no write
        QCOMPARE(m_writer.log, QStringList({"Integer Width 640"_s, "after Width"_s}));
        m_writer.answer = false;
        QVERIFY(!m_model->setData(value, 800, Qt::EditRole));
        QCOMPARE(m_width->value()->value().toInt(), 640);
        QVERIFY(m_model->setData(value, 900, Qt::DisplayRole));
        m_model->resetCamearID(-1); // without a camera an edit is accepted and ignored
        QVERIFY(m_model->setData(value, 900, Qt::EditRole));
        QCOMPARE(m_writer.log.size(), 3);
    }

    void theItemMayGoDuringTheWrite()
    {
        m_writer.onWrite = [this] {
            m_model->resetCamearID(-1);
            m_model->updateData(nullptr);
            m_root->clear();
        };
        QVERIFY(m_model->setData(m_model->indexFromItem(m_width, 1), 640, Qt::EditRole));
        QCOMPARE(m_writer.log.size(), 1);
    }
};

OBFT_TEST_MAIN(TestORXPropertyTreeModel)
#include "tst_orxpropertytreemodel.moc"
