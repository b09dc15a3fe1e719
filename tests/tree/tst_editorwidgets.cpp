// SPDX-License-Identifier: Apache-2.0
// The widgets that stand in value cells, each by itself.
#include "api/ApplicationSetup.h"
#include "device/ORXListenTools.h"
#include "styledctl/ZELCustomSlider.h"
#include "support/TestMain.h"
#include "tree/ORXPropertyComboBox.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QIntegerParamSetCtrl.h"
#include "tree/QPropertyLineEdit.h"

#include <QSignalSpy>

#include <clocale>

using Kind = QPropertyLineEdit::ValueKind;
Q_DECLARE_METATYPE(Kind)

namespace {

class LineEdit : public QPropertyLineEdit
{
public:
    LineEdit()
        : QPropertyLineEdit(nullptr, ZELCustomLineEdit::Style_Cell)
    {
    }
    // What is saved of the text; invalid when nothing is.
    QVariant enter(const QString& text)
    {
        setText(text);
        QVariant value;
        return SaveProperty(value) ? value : QVariant();
    }
};

} // namespace

class TestEditorWidgets : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { ApplicationSetup::runOnce(); }

private slots:
    // QPropertyLineEdit ---------------------------------------------------------------------------
    void saving_data()
    {
        // saved: invalid: nothing is saved; shown: as entered where not given
        const Rows<Kind, QString, QString, QVariant, QString> all("kind", "last", "entered",
                                                                  "saved", "shown");
        const auto row = [&](const char* name, Kind kind, const char* last, const char* entered,
                             const QVariant& saved, const char* shown = nullptr) {
            all(name, kind, last, entered, saved, shown ? shown : entered);
        };
        const QVariant none;
        const auto number = [](qint64 value) { return QVariant::fromValue(value); };

        row("text", Kind::Text, "a", "b", "b"_s);
        row("text may be emptied", Kind::Text, "a", "", ""_s);

        row("float", Kind::Float, "1.0000", "2.5", 2.5F);
        row("float with exponent", Kind::Float, "1.0000", " 2.5e1 ", 25.0F);
        row("float at maximum", Kind::Float, "1.0000", "100", 100.0F - 1e-6F);
        row("float above maximum", Kind::Float, "1.0000", "1e30", 100.0F - 1e-6F);
        row("float below minimum", Kind::Float, "1.0000", "-5", 1e-6F);
        row("float emptied takes the last text", Kind::Float, "1.0000", "", 1.0F, "1.0000");
        for (const char* bad : {"nan", "inf", "-inf", "1e99", "1,500", "2,5", "abc", "1.0.0"})
            row(bad, Kind::Float, "1.0000", bad, none);

        row("decimal", Kind::Decimal, "12", "15", number(15));
        row("decimal above maximum", Kind::Decimal, "12", "99", number(20), "20");
        row("decimal below minimum", Kind::Decimal, "12", "-1", number(10), "10");
        row("decimal that is no number", Kind::Decimal, "12", "abc", number(10), "10");
        row("decimal beyond 64 bits", Kind::Decimal, "12", "99999999999999999999", none);
        row("decimal emptied", Kind::Decimal, "12", "", number(12), "12");

        row("hexadecimal digits", Kind::Hexadecimal, "0x1", "1F", number(31));
        row("hexadecimal reads decimal first", Kind::Hexadecimal, "0x1", "12", number(12));
        row("hexadecimal as shown", Kind::Hexadecimal, "0x1", "0x12", number(18));
        row("hexadecimal of 64 bits", Kind::Hexadecimal, "0x1", "0xFFFFFFFFFFFFFFFF", number(-1));
        row("hexadecimal too long", Kind::Hexadecimal, "0x1", "0x1FFFFFFFFFFFFFFFF", none);
        row("hexadecimal emptied", Kind::Hexadecimal, "0x1", "", none);
        row("hexadecimal that is no number", Kind::Hexadecimal, "0x1", "xyz", none);

        row("address", Kind::IPv4Address, "10.0.0.1", "192.168.0.10", number(0xC0A8000ALL));
        row("address out of range", Kind::IPv4Address, "10.0.0.1", "10.0.0.256", none, "10.0.0.1");
        row("address emptied", Kind::IPv4Address, "10.0.0.1", "", number(0x0A000001), "10.0.0.1");
        row("mask", Kind::SubnetMask, "255.255.0.0", "255.255.255.0", number(0xFFFFFF00LL));
        row("mask with a gap", Kind::SubnetMask, "255.255.0.0", "255.0.255.0", none, "255.255.0.0");
        row("hardware address", Kind::MACAddress, "00:11:22:33:44:55", "00:11:22:33:44:56", none);
    }

    void saving()
    {
        const auto [kind, last, entered, saved, shown] =
            fetchRow<Kind, QString, QString, QVariant, QString>();
        LineEdit edit;
        if (kind == Kind::Float)
            edit.SetRange(100.0F, 0.0F);
        else if (kind == Kind::Decimal)
            edit.SetRange(qint64(20), qint64(10));
        edit.SetText(last, kind);
        const QVariant value = edit.enter(entered);
        QCOMPARE(value, saved);
        QCOMPARE(value.userType(), saved.userType());
        QCOMPARE(edit.text(), shown);
        if (!saved.isValid()) {
            edit.Rollback();
            QCOMPARE(edit.text(), last);
        }
    }

    void whatIsTypedAndTheLastGoodText()
    {
        LineEdit edit;
        edit.SetText("a"_s, Kind::Text);
        QCOMPARE(edit.enter("b"_s), QVariant("b"_s));
        QCOMPARE(edit.enter("b"_s), QVariant()); // Enter, then losing the focus: one write
        edit.setText("c"_s);
        edit.Rollback();
        QCOMPARE(edit.text(), "b"_s);
        edit.end(false);
        QTest::keyClicks(&edit, "c"_s);
        QVERIFY(edit.hasPendingEdit()); // another window may have the focus for a while
        edit.SetRollbackText("new"_s, Kind::Text);
        QCOMPARE(edit.text(), "bc"_s);
        edit.Rollback();
        QCOMPARE(edit.text(), "new"_s);
        QVERIFY(!edit.hasPendingEdit());
    }

    void stringLengthCutsBytes()
    {
        const QString text = "ab\u4e2d\u6587"_s; // 2 + 3 + 3 bytes
        // With the terminator; no character is cut in two; 0 is an unknown length.
        const QMap<int, QString> saved = {{9, text}, {8, text.left(3)}, {1, QString()}, {0, text}};
        for (auto each = saved.begin(); each != saved.end(); ++each) {
            LineEdit edit;
            edit.SetText("old"_s, Kind::Text);
            edit.SetStringLength(each.key());
            QCOMPARE(edit.enter(text), QVariant(each.value()));
            QCOMPARE(edit.text(), each.value());
        }
    }

    void numbersIgnoreTheLocale()
    {
        const QByteArray before = std::setlocale(LC_ALL, nullptr);
        QLocale::setDefault(QLocale(QLocale::German));
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        LineEdit edit;
        edit.SetRange(5000.0F, -5000.0F);
        edit.SetText("1.0000"_s, Kind::Float);
        const QVariant saved = edit.enter("1234.5"_s);
        const QString toolTip = edit.toolTip();
        QLocale::setDefault(QLocale::c());
        std::setlocale(LC_ALL, before.constData());
        QCOMPARE(saved, QVariant(1234.5F));
        QCOMPARE(toolTip, "Range: -5000.000000 to 5000.000000"_s);
    }

    void rangeDecidesTheKind()
    {
        LineEdit edit;
        edit.SetText("1"_s, Kind::Text);
        edit.SetRange(10.0F, 0.0F);
        QCOMPARE(edit.enter("2.5"_s).userType(), int(QMetaType::Float));
        edit.SetRange(qint64(10), qint64(0));
        QCOMPARE(edit.enter("3"_s).userType(), int(QMetaType::LongLong));
        edit.SetStringLength(8);
        QCOMPARE(edit.enter("4"_s).userType(), int(QMetaType::QString));
        const qint64 most = INT64_MAX;
        const qint64 least = INT64_MIN;
        edit.SetRange(most, least);
        for (const qint64 number : {most, least})
            QCOMPARE(edit.enter(QString::number(number)), QVariant::fromValue(number));
        edit.SetRange(qint64(10), qint64(20)); // the minimum wins
        QCOMPARE(edit.enter("15"_s), QVariant(qlonglong(20)));
    }

    void toolTips()
    {
        LineEdit edit;
        edit.SetRange(qint64(20), qint64(-10));
        QCOMPARE(edit.toolTip(), "Range: -10 to 20"_s);
        edit.SetText("0x1F"_s, Kind::Hexadecimal);
        edit.resetToolTip(); // unchanged for this kind
        QCOMPARE(edit.toolTip(), "Range: -10 to 20"_s);
        edit.SetText("a text too long for its cell"_s, Kind::Text);
        edit.SetStringLength(64);
        QCOMPARE(edit.toolTip(), "a text too long for its cell"_s);
        edit.SetText(QString(), Kind::Text);
        edit.SetStringLength(64);
        QCOMPARE(edit.toolTip(), QString());
        edit.SetRange(2.0F, 1.0F);
        edit.setToolTip(QString());
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&edit, &change);
        QCOMPARE(edit.toolTip(), "Range: 1.000000 to 2.000000"_s);
        ORXPropertySpinBox box(nullptr, ZELCustomSpinBox64::Style_Cell);
        box.setRange(INT64_MIN, INT64_MAX);
        box.setSingleStep(4);
        box.resetToolTip();
        QCOMPARE(box.toolTip(),
                 "Min:-9223372036854775808; Max:9223372036854775807; Step Value:4"_s);
    }

    // The others ----------------------------------------------------------------------------------
    // Of what is typed only that in the editor with the focus is taken.
    void commitNotification()
    {
        QWidget window;
        auto* edit = new QPropertyLineEdit(&window, ZELCustomLineEdit::Style_Cell);
        auto* box = new ORXPropertySpinBox(&window, ZELCustomSpinBox64::Style_Cell);
        box->setRange(0, 100);
        ORXListenTools::instance()->addListener(box, ORXListenTools::PriorityNormal);
        QVERIFY(showActive(window));
        QSignalSpy finished(edit, &QLineEdit::editingFinished);
        QSignalSpy changed(box, &ZELCustomSpinBox64::valueChanged);
        const auto notify = [](int code) {
            ORXListenTools::instance()->notifyListeners(code, nullptr);
        };
        box->setFocus();
        box->lineEdit()->setText("42"_s);
        notify(ListenCode::kFavoritesChanged);
        QCOMPARE(changed.size(), 0);
        notify(ListenCode::kCommitPendingEdit);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(finished.size(), 0);
        QCOMPARE(box->value(), 42);
        box->lineEdit()->setText("no number"_s);
        notify(ListenCode::kCommitPendingEdit);
        QCOMPARE(box->value(), 42);
        edit->setFocus();
        box->lineEdit()->setText("43"_s);
        notify(ListenCode::kFavoritesChanged);
        QCOMPARE(finished.size(), 0);
        notify(ListenCode::kCommitPendingEdit);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(changed.size(), 1);
        // Nobody calls what has gone.
        delete edit;
        delete box;
        notify(ListenCode::kCommitPendingEdit);
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
        QVERIFY(showActive(box));
        box.setFocus();
        sendWheel(&box);
        QCOMPARE(box.currentIndex(), 0); // not by the wheel
    }

    void sliderControl()
    {
        QIntegerParamSetCtrl control;
        control.SetRange(3, 100);
        auto* slider = control.findChild<ZELCustomSlider*>();
        auto* edit = control.findChild<QPropertyLineEdit*>();
        QSignalSpy changed(&control, &QIntegerParamSetCtrl::SigValueChanged);
        const auto release = [&](int increment, int at) {
            control.SetInc(increment);
            control.SetValue(7);
            slider->setValue(at);
            emit slider->sliderReleased();
        };
        release(4, 12);
        QCOMPARE(control.GetValue(), 11); // down onto the grid of the minimum
        QCOMPARE(edit->text(), "11"_s);
        release(4, 15);
        release(1, 12);
        release(0, 12); // no grid
        release(4, 7);  // unchanged
        QCOMPARE(changed, QList<QVariantList>({{11}, {15}, {12}, {12}}));

        changed.clear();
        control.SetInc(1);
        control.SetRange(0, 100);
        control.SetValue(10);
        QCOMPARE(slider->toolTip(), "Range:0 to 100"_s);
        slider->setSliderDown(true);
        slider->setSliderPosition(50);
        QCOMPARE(edit->text(), "50"_s);
        QCOMPARE(changed.size(), 0);
        slider->setSliderDown(false); // emits sliderReleased()
        edit->setText("250"_s);
        emit edit->editingFinished();
        emit edit->editingFinished(); // unchanged
        QCOMPARE(changed, QList<QVariantList>({{50}, {100}}));
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
