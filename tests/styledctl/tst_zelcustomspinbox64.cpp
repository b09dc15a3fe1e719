// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomSpinBox64.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <limits>

namespace {

using Limits = std::numeric_limits<qlonglong>;

} // namespace

class TestZELCustomSpinBox64 : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_window.reset(new QWidget);
        auto* layout = new QVBoxLayout(m_window.data());
        m_box = new ZELCustomSpinBox64;
        m_other = new QLineEdit;
        layout->addWidget(m_box);
        layout->addWidget(m_other);
        m_box->setRange(0, 1000);
        m_box->setValue(100);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
        m_box->setFocus();
        QTRY_VERIFY(m_box->hasFocus());
    }
    void finish() override { m_window.reset(); }

private:
    void type(const QString& text)
    {
        m_box->lineEdit()->selectAll();
        QTest::keyClick(m_box, Qt::Key_Delete);
        QTest::keyClicks(m_box, text);
    }

    QScopedPointer<QWidget> m_window;
    ZELCustomSpinBox64* m_box = nullptr;
    QLineEdit* m_other = nullptr;

private slots:
    void stepsStopAtTheEnds_data()
    {
        const Rows<qlonglong, qlonglong, int, qlonglong> row("start", "step", "count", "end");
        row("up by one", 5, 1, 1, 6);
        row("at the top", Limits::max(), 1, 1, Limits::max());
        row("over the top", Limits::max() - 3, 5, 1, Limits::max());
        row("at the bottom", Limits::min(), 1, -1, Limits::min());
        row("below the bottom", Limits::min() + 3, 5, -1, Limits::min());
        row("widest step up", 0, Limits::max(), 10, Limits::max());
        row("widest step down", -5, Limits::max(), -10, Limits::min());
        row("from end to end", Limits::min(), Limits::max(), 1, -1);
    }

    void stepsStopAtTheEnds()
    {
        QFETCH(qlonglong, start);
        QFETCH(qlonglong, step);
        QFETCH(int, count);
        m_box->setRange(Limits::min(), Limits::max());
        m_box->setSingleStep(step);
        m_box->setValue(start);
        m_box->stepBy(count);
        QTEST(m_box->value(), "end");
        QCOMPARE(m_box->lineEdit()->text(), QString::number(m_box->value()));
    }

    void typingCommitsOnEnter()
    {
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        type("250"_s);
        QCOMPARE(changed.size(), 0);
        QVERIFY(m_box->hasPendingEdit());
        QCOMPARE(m_box->value(), 100LL);
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toLongLong(), 250LL);
        QVERIFY(!m_box->hasPendingEdit());
        QTest::keyClick(m_box, Qt::Key_Return);
        m_other->setFocus();
        QCOMPARE(changed.size(), 1);
    }

    void typingCommitsOnFocusLoss()
    {
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        type("7"_s);
        m_other->setFocus();
        QTRY_VERIFY(m_other->hasFocus());
        QCOMPARE(changed.size(), 1);
        QCOMPARE(m_box->value(), 7LL);
    }

    void typedTexts_data()
    {
        const Rows<QString, qlonglong, int> row("text", "value", "signals_");
        row("unchanged", "100", 100, 0);
        row("leading zeros", "0100", 100, 0);
        row("empty", "", 100, 0);
        row("sign alone", "-", 100, 0);
        row("above the range", "4096", 1000, 1);
        row("below the range", "-5", 0, 1);
        row("beyond 64 bits", "99999999999999999999", 100, 0);
        row("far below 64 bits", "-99999999999999999999", 100, 0);
        // Keys that give no number are refused as they are typed.
        row("letters", "1a2", 12, 1);
        row("plus", "+8", 8, 1);
    }

    void typedTexts()
    {
        QFETCH(QString, text);
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        type(text);
        QCOMPARE(changed.size(), 0);
        QTest::keyClick(m_box, Qt::Key_Enter);
        QTEST(m_box->value(), "value");
        QTEST(changed.size(), "signals_");
        QCOMPARE(m_box->lineEdit()->text(), QString::number(m_box->value()));
    }

    void escapeDropsTypedText()
    {
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        type("250"_s);
        QTest::keyClick(m_box, Qt::Key_Escape);
        QCOMPARE(m_box->lineEdit()->text(), "100"_s);
        m_other->setFocus();
        QCOMPARE(changed.size(), 0);
    }

    void stepStartsFromTypedText()
    {
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        type("500"_s);
        QTest::keyClick(m_box, Qt::Key_Up);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(m_box->value(), 501LL);
    }

    void arrowKeysAndButtonsEmitAtOnce()
    {
        m_box->setSingleStep(4);
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        QTest::keyClick(m_box, Qt::Key_Up);
        QCOMPARE(m_box->value(), 104LL);
        QTest::keyClick(m_box, Qt::Key_Down);
        QTest::keyClick(m_box, Qt::Key_Down);
        QCOMPARE(m_box->value(), 96LL);
        QTest::mouseClick(m_box, Qt::LeftButton, {}, QPoint(m_box->width() - 10, 6));
        QCOMPARE(m_box->value(), 100LL);
        QTest::mouseClick(m_box, Qt::LeftButton, {},
                          QPoint(m_box->width() - 10, m_box->height() - 6));
        QCOMPARE(m_box->value(), 96LL);
        QCOMPARE(changed.size(), 5);
    }

    void sillyRangeAndStep()
    {
        m_box->setRange(50, -50);
        QCOMPARE(m_box->minimum(), 50LL);
        QCOMPARE(m_box->maximum(), 50LL);
        QCOMPARE(m_box->value(), 50LL);
        m_box->setRange(0, 100);
        for (const qlonglong step : {0LL, -8LL, Limits::min()}) {
            m_box->setSingleStep(step);
            m_box->setValue(10);
            m_box->stepBy(1);
            QCOMPARE(m_box->value(), 11LL);
        }
    }

    void rangeMovesTheValue()
    {
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        m_box->setRange(200, 300);
        QCOMPARE(m_box->value(), 200LL);
        m_box->setRange(150, 300);
        QCOMPARE(changed.size(), 1);
    }

    void programmaticValueReplacesTypedText()
    {
        type("9"_s);
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        m_box->setValue(100);
        QCOMPARE(m_box->lineEdit()->text(), "100"_s);
        QVERIFY(!m_box->hasPendingEdit());
        QCOMPARE(changed.size(), 0);
    }

    void slotMayDisableTheBox()
    {
        int calls = 0;
        connect(m_box, &ZELCustomSpinBox64::valueChanged, this, [&] {
            ++calls;
            m_box->setEnabled(false);
            m_box->setEnabled(true);
        });
        type("12"_s);
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(calls, 1);
        QCOMPARE(m_box->value(), 12LL);
    }
};

OBFT_TEST_MAIN(TestZELCustomSpinBox64)
#include "tst_zelcustomspinbox64.moc"
