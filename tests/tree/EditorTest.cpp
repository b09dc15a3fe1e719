// SPDX-License-Identifier: Apache-2.0
#include "tree/EditorTest.h"

#include "api/ApplicationSetup.h"
#include "basetools/ORXInterface.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"

void EditorTest::prepare()
{
    ApplicationSetup::runOnce();
    m_page = new TestPage;
}

void EditorTest::finish()
{
    delete m_page;
    ORXInterface::setLanguage("ENG"_s);
}

void EditorTest::open(const QStringList& tags)
{
    m_page->makeRoot = [this, tags] { return m_page->addGroupOfTags(tags); };
    m_page->getRootItem(1, true);
    Item* group = m_page->getRootItem(1, false)->child(0);
    const QVector<Item*> features = group->children();
    for (Item* feature : features) {
        if (auto* boxes = valueOf<CTreeCustomWaterMarkItemValue>(feature)) {
            boxes->setColumn(0, feature->tagName() + "0"_s, "Left"_s);
            boxes->setColumn(1, feature->tagName() + "1"_s, "Right"_s);
        } else if (valueOf<CTreeEnumationItemValue>(feature)) {
            setEntries(feature, {"Off"_s, "Once"_s}, {}, {0, 5}, 0);
        } else if (valueOf<CTreeIntergerItemValue>(feature)) {
            setInteger(feature, 10, 0, 100, 1);
        } else if (auto* number = valueOf<CTreeFloatItemValue>(feature)) {
            number->setNumbers({1.5F, 0.0F, 100.0F});
        } else if (auto* text = valueOf<CTreeStringItemValue>(feature)) {
            text->setText("text"_s, 64);
        }
    }
    m_page->open();
}

void EditorTest::openRows(int rows, const char* tag)
{
    m_page->makeRoot = [=] {
        Item* root = m_page->addGroupOfTags({});
        for (int i = 0; i < rows; ++i)
            m_page->add(root->child(0), rowName(i), tag);
        return root;
    };
    m_page->open({500, 400});
}

QString EditorTest::rowName(int row)
{
    return "Row%1"_s.arg(row, 4, 10, QLatin1Char('0'));
}

QLineEdit* EditorTest::lineEdit(QWidget* editor)
{
    auto* plain = qobject_cast<QLineEdit*>(editor);
    return plain ? plain : editor->findChild<QLineEdit*>();
}

void EditorTest::type(QWidget* editor, const QString& text)
{
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
}

void EditorTest::enter(QWidget* editor, const QString& text)
{
    type(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

void EditorTest::arrives(Item* item, const QVariant& value)
{
    item->value()->setValue(value);
    item->endUpdateItem(1);
}

void EditorTest::setInteger(Item* item, qint64 value, qint64 minimum, qint64 maximum, qint64 step,
                            const char* representation)
{
    auto* typed = valueOf<CTreeIntergerItemValue>(item);
    typed->setNumbers({value, minimum, maximum, step});
    typed->setRepresentation(QString::fromLatin1(representation));
}

void EditorTest::setEntries(Item* item, const QStringList& english, const QStringList& chinese,
                            const QVector<qint64>& numbers, qint64 current)
{
    QMap<qint64, QString> map;
    for (int i = 0; i < numbers.size(); ++i)
        map.insert(numbers.at(i), english.at(qMin(i, english.size() - 1)));
    auto* typed = valueOf<CTreeEnumationItemValue>(item);
    typed->replaceEnumList(english, chinese, map, {});
    typed->setNumber(current);
}
