// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomDoubleSpinBox.h"
#include "styledctl/ZELCustomLineEdit.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomQssHelper.h"
#include "styledctl/ZELCustomSlider.h"
#include "styledctl/ZELCustomSpinBox.h"
#include "styledctl/ZELCustomSpinBox64.h"
#include "styledctl/ZELCustomWidget.h"
#include "styledctl/ZELSplitterKeys.h"
#include "support/TestMain.h"

#include <QAbstractItemView>
#include <QAction>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <functional>

namespace {

using Make = std::function<QWidget*()>;

// A control of numbers, in the middle of its range.
template <typename Control>
QWidget* halfway()
{
    auto* control = new Control;
    control->setValue(50);
    return control;
}

// A window with the control and something else that can take the focus.
struct Stage
{
    explicit Stage(QWidget* widget)
        : control(widget)
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(control);
        layout->addWidget(&other);
        QVERIFY(showActive(window));
    }
    ~Stage() { other.setParent(nullptr); }

    QWidget window;
    QLineEdit other;
    QWidget* control; // Owned by the window.
};

QVariant valueOf(const QWidget* control)
{
    const QMetaProperty user = control->metaObject()->userProperty();
    if (user.isValid() && !qobject_cast<const QComboBox*>(control))
        return user.read(control);
    if (const auto* spin = qobject_cast<const ZELCustomSpinBox64*>(control))
        return spin->value();
    return control->property("currentIndex");
}

} // namespace

Q_DECLARE_METATYPE(Make)

// Behaviour that the controls share: wheel, keyboard, focus sign, fitting into tree rows.
class TestZELStyle : public GuardedTest
{
    Q_OBJECT

private slots:
    void focusShowsAndTakesTheWheel_data()
    {
        const Rows<Make> row("make");
        row("combo box", [] {
            auto* box = new ZELCustomComboBox;
            box->addItems({"a"_s, "b"_s, "c"_s});
            box->setCurrentIndex(1);
            return box;
        });
        row("spin box", &halfway<ZELCustomSpinBox>);
        row("spin box 64", &halfway<ZELCustomSpinBox64>);
        row("double spin box", &halfway<ZELCustomDoubleSpinBox>);
        row("slider", &halfway<ZELCustomSlider>);
    }

