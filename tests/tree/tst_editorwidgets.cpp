// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "device/ORXListenTools.h"
#include "styledctl/ZELCustomSlider.h"
#include "support/TestMain.h"
#include "tree/ORXPropertyComboBox.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QIntegerParamSetCtrl.h"
#include "tree/QPropertyLineEdit.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QWheelEvent>

class TestEditorWidgets : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { ApplicationSetup::runOnce(); }

private slots:
    void spinBoxToolTip()
    {
        ORXPropertySpinBox box(nullptr, ZELCustomSpinBox64::Style_Cell);
        box.setRange(INT64_MIN, INT64_MAX);
        box.setSingleStep(4);
        box.resetToolTip();
        QCOMPARE(box.toolTip(),
                 "Min:-9223372036854775808; Max:9223372036854775807; Step Value:4"_s);
    }

    void spinBoxTakesTypedTextOnNotification()
    {
        QWidget window;
        ORXPropertySpinBox box(&window, ZELCustomSpinBox64::Style_Cell);
        QLineEdit elsewhere(&window);
        box.setRange(0, 100);
        ORXListenTools::instance()->addListener(&box, ORXListenTools::PriorityNormal);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSignalSpy changed(&box, &ZELCustomSpinBox64::valueChanged);
        const auto notify = [] {
            ORXListenTools::instance()->notifyListeners(ListenCode::kCommitPendingEdit, nullptr);
        };
        box.setFocus();
        box.lineEdit()->setText("42"_s);
        ORXListenTools::instance()->notifyListeners(ListenCode::kFavoritesChanged, nullptr);
        QCOMPARE(changed.size(), 0);
        notify();
        QCOMPARE(changed.size(), 1);
        QCOMPARE(box.value(), 42);
        box.lineEdit()->setText("no number"_s);
        notify();
        QCOMPARE(box.value(), 42);
        elsewhere.setFocus();
        box.lineEdit()->setText("43"_s);
        notify();
        QCOMPARE(changed.size(), 1);
    }

    void comboBoxReportsNodeAndValue()
    {
        ORXPropertyComboBox box(nullptr, ZELCustomComboBox::Style_Cell);
        QSignalSpy changed(&box, &ORXPropertyComboBox::SigPropertyChanged);
        box.AddItem("Off"_s, 0);
        box.AddItem("On"_s, 7);
        QCOMPARE(changed.size(), 0); // no node yet
        box.SetNodeName("GainAuto"_s);
        box.SetCurrentSel("7"_s);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().at(0).toString(), "GainAuto"_s);
        QCOMPARE(changed.first().at(1).toInt(), 7);
        box.SetCurrentSel(99); // no such entry
        QCOMPARE(box.currentIndex(), 1);
        box.SetNoSigChangedFlage(true);
        box.SetCurrentSel(0);
        QCOMPARE(box.currentIndex(), 0);
        QCOMPARE(changed.size(), 1);
    }

    void comboBoxIgnoresTheWheel()
    {
        ORXPropertyComboBox box(nullptr, ZELCustomComboBox::Style_Cell);
        box.AddItem("Off"_s, 0);
        box.AddItem("On"_s, 1);
        box.show();
        box.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        box.setFocus();
        QWheelEvent wheel(QPointF(5, 5), box.mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &wheel);
        QCOMPARE(box.currentIndex(), 0);
    }

    void sliderControlSnaps_data()
    {
        // reported -1: nothing
        const Rows<int, int, int> row("increment", "released", "reported");
        row("down onto the grid of the minimum", 4, 12, 11);
        row("on the grid", 4, 15, 15);
        row("no grid", 1, 12, 12);
        row("increment 0 is no grid", 0, 12, 12);
        row("unchanged", 4, 7, -1);
    }

    void sliderControlSnaps()
    {
        QFETCH(int, increment);
        QFETCH(int, released);
        QFETCH(int, reported);
        QIntegerParamSetCtrl control;
        control.SetRange(3, 100);
        control.SetInc(increment);
        control.SetValue(7);
        QSignalSpy changed(&control, &QIntegerParamSetCtrl::SigValueChanged);
        auto* slider = control.findChild<ZELCustomSlider*>();
        slider->setValue(released);
        emit slider->sliderReleased();
        QCOMPARE(changed.size(), reported < 0 ? 0 : 1);
        if (reported >= 0) {
            QCOMPARE(changed.first().first().toInt(), reported);
            QCOMPARE(control.GetValue(), reported);
            QCOMPARE(control.findChild<QPropertyLineEdit*>()->text(), QString::number(reported));
        }
    }

    void sliderControlReportsOnReleaseOnly()
    {
        QIntegerParamSetCtrl control;
        control.SetRange(0, 100);
        QSignalSpy changed(&control, &QIntegerParamSetCtrl::SigValueChanged);
        control.SetValue(10);
        auto* slider = control.findChild<ZELCustomSlider*>();
        QCOMPARE(slider->toolTip(), "Range:0 to 100"_s);
        slider->setSliderDown(true);
        slider->setSliderPosition(50);
        QCOMPARE(control.findChild<QPropertyLineEdit*>()->text(), "50"_s);
        QCOMPARE(changed.size(), 0);
        slider->setSliderDown(false); // emits sliderReleased()
        QCOMPARE(changed.size(), 1);
    }

    void sliderControlTakesTypedNumbers()
    {
        QIntegerParamSetCtrl control;
        control.SetRange(0, 100);
        control.SetValue(10);
        QSignalSpy changed(&control, &QIntegerParamSetCtrl::SigValueChanged);
        auto* edit = control.findChild<QPropertyLineEdit*>();
        edit->setText("250"_s);
        emit edit->editingFinished();
        QCOMPARE(changed.size(), 1);
        QCOMPARE(control.GetValue(), 100);
        emit edit->editingFinished(); // unchanged
        QCOMPARE(changed.size(), 1);
    }

    void sliderControlReleased()
    {
        QIntegerParamSetCtrl control;
        control.Release();
        control.SetRange(1, 5);
        control.SetInc(2);
        control.SetValue(3);
        QCOMPARE(control.GetValue(), 0);
        QVERIFY(!control.findChild<ZELCustomSlider*>());
    }
};

OBFT_TEST_MAIN(TestEditorWidgets)
#include "tst_editorwidgets.moc"
