// SPDX-License-Identifier: Apache-2.0
// A row that goes or locks under the user's hands: nothing is written, the view has the focus.
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeItemValue.h"
#include "styledctl/ZELCustomComboBox.h"
#include "tree/EditorFocus.h"
#include "tree/EditorTest.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/editors/ExternalEditor.h"

#include <QAbstractButton>
#include <QApplication>
#include <QVBoxLayout>

#include <thread>

namespace {

const char kMatrix[] = "CustomTagNameCCM";
const char kBoxes[] = "CustomTagNameWatermark";

} // namespace

class TestEditorFocus : public EditorTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        EditorTest::prepare();
        // An editor of several widgets that writes by itself.
        ExternalEditor::registerEditor(
            FeatureTag::CCM,
            [this](QWidget* parent, Item* item) {
                auto* matrix = new QWidget(parent);
                auto* cell = new QPropertyLineEdit(matrix, ZELCustomLineEdit::Style_Cell);
                auto* layout = new QVBoxLayout(matrix);
                layout->addWidget(cell);
                layout->addWidget(new QPropertyLineEdit(matrix, ZELCustomLineEdit::Style_Cell));
                matrix->setFocusProxy(cell);
                connect(cell, &QLineEdit::editingFinished, m_page, [this, cell, item] {
                    if (cell->hasPendingEdit())
                        m_page->setFeatureValue({}, item->tagName(), cell->text());
                });
                return matrix;
            },
            nullptr);
    }
    void finish() override
    {
        ExternalEditor::registerEditor(FeatureTag::CCM, nullptr, nullptr);
        EditorTest::finish();
    }

private:
    using Way = void (*)(TestEditorFocus& test, Item* item);
    struct NamedWay
    {
        const char* name;
        Way take;
        bool goes = true; // else the editor stays and is locked
    };
    static const QVector<NamedWay>& ways()
    {
        static const QVector<NamedWay> all = {
            {"unavailable", [](auto&, Item* item) { item->setVisible(false, 1); }},
            {"unavailable in a pass",
             [](auto&, Item* item) {
                 std::thread([item] { item->setVisible(false, 1); }).join();
                 QCoreApplication::processEvents();
             }},
            {"another group", [](auto&, Item* item) { item->setGroupVisible(false, 1); }},
            {"search", [](auto&, Item* item) { item->setSearchText("nothing"_s, 1); }},
            {"rows hidden anew",
             [](auto& test, Item* item) {
                 item->setVisible(false, -1);
                 test.view()->updateRowsVisible(test.m_page->getRootItem(1, false), true);
             }},
            {"category collapses", [](auto& test, Item*) { test.group()->setExpanded(false, 1); }},
            {"all categories collapse",
             [](auto& test, Item*) { test.m_page->setExpandedAll(false); }},
            {"row removed",
             [](auto& test, Item* item) {
                 test.view()->treeModel()->removeItems(test.group(), item);
                 delete item;
             }},
            {"all rows removed",
             [](auto& test, Item*) {
                 const QVector<Item*> rows = test.group()->children();
                 test.view()->treeModel()->removeItems(test.group(), nullptr);
                 qDeleteAll(rows);
             }},
            {"no camera", [](auto& test, Item*) { test.m_page->resetCamaraID(-1); }},
            {"camera removed", [](auto& test, Item*) { test.m_page->removeCameraID(1); }},
            {"editor opened anew",
             [](auto& test, Item* item) { test.view()->openPersistentEdit(item, true); }},
            {"read-only",
             [](auto&, Item* item) {
                 item->setReadOnly(true);
                 item->notifyViewUpdate(1, -1, false);
             },
             false},
            {"switched off",
             [](auto&, Item* item) {
                 item->value()->setEnabled(false);
                 item->notifyViewUpdate(1, -1, false);
             },
             false},
            {"nothing may be edited", [](auto& test, Item*) { test.m_page->setIsCanEdit(false); },
             false},
        };
        return all;
    }

    // A page with the tag's feature between two texts, a user in the middle of its editor.
    Item* beginEdit(const QString& tag)
    {
        open({"Float"_s, tag, "String"_s});
        Item* edited = group()->child(1);
        // As after a click beside the editor.
        view()->setCurrentIndex(index(edited, 1));
        m_edited = view()->editorOf(edited, tag == QLatin1String(kBoxes) ? 0 : 1);
        m_edited->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            edit->selectAll();
        if (!qobject_cast<QAbstractButton*>(QApplication::focusWidget()))
            QTest::keyClicks(QApplication::focusWidget(), "7"_s);
        if (auto* list = qobject_cast<QComboBox*>(m_edited.data()))
            list->showPopup();
        return edited;
    }

    QPointer<QWidget> m_edited;

