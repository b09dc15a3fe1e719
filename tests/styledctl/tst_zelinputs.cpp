// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomSpinBox64.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <limits>

namespace {

using Limits = std::numeric_limits<qlonglong>;

// Guarded against a second click; the test moves the time.
struct PatientButton : ZELCustomPushButton
{
    PatientButton()
    {
        cSetClickClock([this] { return now; });
        cSetControlClickEvent(true);
        connect(this, &QPushButton::clicked, this, [this] { ++clicks; });
    }
    qint64 now = 1000;
    int clicks = 0;
};

} // namespace

class TestZELInputs : public GuardedTest
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
        QVERIFY(showActive(*m_window));
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
        const auto [start, step, count] = fetchRow<qlonglong, qlonglong, int>();
        m_box->setRange(Limits::min(), Limits::max());
        m_box->setSingleStep(step);
        m_box->setValue(start);
        m_box->stepBy(count);
        QTEST(m_box->value(), "end");
        QCOMPARE(m_box->lineEdit()->text(), QString::number(m_box->value()));
    }

    void typedTexts_data()
    {
        // key 0: the focus goes elsewhere
        const Rows<QString, int, qlonglong, QString> row("text", "key", "value", "emitted");
        row("enter", "250", Qt::Key_Return, 250, "250");
        row("focus loss", "7", 0, 7, "7");
        row("escape drops it", "250", Qt::Key_Escape, 100, "");
        row("step starts from it", "500", Qt::Key_Up, 501, "501");
        row("unchanged", "100", Qt::Key_Enter, 100, "");
        row("leading zeros", "0100", Qt::Key_Enter, 100, "");
        row("empty", "", Qt::Key_Enter, 100, "");
        row("sign alone", "-", Qt::Key_Enter, 100, "");
        row("above the range", "4096", Qt::Key_Enter, 1000, "1000");
        row("below the range", "-5", Qt::Key_Enter, 0, "0");
        row("beyond 64 bits", "99999999999999999999", Qt::Key_Enter, 100, "");
        row("far below 64 bits", "-99999999999999999999", Qt::Key_Enter, 100, "");
        // Keys that give no number are refused as they are typed.
        row("letters", "1a2", Qt::Key_Enter, 12, "12");
        row("plus", "+8", Qt::Key_Enter, 8, "8");
    }

    void typedTexts()
    {
        const auto [text, key] = fetchRow<QString, int>();
        QStringList emitted;
        const QObject listening;
        connect(m_box, &ZELCustomSpinBox64::valueChanged, &listening,
                [&emitted](qlonglong value) { emitted += QString::number(value); });
        type(text);
        QVERIFY(m_box->hasPendingEdit());
        QCOMPARE(m_box->value(), 100LL);
        if (key != 0)
            QTest::keyClick(m_box, Qt::Key(key));
        else
            m_other->setFocus();
        QTEST(m_box->value(), "value");
        QCOMPARE(m_box->lineEdit()->text(), QString::number(m_box->value()));
        QVERIFY(!m_box->hasPendingEdit());
        // Once is enough.
        QTest::keyClick(m_box, Qt::Key_Return);
        m_other->setFocus();
        QTEST(emitted.join(QLatin1Char(' ')), "emitted");
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

    void whatTheProgramChanges()
    {
        type("9"_s);
        QSignalSpy changed(m_box, &ZELCustomSpinBox64::valueChanged);
        m_box->setValue(100);
        QCOMPARE(m_box->lineEdit()->text(), "100"_s);
        QVERIFY(!m_box->hasPendingEdit());
        QCOMPARE(changed.size(), 0);
        // The range moves the value, once.
        m_box->setRange(200, 300);
        QCOMPARE(m_box->value(), 200LL);
        m_box->setRange(150, 300);
        QCOMPARE(changed.size(), 1);
        m_box->setRange(50, -50);
        QCOMPARE((QVector<qlonglong>{m_box->minimum(), m_box->maximum(), m_box->value()}),
                 (QVector<qlonglong>{50, 50, 50}));
        m_box->setRange(0, 100);
        for (const qlonglong step : {0LL, -8LL, Limits::min()}) {
            m_box->setSingleStep(step);
            m_box->setValue(10);
            m_box->stepBy(1);
            QCOMPARE(m_box->value(), 11LL);
        }
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

    void guardIgnoresSecondClick_data()
    {
        const Rows<int> row("way");
        row("mouse", 0);
        row("space", Qt::Key_Space);
        row("enter", Qt::Key_Return);
        row("program", -1);
    }

    void guardIgnoresSecondClick()
    {
        QFETCH(int, way);
        PatientButton button;
        const auto press = [&] {
            if (way == 0)
                QTest::mouseClick(&button, Qt::LeftButton);
            else if (way < 0)
                button.click();
            else
                QTest::keyClick(&button, Qt::Key(way));
        };
        press();
        button.now += 499;
        press();
        // Filling an editor again sets the guard again: that must not open it.
        button.cSetControlClickEvent(true);
        press();
        QCOMPARE(button.clicks, 1);
        button.now += 1;
        press();
        QCOMPARE(button.clicks, 2);
    }

    void slowHandlerDoesNotOpenTheGuard()
    {
        PatientButton button;
        connect(&button, &QPushButton::clicked, this, [&] {
            // A handler that runs the event loop may be clicked while it runs.
            if (button.clicks == 1) {
                QTest::mouseClick(&button, Qt::LeftButton);
                button.now += 100;
            }
        });
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(button.clicks, 1);
    }

    void releaseOfAnIgnoredPressDoesNothing()
    {
        PatientButton button;
        QTest::mouseClick(&button, Qt::LeftButton);
        button.now += 400;
        QTest::mousePress(&button, Qt::LeftButton);
        button.now += 200;
        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(button.clicks, 1);
    }
};

OBFT_TEST_MAIN(TestZELInputs)
#include "tst_zelinputs.moc"
