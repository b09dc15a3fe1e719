// SPDX-License-Identifier: Apache-2.0
// A user who wants to know why a row cannot be edited, on the simulated camera.
#include "main/ORXFeatureGroup.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/DemoPageTest.h"
#include "tree/ReadOnlyReasonLine.h"

#include <QLineEdit>

class TestWhyReadOnly : public DemoPageTest
{
    Q_OBJECT

    ReadOnlyReasonLine* line() const { return m_window->tree()->findChild<ReadOnlyReasonLine*>(); }
    QString said() const { return line()->isVisible() ? line()->toPlainText() : QString(); }
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
    // On each page, and in each language.
    void acquisitionLocks()
    {
        constexpr int kImagePage = ORXMainFeatureWidget::ImageProcessingTab;
        open();
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), QString());
        QVERIFY(m_window->click(kTree, "AcquisitionStart"));
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), "Locked by TL Params Locked (1)"_s);
        QVERIFY(!m_window->isEnabled(kImagePage, "Width"));
        ORXPropertyTreeItem* width = m_window->item(kTree, "Width");
        OBFT_TRY_COMPARE(
            m_window->page(kImagePage)->treeView()->editorOf(width)->accessibleDescription(),
            "Locked by TL Params Locked (1)"_s);
        m_window->widget()->SetLanguage(1);
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), "已锁定，取决于：传输层参数锁定 (1)"_s);
        OBFT_TRY_COMPARE(m_window->tree()->treeView()->editorOf(width)->accessibleDescription(),
                         said());
        QVERIFY(m_window->click(kTree, "AcquisitionStop"));
        QVERIFY(m_window->select(kTree, "Width"));
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
        QVERIFY(m_window->select(kTree, "DeviceLinkThroughputLimit"));
        OBFT_TRY_COMPARE(said(), "Locked by Device Link Throughput Limit Mode (Off)"_s);
        auto* box = m_window->widget()->featureGroup(1)->findChild<QLineEdit*>("FeatureSearch"_s);
        box->setText(search);
        OBFT_TRY_VERIFY(line()->isVisible());
        QTest::mouseClick(line()->viewport(), Qt::LeftButton, {}, linkPlace());
        QCOMPARE(m_window->tree()->treeView()->currentIndex(),
                 m_window->row(kTree, "DeviceLinkThroughputLimitMode"));
        QVERIFY(m_window->isRowShown(kTree, "DeviceLinkThroughputLimitMode"));
        QVERIFY(m_window->tree()->treeView()->hasFocus());
        QCOMPARE(said(), QString());
        QCOMPARE(box->text(), m_window->item(kTree, "Gain")->searchMatch() ? QString() : search);
    }
};

OBFT_TEST_MAIN(TestWhyReadOnly)
#include "tst_whyreadonly.moc"