private slots:
    void nothingIsWrittenAndTheViewHasTheFocus_data()
    {
        const Rows<QString, int> row("tag", "way");
        for (const char* tag : {"String", "Integer", "IntReg", "Enumeration", "Boolean", "Command",
                                kBoxes, kMatrix}) {
            for (int i = 0; i < ways().size(); ++i) {
                // These editors do not follow the read-only state.
                const bool follows = tag != kBoxes && tag != kMatrix;
                if (follows || qstrcmp(ways().at(i).name, "read-only") != 0)
                    row(qPrintable(
                            "%1, %2"_s.arg(QLatin1String(tag), QLatin1String(ways().at(i).name))),
                        tag, i);
            }
        }
    }

    void nothingIsWrittenAndTheViewHasTheFocus()
    {
        const auto [tag, way] = fetchRow<QString, int>();
        Item* edited = beginEdit(tag);
        QVERIFY(m_page->writes.isEmpty());
        ways().at(way).take(*this, edited);
        // Not the application's: a list that was open leaves no window active on some platforms.
        QCOMPARE(m_page->focusWidget(), view());
        QVERIFY(!QApplication::activePopupWidget());
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_page->focusWidget(), view());
        QTest::keyClicks(view(), "9"_s); // the rest of the typing
        QCOMPARE(m_page->writes, QStringList());
        if (!ways().at(way).goes) {
            QVERIFY(!m_edited->isEnabled());
            const auto* cell = m_edited->findChild<QPropertyLineEdit*>();
            QVERIFY(!EditorFocus::hasPendingEdit(cell ? cell : m_edited.data()));
        }
    }

    void alsoWhileAnotherWindowIsActive_data()
    {
        const Rows<int> row("way");
        for (int i = 0; i < ways().size(); ++i)
            row(ways().at(i).name, i);
    }

    void alsoWhileAnotherWindowIsActive()
    {
        QFETCH(int, way);
        Item* edited = beginEdit("String"_s);
        QWidget other;
        QVERIFY(showActive(other));
        m_page->writes.clear();
        edited->notifyViewUpdate(1, -1, false);
        auto* edit = qobject_cast<QLineEdit*>(m_edited.data());
        edit->setText("typed"_s);
        edit->setModified(true);
        ways().at(way).take(*this, edited);
        m_page->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_page));
        QCOMPARE(QApplication::focusWidget(), view());
        QCOMPARE(m_page->writes, QStringList());
    }

    void aNewEditorDoesNotTakeTheRestOfTheTyping_data()
    {
        const Rows<QString, bool> row("tag", "typed");
        row("text typed", "String", true);
        row("number typed", "Integer", true);
        row("text only focused", "String", false);
        row("number only focused", "Integer", false);
    }

    void aNewEditorDoesNotTakeTheRestOfTheTyping()
    {
        const auto [tag, typed] = fetchRow<QString, bool>();
        Item* edited = beginEdit(tag);
        if (!typed)
            QTest::keyClick(m_edited, Qt::Key_Escape);
        edited->notifyViewUpdate(1, -1, true);
        QWidget* made = view()->editorOf(edited);
        QVERIFY(made && made != m_edited);
        QCOMPARE(made->hasFocus(), !typed);
        QCOMPARE(view()->hasFocus(), typed);
        QCOMPARE(m_page->writes, QStringList());
    }

    // The row still stands, but the item has gone already: the reading thread was faster.
    void anEditOfARowAboutToGoIsNotWritten()
    {
        Item* edited = beginEdit("String"_s);
        edited->setVisible(false, -1);
        QTest::keyClick(m_edited, Qt::Key_Return);
        QCOMPARE(m_page->writes, QStringList());
    }

    void tabStaysInsideAnEditorOfSeveral()
    {
        beginEdit(QString::fromLatin1(kMatrix));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), m_edited->findChildren<QPropertyLineEdit*>().at(1));
    }

    void oneOfTwoBoxesLocks()
    {
        Item* boxes = beginEdit(QString::fromLatin1(kBoxes));
        valueOf<CTreeCustomWaterMarkItemValue>(boxes)->setColumnDisabled(0, true);
        refill(boxes);
        QVERIFY(!m_edited->isEnabled());
        QCOMPARE(QApplication::focusWidget(), view());
    }

    void theMenuOfALockedEditorCloses()
    {
        Item* edited = beginEdit("String"_s);
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, {5, 5},
                               m_edited->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(m_edited, &menu);
        QVERIFY(QApplication::activePopupWidget());
        edited->setReadOnly(true);
        refill(edited);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void otherEditorsKeepTheFocus()
    {
        beginEdit("String"_s);
        group()->child(0)->setVisible(false, 1);
        group()->child(2)->setReadOnly(true);
        refill(group()->child(2));
        QCoreApplication::processEvents();
        QVERIFY(m_edited->hasFocus());
        QTest::keyClick(m_edited, Qt::Key_Return);
        QCOMPARE(m_page->writes, QStringList("String 7"_s));
    }
};

OBFT_TEST_MAIN(TestEditorFocus)
#include "tst_editorfocus.moc"
