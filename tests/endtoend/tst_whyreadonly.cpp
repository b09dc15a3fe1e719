// SPDX-License-Identifier: Apache-2.0
// A user who wants to know why a row cannot be edited, on the simulated camera.
#include "demo/DemoCamera.h"
#include "main/ORXFeatureGroup.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/DemoPageTest.h"
#include "tree/ReadOnlyReasonLine.h"

#include <QLineEdit>

class TestWhyReadOnly : public DemoPageTest
{
    Q_OBJECT

    ReadOnlyReasonLine* line() const { return m_window->tree()->findChild<ReadOnlyReasonLine*>(); }
    QString said() const { return line()->isVisible() ? line()->toPlainText() : QString(); }
    QString current() const
    {
        const ORXPropertyTreeItem* item =
            ORXPropertyTreeModel::itemFromIndex(m_window->tree()->treeView()->currentIndex());
        return item ? item->value()->nodeName(0) : QString();
    }
    // Clicks on the feature's name in its group.
    void select(const char* name) const
    {
        QVERIFY(m_window->show(kTree, name));
        ORXFeatureTreeView* view = m_window->tree()->treeView();
        const QModelIndex row = view->treeModel()->indexFromItem(m_window->item(kTree, name), 0);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(row).center());
        QCOMPARE(current(), QString::fromLatin1(name));
    }
    QPoint linkPlace() const
    {
        const QRect all = line()->viewport()->rect();
        for (int y = all.top(); y < all.bottom(); ++y) {
            for (int x = all.left(); x < all.right(); ++x) {
                if (!line()->anchorAt({x, y}).isEmpty())
                    return {x + 2, y + 2};
            }
        }
        return {};
    }

private slots:
    void acquisitionLocks()
    {
        open();
        select("Width");
        OBFT_TRY_COMPARE(said(), QString());
        QVERIFY(m_window->click(kTree, "AcquisitionStart"));
        select("Width");
        OBFT_TRY_COMPARE(said(), "Locked by TL Params Locked (1)"_s);
        // The same row on another page tells it, too.
        QVERIFY(!m_window->isEnabled(ORXMainFeatureWidget::ImageProcessingTab, "Width"));
        OBFT_TRY_COMPARE(m_window->page(ORXMainFeatureWidget::ImageProcessingTab)
                             ->treeView()
                             ->editorOf(m_window->item(kTree, "Width"))
                             ->accessibleDescription(),
                         "Locked by TL Params Locked (1)"_s);
        QVERIFY(m_window->click(kTree, "AcquisitionStop"));
        select("Width");
        OBFT_TRY_COMPARE(said(), QString());
        OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "Width"));
    }

    void linkLeadsToTheFeature_data()
    {
        const Rows<QString> row("search");
        row("no search", "");
        row("a search that finds it", "throughput");
        row("a search that does not", "gain");
    }

    void linkLeadsToTheFeature()
    {
        QFETCH(QString, search);
        open();
        select("DeviceLinkThroughputLimit");
        OBFT_TRY_COMPARE(said(), "Locked by Device Link Throughput Limit Mode (Off)"_s);
        auto* box = m_window->widget()->featureGroup(1)->findChild<QLineEdit*>("FeatureSearch"_s);
        box->setText(search);
        OBFT_TRY_VERIFY(line()->isVisible());
        QTest::mouseClick(line()->viewport(), Qt::LeftButton, {}, linkPlace());
        QCOMPARE(current(), "DeviceLinkThroughputLimitMode"_s);
        QVERIFY(m_window->isRowShown(kTree, "DeviceLinkThroughputLimitMode"));
        QVERIFY(m_window->tree()->treeView()->hasFocus());
        QCOMPARE(said(), QString());
        QCOMPARE(box->text(), m_window->item(kTree, "Gain")->searchMatch() ? QString() : search);
    }

    void otherLanguage()
    {
        open();
        select("DeviceLinkThroughputLimit");
        OBFT_TRY_VERIFY(!said().isEmpty());
        m_window->widget()->SetLanguage(1);
        OBFT_TRY_COMPARE(said(), "已锁定，取决于：链路吞吐量限制模式 (关闭)"_s);
        QWidget* editor = m_window->tree()->treeView()->editorOf(
            m_window->item(kTree, "DeviceLinkThroughputLimit"));
        QVERIFY(editor);
        OBFT_TRY_COMPARE(editor->accessibleDescription(), said());
    }
};

OBFT_TEST_MAIN(TestWhyReadOnly)
#include "tst_whyreadonly.moc"
