// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLineEdit.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "support/TestMain.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

// The signs are the only direct children of the windows of this test without a layout.
QList<QWidget*> signsOf(const QWidget& window)
{
    QList<QWidget*> found;
    for (QWidget* child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->inherits("ZELLoadingOverlay"))
            found.append(child);
    }
    return found;
}

} // namespace

class TestZELCustomLoadingDialog : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override
    {
        for (const int index : {1, 2, 3}) {
            ZELCustomLoadingDialog::setHostWindow(nullptr, index);
            ZELCustomLoadingDialog::hideLoading(index);
        }
    }

private slots:
    void indicesAreIndependent()
    {
        QWidget window;
        window.show();
        ZELCustomLoadingDialog::showLoading("one"_s, 1);
        ZELCustomLoadingDialog::showLoading("two"_s, 2);
        ZELCustomLoadingDialog::showLoading("uno"_s, 1);
        QCOMPARE(ZELCustomLoadingDialog::text(1), "uno"_s);
        ZELCustomLoadingDialog::hideLoading(1);
        ZELCustomLoadingDialog::hideLoading(3);
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
        QVERIFY(ZELCustomLoadingDialog::text(1).isEmpty());
        QVERIFY(ZELCustomLoadingDialog::isLoading(2));
        QCOMPARE(ZELCustomLoadingDialog::text(2), "two"_s);
    }

    void signLiesOverItsWindow()
    {
        QWidget first;
        QWidget second;
        first.resize(500, 400);
        second.resize(500, 400);
        first.show();
        second.show();
        second.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&first));
        ZELCustomLoadingDialog::setHostWindow(&first, 1);
        ZELCustomLoadingDialog::showLoading("Setting features..."_s, 1);
        QCOMPARE(signsOf(first).size(), 1);
        QVERIFY(signsOf(second).isEmpty());
        const QWidget* sign = signsOf(first).constFirst();
        QVERIFY(sign->isVisible());
        const auto inLowerMiddle = [&] {
            const QRect area = sign->geometry();
            return first.rect().contains(area) &&
                   qAbs(area.center().x() - first.width() / 2) <= 1 &&
                   area.top() > first.height() / 2;
        };
        QVERIFY(inLowerMiddle());
        first.resize(800, 700);
        QTRY_VERIFY(inLowerMiddle());
    }

    void signsOfOneWindowDoNotOverlap()
    {
        QWidget window;
        window.resize(500, 400);
        window.show();
        for (const int index : {1, 2, 3})
            ZELCustomLoadingDialog::setHostWindow(&window, index);
        for (const int index : {1, 2})
            ZELCustomLoadingDialog::showLoading("busy"_s, index);
        ZELCustomLoadingDialog::hideLoading(1);
        ZELCustomLoadingDialog::showLoading("busy"_s, 3);
        const QList<QWidget*> signs = signsOf(window);
        QCOMPARE(signs.size(), 2);
        QVERIFY(!signs.at(0)->geometry().intersects(signs.at(1)->geometry()));
    }

    void windowTakesItsSignsAlong()
    {
        auto* window = new QWidget;
        window->show();
        ZELCustomLoadingDialog::setHostWindow(window, 1);
        ZELCustomLoadingDialog::showLoading("busy"_s, 1);
        delete window;
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
        ZELCustomLoadingDialog::hideLoading(1);
        ZELCustomLoadingDialog::showLoading("again"_s, 1);
        ZELCustomLoadingDialog::hideLoading(1);
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
    }

    void hostChangesWhileShown()
    {
        QWidget first;
        QWidget second;
        first.show();
        second.show();
        ZELCustomLoadingDialog::setHostWindow(&first, 1);
        ZELCustomLoadingDialog::showLoading("busy"_s, 1);
        ZELCustomLoadingDialog::setHostWindow(&second, 1);
        QVERIFY(signsOf(first).isEmpty());
        QCOMPARE(signsOf(second).size(), 1);
        QCOMPARE(ZELCustomLoadingDialog::text(1), "busy"_s);
    }

    void inputReachesTheWindowBelow()
    {
        QWidget window;
        window.resize(300, 200);
        auto* layout = new QVBoxLayout(&window);
        auto* edit = new ZELCustomLineEdit;
        auto* button = new QPushButton;
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        layout->addWidget(edit);
        layout->addWidget(button);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edit->setFocus();
        ZELCustomLoadingDialog::setHostWindow(&window, 1);
        ZELCustomLoadingDialog::showLoading("busy"_s, 1);
        QVERIFY(edit->hasFocus());
        QTest::keyClicks(edit, "12"_s);
        QCOMPARE(edit->text(), "12"_s);
        QSignalSpy clicked(button, &QPushButton::clicked);
        const QPoint onSign = signsOf(window).constFirst()->geometry().center();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, onSign);
        QCOMPARE(clicked.size(), 1);
    }

    void worksWithoutAnyWindow()
    {
        ZELCustomLoadingDialog::showLoading("busy"_s, 1);
        QVERIFY(ZELCustomLoadingDialog::isLoading(1));
        ZELCustomLoadingDialog::hideLoading(1);
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
    }
};

OBFT_TEST_MAIN(TestZELCustomLoadingDialog)
#include "tst_zelcustomloadingdialog.moc"