    void focusShowsAndTakesTheWheel()
    {
        QFETCH(Make, make);
        Stage stage(make());
        const QRgb accent = ZELCustom::getDataBaseColor("StyledCtlColor_Accent"_s).rgb();
        const auto accentPixels = [&] {
            const QImage image =
                stage.control->grab().toImage().convertToFormat(QImage::Format_RGB32);
            int count = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    count += image.pixel(x, y) == accent;
            }
            return count;
        };
        stage.other.setFocus();
        const int without = accentPixels();
        const QVariant before = valueOf(stage.control);
        QVERIFY(before.isValid());
        QVERIFY(!sendWheel(stage.control));
        QVERIFY(!stage.control->hasFocus());
        QCOMPARE(valueOf(stage.control), before);
        stage.control->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(stage.control->hasFocus());
        QVERIFY2(accentPixels() > without + 10, qPrintable(QString::number(without)));
        QVERIFY(sendWheel(stage.control));
        QVERIFY(valueOf(stage.control) != before);
    }

    void keysMoveASplitter()
    {
        QSplitter splitter(Qt::Vertical);
        splitter.setChildrenCollapsible(false);
        auto* above = new QTreeWidget(&splitter);
        new QTreeWidget(&splitter);
        new ZELSplitterKeys(&splitter);
        splitter.resize(300, 600);
        QVERIFY(showActive(splitter));
        above->setFocus();
        const auto press = [&](Qt::Key key, int times) {
            for (int i = 0; i < times; ++i)
                QTest::keyClick(above, key, Qt::ControlModifier | Qt::ShiftModifier);
            return splitter.sizes();
        };
        const QList<int> before = splitter.sizes();
        constexpr int kStep = ZELSplitterKeys::kStepPx;
        QCOMPARE(press(Qt::Key_Down, 2),
                 (QList<int>{before.at(0) + 2 * kStep, before.at(1) - 2 * kStep}));
        QCOMPARE(press(Qt::Key_Up, 2), before);
        // Neither side goes.
        const int least = press(Qt::Key_Up, 40).at(0);
        QVERIFY(least > 0 && least < before.at(0));
        QVERIFY(press(Qt::Key_Down, 40).at(1) > 0);
    }

    void keyboardAlone()
    {
        ZELCustomCheckBox box;
        QTest::keyClick(&box, Qt::Key_Space);
        QVERIFY(box.isChecked());
        QTest::keyClick(&box, Qt::Key_Return);
        QVERIFY(!box.isChecked());
        ZELCustomPushButton button;
        QSignalSpy clicked(&button, &QPushButton::clicked);
        QTest::keyClick(&button, Qt::Key_Space);
        QTest::keyClick(&button, Qt::Key_Enter);
        QCOMPARE(clicked.size(), 2);
    }

    void typingEmitsOnce()
    {
        for (const Make& make :
             {Make(halfway<ZELCustomSpinBox>), Make(halfway<ZELCustomDoubleSpinBox>)}) {
            Stage stage(make());
            QSignalSpy changed(stage.control, SIGNAL(textChanged(QString)));
            stage.control->findChild<QLineEdit*>()->selectAll();
            QTest::keyClicks(stage.control, "42"_s);
            QCOMPARE(changed.size(), 0);
            QTest::keyClick(stage.control, Qt::Key_Return);
            QCOMPARE(changed.size(), 1);
        }
    }

    void numbersIgnoreTheLocale()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        ZELCustomDoubleSpinBox box;
        box.setRange(0, 1e6);
        box.setValue(1234.5);
        ZELCustomSpinBox whole;
        whole.setRange(0, 1000000);
        whole.setValue(123456);
        QLocale::setDefault(QLocale::c());
        QCOMPARE(box.text(), "1234.50"_s);
        QCOMPARE(whole.text(), "123456"_s);
    }

    void steppingAsksToSave()
    {
        ZELCustomSlider slider(Qt::Horizontal);
        QSignalSpy sliderSave(&slider, &ZELCustomSlider::SigSaveParam);
        slider.setValue(10);
        QCOMPARE(sliderSave.size(), 0);
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(sliderSave.size(), 1);
        slider.setValue(slider.maximum());
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(sliderSave.size(), 1);

        ZELCustomSpinBox box;
        QSignalSpy boxSave(&box, &ZELCustomSpinBox::SigSaveParam);
        box.setValue(7);
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(boxSave.size(), 1);
    }

    void searchBox()
    {
        ZELCustomLineEdit edit;
        QSignalSpy searched(&edit, &ZELCustomLineEdit::cSigSearchClicked);
        QTest::keyClick(&edit, Qt::Key_Return);
        QCOMPARE(searched.size(), 0);
        edit.cSetSearchEnabled(true);
        edit.cSetSearchEnabled(true);
        QCOMPARE(edit.actions().size(), 2);
        QAction* search = edit.actions().at(0);
        QAction* clear = edit.actions().at(1);
        QVERIFY(!clear->isVisible());
        search->trigger();
        QTest::keyClicks(&edit, "gain"_s);
        QTest::keyClick(&edit, Qt::Key_Return);
        QCOMPARE(searched.size(), 2);
        QVERIFY(clear->isVisible());
        clear->trigger();
        QVERIFY(edit.text().isEmpty() && !clear->isVisible());
        QTest::keyClicks(&edit, "g"_s);
        QTest::keyClick(&edit, Qt::Key_Escape);
        QVERIFY(edit.text().isEmpty());
        edit.cSetSearchEnabled(false);
        QVERIFY(edit.actions().isEmpty());
        edit.setText("x"_s);
    }

    void comboBoxBuildsItsListLate()
    {
        ZELCustomComboBox box;
        box.addItems({"Mono8"_s, "Mono12"_s});
        box.show();
        for (const int fontSize : {14, 16}) {
            box.cSetFontSize(fontSize);
            QCOMPARE(box.findChildren<QAbstractItemView*>().isEmpty(), fontSize == 14);
            box.showPopup();
            QVERIFY(box.view()->isVisible());
            QCOMPARE(box.view()->font().pixelSize(), fontSize);
            box.hidePopup();
        }
    }

    void comboBoxSizeFollowsEntriesAndFont()
    {
        ZELCustomComboBox box;
        const int empty = box.sizeHint().width();
        box.addItem("BayerRG12Packed"_s);
        const int one = box.sizeHint().width();
        QVERIFY(one > empty);
        QVERIFY(box.minimumSizeHint().width() < one);
        box.cSetFontSize(20);
        const int large = box.sizeHint().width();
        QVERIFY(large > one);
        box.addItem(QString(400, QLatin1Char('x')));
        QVERIFY(box.sizeHint().width() < 4 * large);
    }

    void comboBoxShowsItsCaptionBeforeTheEntry()
    {
        ZELCustomComboBox box;
        box.addItem("Mono8"_s);
        box.resize(300, 32);
        const auto picture = [&box] { return box.grab().toImage(); };
        const QImage plain = picture();
        box.cSetCaption("Palette"_s);
        const QImage named = picture();
        QVERIFY(named != plain);
        // The entry has moved aside; its pixels are the same further to the right.
        const int shift = box.fontMetrics().horizontalAdvance("Palette"_s) + 12;
        const QRect entry(8, 4, box.fontMetrics().horizontalAdvance("Mono8"_s), 24);
        QCOMPARE(named.copy(entry.translated(shift, 0)), plain.copy(entry));
        box.cSetCaption(QString());
        QCOMPARE(picture(), plain);
    }

    void treeRowsHaveTheFixedHeight()
    {
        class Tree : public QTreeWidget, public ZELCustomQssHelper
        {
        public:
            Tree()
                : ZELCustomQssHelper(this)
            {
                cSetStyleSheets({ZELCustom::Sheet_Tree, ZELCustom::Sheet_ScrollBar});
            }
        };
        Tree tree;
        auto* group = new QTreeWidgetItem(&tree, {"Group"_s});
        auto* row = new QTreeWidgetItem(group, {"曝光时间"_s});
        tree.expandAll();
        tree.show();
        // Pages without a scroll bar are sized by counting rows of this height.
        QCOMPARE(tree.visualItemRect(row).height(), 38);
        QCOMPARE(tree.visualItemRect(group).height(), 38);
        ZELCustomLineEdit editor;
        QVERIFY(editor.sizeHint().height() <= 32);
    }

    void controlLooksTheSameUnderAnOwnerWithSheet()
    {
        const auto picture = [](const QString& ownersSheet) {
            QWidget owner;
            owner.setStyleSheet(ownersSheet);
            ZELCustomComboBox box(&owner);
            box.addItem("Mono8"_s);
            box.resize(160, 32);
            return box.grab().toImage().convertToFormat(QImage::Format_ARGB32);
        };
        QCOMPARE(picture(ZELCustom::styleSheet(ZELCustom::Sheet_Tree)), picture(QString()));
    }

    // What a container covers is not painted behind it; what it lets through is.
    void containersHideWhatTheyCover_data()
    {
        const Rows<QColor, int, int, bool> row("fill", "border", "radius", "hides");
        row("fill", Qt::white, 0, 0, true);
        row("no fill", QColor(), 0, 0, false);
        row("translucent", QColor(0, 0, 0, 100), 0, 0, false);
        row("border", Qt::white, 1, 0, false);
        row("round", Qt::white, 0, 5, false);
    }

    void containersHideWhatTheyCover()
    {
        const auto [fill, border, radius, hides] = fetchRow<QColor, int, int, bool>();
        struct Behind : QWidget
        {
            QRegion painted;
            void paintEvent(QPaintEvent* event) override { painted += event->region(); }
        };
        Behind behind;
        behind.resize(60, 40);
        ZELCustomWidget container(&behind);
        container.setGeometry(behind.rect());
        container.cSetBackgroundColor(fill);
        container.cSetBorderColor(QColor(Qt::black));
        container.cSetBorderWidth(border);
        container.cSetBorderRadius(radius);
        behind.show();
        QVERIFY(QTest::qWaitForWindowExposed(&behind));
        QTRY_VERIFY(!behind.painted.isEmpty() || hides);
        QCOMPARE(behind.painted.isEmpty(), hides);
    }

    // Boxes upright and whole are put together from parts; turned around they are drawn in one.
    void boxesOfPartsLookAsDrawnInOne_data()
    {
        const Rows<int, int, QColor, qreal> row("radius", "border", "fill", "pixelRatio");
        row("thin frame", 4, 1, Qt::white, 1);
        row("focus ring", 4, 2, Qt::yellow, 1);
        row("round", 11, 1, QColor(10, 90, 200), 1);
        row("sharp", 0, 1, Qt::white, 1);
        row("no frame", 6, 0, Qt::darkGreen, 1);
        row("translucent", 6, 0, QColor(0, 0, 0, 100), 1);
        row("too small for parts", 25, 2, Qt::white, 1);
        row("fine screen", 5, 1, Qt::white, 2);
        row("uneven screen", 5, 1, Qt::white, 1.5);
    }

    void boxesOfPartsLookAsDrawnInOne()
    {
        const auto [radius, border, fill, pixelRatio] = fetchRow<int, int, QColor, qreal>();
        ZELCustomWidget box;
        box.resize(60, 40);
        box.cSetBackgroundColor(fill);
        box.cSetBorderColor(QColor(border > 0 ? "#c04080" : ""));
        box.cSetBorderWidth(border);
        box.cSetBorderRadius(radius);
        const auto drawn = [&](bool turned) {
            QImage image(box.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(pixelRatio);
            image.fill(Qt::gray);
            QPainter painter(&image);
            if (turned) {
                painter.translate(box.width(), box.height());
                painter.scale(-1, -1);
            }
            box.render(&painter, QPoint(), QRegion(), {});
            painter.end();
            return turned ? image.mirrored(true, true) : image;
        };
        const QImage parts = drawn(false);
        const QImage whole = drawn(true);
        for (int y = 0; y < parts.height(); ++y) {
            for (int x = 0; x < parts.width(); ++x) {
                const QColor a = parts.pixelColor(x, y);
                const QColor b = whole.pixelColor(x, y);
                const int difference =
                    std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                              std::abs(a.blue() - b.blue())});
                QVERIFY2(difference <= 10,
                         qPrintable("%1,%2: %3 and %4"_s.arg(x).arg(y).arg(a.name(), b.name())));
            }
        }
    }
};

OBFT_TEST_MAIN(TestZELStyle)
#include "tst_zelstyle.moc"
