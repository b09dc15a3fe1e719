// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "device/ORXListenTools.h"
#include "support/TestMain.h"
#include "tree/QPropertyLineEdit.h"

#include <QSignalSpy>

#include <clocale>
#include <limits>

Q_DECLARE_METATYPE(QPropertyLineEdit::ValueKind)

class TestQPropertyLineEdit : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { ApplicationSetup::runOnce(); }

private slots:
    void theStartOfATextShows()
    {
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetText("-12345.6789"_s, QPropertyLineEdit::Float);
        QCOMPARE(edit.cursorPosition(), 0);
        edit.end(false);
        edit.Rollback();
        QCOMPARE(edit.cursorPosition(), 0);
    }

    void saving_data()
    {
        using Kind = QPropertyLineEdit::ValueKind;
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("entered");
        QTest::addColumn<QVariant>("saved"); // invalid: nothing is saved
        QTest::addColumn<QString>("shown");
        const auto row = [](const char* name, Kind kind, const char* last, const char* entered,
                            const QVariant& saved, const char* shown = nullptr) {
            QTest::newRow(name) << kind << QString::fromUtf8(last) << QString::fromUtf8(entered)
                                << saved << QString::fromUtf8(shown ? shown : entered);
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
        QFETCH(QPropertyLineEdit::ValueKind, kind);
        QFETCH(QString, last);
        QFETCH(QString, entered);
        QFETCH(QVariant, saved);
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        if (kind == QPropertyLineEdit::Float)
            edit.SetRange(100.0F, 0.0F);
        else if (kind == QPropertyLineEdit::Decimal)
            edit.SetRange(qint64(20), qint64(10));
        edit.SetText(last, kind);
        edit.setText(entered);
        QVariant value;
        QCOMPARE(edit.SaveProperty(value), saved.isValid());
        if (saved.isValid()) {
            QCOMPARE(value, saved);
            QCOMPARE(value.userType(), saved.userType());
        }
        QTEST(edit.text(), "shown");
        if (!saved.isValid()) {
            edit.Rollback();
            QCOMPARE(edit.text(), last);
        }
    }

    void nothingToSave()
    {
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetText("1.2346"_s, QPropertyLineEdit::Float); // rounded for show
        edit.SetRange(10.0F, 0.0F);
        QVariant value;
        QVERIFY(!edit.SaveProperty(value));
        QCOMPARE(value.toString(), "1.2346"_s);
    }

    void savedTextIsTheNewLastGoodText()
    {
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetText("a"_s, QPropertyLineEdit::Text);
        edit.setText("b"_s);
        QVariant value;
        QVERIFY(edit.SaveProperty(value));
        QVERIFY(!edit.SaveProperty(value)); // Enter, then losing the focus: one write
        edit.setText("c"_s);
        edit.Rollback();
        QCOMPARE(edit.text(), "b"_s);
    }

    void decimalRange_data()
    {
        using Limits = std::numeric_limits<qint64>;
        const Rows<qint64, qint64, QString, qint64> row("minimum", "maximum", "entered", "saved");
        row("whole range, largest", Limits::min(), Limits::max(), QString::number(Limits::max()),
            Limits::max());
        row("whole range, smallest", Limits::min(), Limits::max(), QString::number(Limits::min()),
            Limits::min());
        row("minimum wins over maximum", 20, 10, "15", 20);
    }

    void decimalRange()
    {
        QFETCH(qint64, minimum);
        QFETCH(qint64, maximum);
        QFETCH(QString, entered);
        QFETCH(qint64, saved);
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetRange(maximum, minimum);
        edit.setText(entered);
        QVariant value;
        QVERIFY(edit.SaveProperty(value));
        QCOMPARE(value.toLongLong(), saved);
        QCOMPARE(edit.text(), QString::number(saved));
    }

    void stringLengthCutsBytes_data()
    {
        const Rows<int, QString> row("length", "saved");
        const QString text = "ab\u4e2d\u6587"_s; // 2 + 3 + 3 bytes
        row("fits with the terminator", 9, text);
        row("a character is never cut in two", 8, text.left(3));
        row("room for the terminator only", 1, "");
        row("unknown length", 0, text);
    }

    void stringLengthCutsBytes()
    {
        QFETCH(int, length);
        QFETCH(QString, saved);
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetText("old"_s, QPropertyLineEdit::Text);
        edit.SetStringLength(length);
        edit.setText("ab\u4e2d\u6587"_s);
        QVariant value;
        QVERIFY(edit.SaveProperty(value));
        QCOMPARE(value.toString(), saved);
        QCOMPARE(edit.text(), saved);
    }

    void numbersIgnoreTheLocale()
    {
        const QByteArray before = std::setlocale(LC_ALL, nullptr);
        QLocale::setDefault(QLocale(QLocale::German));
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetRange(5000.0F, -5000.0F);
        edit.SetText("1.0000"_s, QPropertyLineEdit::Float);
        edit.setText("1234.5"_s);
        QVariant value;
        const bool saved = edit.SaveProperty(value);
        const QString toolTip = edit.toolTip();
        QLocale::setDefault(QLocale::c());
        std::setlocale(LC_ALL, before.constData());
        QVERIFY(saved);
        QCOMPARE(value.toFloat(), 1234.5F);
        QCOMPARE(toolTip, "Range: -5000.000000 to 5000.000000"_s);
    }

    void rangeDecidesTheKind()
    {
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetText("1"_s, QPropertyLineEdit::Text);
        edit.SetRange(10.0F, 0.0F);
        edit.setText("2.5"_s);
        QVariant value;
        QVERIFY(edit.SaveProperty(value));
        QCOMPARE(value.userType(), int(QMetaType::Float));
        edit.SetRange(qint64(10), qint64(0));
        edit.setText("3"_s);
        QVERIFY(edit.SaveProperty(value));
        QCOMPARE(value.userType(), int(QMetaType::LongLong));
        edit.SetStringLength(8);
        edit.setText("4"_s);
        QVERIFY(edit.SaveProperty(value));
        QCOMPARE(value.userType(), int(QMetaType::QString));
    }

    void toolTips()
    {
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetRange(qint64(20), qint64(-10));
        QCOMPARE(edit.toolTip(), "Range: -10 to 20"_s);
        edit.SetText("0x1F"_s, QPropertyLineEdit::Hexadecimal);
        edit.resetToolTip(); // unchanged for this kind
        QCOMPARE(edit.toolTip(), "Range: -10 to 20"_s);
        edit.SetText("a text too long for its cell"_s, QPropertyLineEdit::Text);
        edit.SetStringLength(64);
        QCOMPARE(edit.toolTip(), "a text too long for its cell"_s);
        edit.SetText(QString(), QPropertyLineEdit::Text);
        edit.SetStringLength(64);
        QCOMPARE(edit.toolTip(), QString());
        edit.SetRange(2.0F, 1.0F);
        edit.setToolTip(QString());
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&edit, &change);
        QCOMPARE(edit.toolTip(), "Range: 1.000000 to 2.000000"_s);
    }

    void pendingEditSurvivesLosingTheFocus()
    {
        QPropertyLineEdit edit(nullptr, ZELCustomLineEdit::Style_Cell);
        edit.SetText("a"_s, QPropertyLineEdit::Text);
        edit.end(false);
        QTest::keyClicks(&edit, "b"_s);
        QVERIFY(edit.hasPendingEdit()); // another window may have the focus for a while
        edit.SetRollbackText("new"_s, QPropertyLineEdit::Text);
        QCOMPARE(edit.text(), "ab"_s);
        edit.Rollback();
        QCOMPARE(edit.text(), "new"_s);
        QVERIFY(!edit.hasPendingEdit());
    }

    void commitNotificationReachesTheFocusedEditorOnly()
    {
        QWidget window;
        QPropertyLineEdit focused(&window, ZELCustomLineEdit::Style_Cell);
        QPropertyLineEdit other(&window, ZELCustomLineEdit::Style_Cell);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        focused.setFocus();
        QSignalSpy finished(&focused, &QLineEdit::editingFinished);
        QSignalSpy otherFinished(&other, &QLineEdit::editingFinished);
        ORXListenTools::instance()->notifyListeners(ListenCode::kFavoritesChanged, nullptr);
        QCOMPARE(finished.size(), 0);
        ORXListenTools::instance()->notifyListeners(ListenCode::kCommitPendingEdit, nullptr);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(otherFinished.size(), 0);
    }
};

OBFT_TEST_MAIN(TestQPropertyLineEdit)
#include "tst_qpropertylineedit.moc"
