// SPDX-License-Identifier: Apache-2.0
#include "ccm/ORXCCMWidget.h"

#include "cameras/CameraError.h"
#include "ccm/ColorMatrix.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/DemoPageTest.h"
#include "pages/SettingsFile.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QPointer>

namespace {

const SettingsFile kFile{"DEMO000001"_s};

// A matrix with its editor in a window of its own, driven as the page drives it.
class ShownMatrix
{
public:
    using Item = ORXPropertyTreeItem;

    // Makes of two items a matrix and its switch, as a page does it.
    static CTreeCustomCCMItemValue* tie(Item& item, Item& enable)
    {
        enable.setTagName("Boolean"_s);
        item.setTagName("CustomTagNameCCM"_s);
        auto* value = static_cast<CTreeCustomCCMItemValue*>(item.value());
        value->m_lCameraID = 1;
        value->m_pEnableItem = &enable;
        return value;
    }

    explicit ShownMatrix(CTreeCustomCCMItemValue::State state = CTreeCustomCCMItemValue::InCamera)
    {
        auto* value = tie(item, enable);
        value->m_nState = state;
        matrix = std::make_unique<ColorMatrix>(1, state == CTreeCustomCCMItemValue::InCamera,
                                               &enable, nullptr);
        value->m_pMatrix = matrix.get();
        widget = new ORXCCMWidget(&item, &window);
        widget->resize(360, 122);
        window.show();
    }

    QPropertyLineEdit* cell(int index) const
    {
        return window.findChild<QPropertyLineEdit*>("CCMValue%1"_s.arg(index));
    }
    QStringList texts() const
    {
        QStringList all;
        for (int i = 0; i < ORXRWCCMValue::kCoefficients; ++i)
            all += cell(i)->text();
        return all;
    }
    bool isOn() const { return enable.value()->value().toBool(); }
    bool read()
    {
        updateData();
        return QTest::qWaitFor([this] { return cell(0)->isEnabled(); });
    }
    // As the page: when it comes into sight, and when the camera has changed.
    void updateData()
    {
        if (m_bShown)
            widget->updateData();
        m_bShown = true;
        matrix->setShown(true);
    }
    bool becomesKnown()
    {
        updateData();
        return QTest::qWaitFor([this] { return matrix->isKnown(); });
    }
    // As the page writes a switch that the user pressed.
    void userSwitches(bool on)
    {
        enable.value()->setValue(on);
        matrix->switchTo(on);
    }
    void enter(int index, const char* text)
    {
        cell(index)->selectAll();
        QTest::keyClicks(cell(index), QString::fromLatin1(text));
        QTest::keyClick(cell(index), Qt::Key_Return);
    }

    Item enable{nullptr, Item::ImageProcessingPage};
    Item item{nullptr, Item::ImageProcessingPage};
    std::unique_ptr<ColorMatrix> matrix;
    QWidget window;
    QPointer<ORXCCMWidget> widget;

private:
    bool m_bShown = false;
};

} // namespace

class TestORXCCMWidget : public DemoPageTest
{
    Q_OBJECT

private:
    void setCoefficient(const char* index, const char* value)
    {
        write(kMatrixSelector, index);
        write(kMatrixValue, value);
    }
    void openSwitchedOn()
    {
        write("CCMEnable", "1");
        open();
    }
    // Opens with the transformation on; the reading of a matrix waits at a coefficient.
    std::unique_ptr<ShownMatrix> openAndHold()
    {
        write(kTransformation, "1");
        open();
        OB_FT_Close(); // nothing else reads
        m_camera->closeGate(kMatrixValue, MeddledCamera::Reads);
        auto matrix = std::make_unique<ShownMatrix>();
        matrix->updateData();
        return QTest::qWaitFor([this] { return m_camera->isHolding(); }) ? std::move(matrix)
                                                                         : nullptr;
    }
    QString shownMessage() const { return messageBox() ? messageBox()->cTextTitle() : QString(); }

private slots:
    void cellsShowTheCamera()
    {
        setCoefficient("1", "-0.25");
        setCoefficient("8", "3.5");
        write(kMatrixSelector, "6");
        openSwitchedOn();
        ShownMatrix matrix;
        QVERIFY(!matrix.cell(0)->isEnabled());
        QVERIFY(matrix.read());
        QCOMPARE(matrix.texts().join(QLatin1Char(' ')),
                 "1.0000 -0.2500 0.0000 0.0000 1.0000 0.0000 0.0000 0.0000 3.5000"_s);
        QVERIFY(matrix.isOn());
        // The camera is as it was.
        QCOMPARE(read(kMatrixSelector), 6);
        QCOMPARE(read(kTransformation), 0);
        QCOMPARE(read("CCMEnable"), 1);
        QCOMPARE(matrix.cell(5)->accessibleName(), "Row 2, column 3 (Gain12)"_s);
        QVERIFY(matrix.cell(5)->toolTip().startsWith("Row 2, column 3 (Gain12)\nRange"_s));
        m_window->widget()->SetLanguage(1);
        QTRY_COMPARE(matrix.cell(5)->accessibleName(), "第 2 行，第 3 列 (Gain12)"_s);
        QTRY_VERIFY(matrix.cell(5)->toolTip().startsWith("第 2 行，第 3 列 (Gain12)\n范围"_s));
    }

    void switchStatesDecide_data()
    {
        const Rows<bool, bool, QByteArray, bool> row("transformed", "matrix", "unreadable", "on");
        row("matrix", false, true, "", true);
        row("neither", false, false, "", false);
        row("transformation", true, false, "", false);
        row("matrix not told", false, false, "CCMEnable", true);
        row("transformation, matrix not told", true, false, "CCMEnable", false);
    }

    void switchStatesDecide()
    {
        const auto [transformed, matrix, unreadable, on] = fetchRow<bool, bool, QByteArray, bool>();
        setCoefficient("2", "0.125");
        write(kTransformation, transformed ? "1" : "0");
        write("CCMEnable", matrix ? "1" : "0");
        open();
        if (!unreadable.isEmpty())
            m_camera->fail(unreadable.constData(), CameraError::NotReadable, MeddledCamera::Reads);
        ShownMatrix cells;
        cells.enable.value()->setValue(!on);
        cells.updateData();
        QTRY_COMPARE(cells.cell(2)->text(), "0.1250"_s);
        QCOMPARE(cells.cell(2)->isEnabled(), on);
        QCOMPARE(cells.isOn(), on);
        QCOMPARE(read(kTransformation), transformed ? 1 : 0);
    }

    void editReachesTheCamera_data()
    {
        const Rows<int, QByteArray, QString, QStringList> row("index", "text", "shown", "writes");
        const auto writes = [](int index, const char* value) {
            return QStringList{"ColorTransformationValueSelector=%1"_s.arg(index),
                               "ColorTransformationValue=%1"_s.arg(QLatin1String(value))};
        };
        row("number", 5, "1.5", "1.5000", writes(5, "1.5"));
        row("exponent", 0, "-25e-2", "-0.2500", writes(0, "-0.25"));
        row("too large", 8, "9", "4.0000", writes(8, "4"));
        row("no number", 4, "one", "1.0000", QStringList());
        row("unchanged", 4, "1.0000", "1.0000", QStringList());
    }

    void editReachesTheCamera()
    {
        const auto [index, text, shown, writes] = fetchRow<int, QByteArray, QString, QStringList>();
        openSwitchedOn();
        ShownMatrix matrix;
        QVERIFY(matrix.read());
        m_camera->forget();
        matrix.enter(index, text.constData());
        QCOMPARE(matrix.cell(index)->text(), shown);
        QCOMPARE(m_camera->writes(), writes);
    }

    void refusedEditShowsWhatTheCameraHas()
    {
        MessageGuard::expectMessage("Read Feature Failed"_s);
        openSwitchedOn();
        ShownMatrix matrix;
        QVERIFY(matrix.read());
        m_camera->fail(kMatrixValue, CameraError::NotWritable, MeddledCamera::Writes);
        matrix.enter(4, "2");
        QCOMPARE(matrix.cell(4)->text(), "1.0000"_s);
        QCOMPARE(shownMessage(), "Failed to set the feature value."_s);
        QVERIFY(message().startsWith("Node 'ColorTransformationValue':failed to save value '2'"_s));
        delete messageBox();
        // A refused selector spares the value.
        m_camera->fail(kMatrixSelector, CameraError::NotWritable, MeddledCamera::Writes);
        m_camera->forget();
        matrix.enter(4, "2");
        QCOMPARE(matrix.cell(4)->text(), "1.0000"_s);
        QCOMPARE(m_camera->writesOf(kMatrixValue), 0);
        QVERIFY(message().startsWith(
            "Node 'ColorTransformationValueSelector':failed to save value '4'"_s));
    }

    void switchingWritesBothFeatures()
    {
        open();
        ShownMatrix matrix;
        QVERIFY(matrix.becomesKnown());
        for (const bool on : {true, false}) {
            m_camera->forget();
            matrix.userSwitches(on);
            QCOMPARE(m_camera->writes(),
                     (QStringList{"ColorTransformationEnable=%1"_s.arg(on ? 0 : 1),
                                  "CCMEnable=%1"_s.arg(on ? 1 : 0)}));
            QCOMPARE(matrix.cell(3)->isEnabled(), on);
        }
        // A refused switch goes back.
        MessageGuard::expectMessage("Read Feature Failed"_s);
        m_camera->fail(kTransformation, CameraError::NotWritable, MeddledCamera::Writes);
        matrix.userSwitches(true);
        QVERIFY(!matrix.isOn());
        QVERIFY(!matrix.cell(3)->isEnabled());
        QCOMPARE(shownMessage(), "Failed to set the feature value."_s);
    }

    void switchingNeedsNoSwitchOfTheMatrix()
    {
        write(kTransformation, "1");
        open({"CCMEnable"_s});
        ShownMatrix matrix;
        QVERIFY(matrix.becomesKnown());
        m_camera->forget();
        matrix.userSwitches(true);
        QCOMPARE(m_camera->writes(), QStringList("ColorTransformationEnable=0"_s));
        QVERIFY(matrix.isOn() && !messageBox());
    }

    // While the coefficients are read no pass must take one for that of the selected entry.
    void passesSeeTheirOwnCoefficient()
    {
        setCoefficient("6", "0.5");
        watchSelection(kMatrixSelector, 6, kMatrixValue);
        openSwitchedOn();
        const auto* shown = m_window->item(kTree, kMatrixValue)->value();
        const auto* selected = m_window->item(kTree, kMatrixSelector)->value();
        ShownMatrix matrix;
        for (int i = 0; i < 10; ++i) {
            OB_FT_UpdateFeatures();
            do
                QVERIFY(matrix.read());
            while (m_window->tree()->isReading());
            QCOMPARE(selected->value().toInt(), 6);
            QCOMPARE(shown->value().toFloat(), 0.5F);
        }
        QCOMPARE(strangeReads(), 0);
    }

    void switchingWhileReadingWins()
    {
        const auto matrix = openAndHold();
        QVERIFY(matrix);
        matrix->userSwitches(true);
        m_camera->openGate();
        QTRY_VERIFY(matrix->cell(0)->isEnabled());
        QVERIFY(matrix->isOn());
        QCOMPARE(read(kTransformation), 0);
        QCOMPARE(read("CCMEnable"), 1);
    }

    // In some of these rounds the reading has not begun yet.
    void switchingRightAfterShowingWins()
    {
        open();
        ShownMatrix matrix;
        for (int i = 0; i < 20; ++i) {
            const bool on = i % 2 == 0;
            matrix.matrix->setShown(true);
            matrix.matrix->switchTo(on);
            QTRY_COMPARE(read("CCMEnable"), on ? 1 : 0);
            QTRY_VERIFY(m_window->item(kTree, kMatrixSelector)->value()->enabled());
            matrix.matrix->setShown(false);
        }
    }

    void failureInTheMiddleLeavesTheCameraAsItWas()
    {
        MessageGuard::ignoreMessage(
            QtCriticalMsg, "Reading the color correction matrix: coefficient 4 cannot be read");
        write(kMatrixSelector, "7");
        write(kTransformation, "1");
        open();
        OB_FT_Close();
        std::atomic<int> reads{0};
        ShownMatrix matrix;
        QVERIFY(matrix.becomesKnown());
        const QStringList before = matrix.texts();
        m_camera->beforeRead = [&](const QString& name) {
            if (name == QLatin1String(kMatrixValue) && ++reads == 5)
                m_camera->fail(kMatrixValue, CameraError::NotReadable, MeddledCamera::Reads);
        };
        matrix.updateData();
        QTRY_VERIFY(MessageGuard::contains("coefficient 4 cannot be read"_s));
        QCOMPARE(read(kTransformation), 1);
        QCOMPARE(read(kMatrixSelector), 7);
        QVERIFY(!matrix.cell(0)->isEnabled());
        QCOMPARE(matrix.texts(), before);
        // The selector is moved only if it can be put back afterwards.
        MessageGuard::expectMessage("ColorTransformationValueSelector cannot be read"_s);
        m_camera->fail(kMatrixSelector, CameraError::NotReadable, MeddledCamera::Reads);
        m_camera->forget();
        matrix.updateData();
        QTRY_VERIFY(MessageGuard::contains("ColorTransformationValueSelector cannot be read"_s));
        QCOMPARE(m_camera->writesOf(kMatrixSelector), 0);
        QVERIFY(!matrix.cell(0)->isEnabled());
    }

    // Its destruction does not wait for the host, and the matrix is read to its end.
    void editorGoesWhileTheHostHangs()
    {
        setCoefficient("3", "0.75");
        const auto shown = openAndHold();
        QVERIFY(shown);
        delete shown->widget;
        m_camera->openGate();
        QTRY_VERIFY(shown->matrix->isKnown());
        QCOMPARE(shown->matrix->values()[3], 0.75);
        QCOMPARE(read(kTransformation), 1);
    }

    // No further coefficient is read, selector and transformation are put back. Seen again, the
    // matrix is read again.
    void outOfSightEndsTheReading()
    {
        write(kMatrixSelector, "7");
        const auto shown = openAndHold();
        QVERIFY(shown);
        m_camera->forget();
        shown->matrix->setShown(false);
        m_camera->openGate();
        QTRY_COMPARE(m_camera->writes(), (QStringList{"ColorTransformationValueSelector=7"_s,
                                                      "ColorTransformationEnable=1"_s}));
        QVERIFY(!shown->matrix->isKnown());
        shown->matrix->setShown(true);
        QTRY_VERIFY(shown->matrix->isKnown());
    }

    void itemsMayGoFirst()
    {
        openSwitchedOn();
        auto enable = std::make_unique<ORXPropertyTreeItem>(
            nullptr, ORXPropertyTreeItem::ImageProcessingPage);
        auto item = std::make_unique<ORXPropertyTreeItem>(nullptr,
                                                          ORXPropertyTreeItem::ImageProcessingPage);
        ColorMatrix matrix(1, true, enable.get(), nullptr);
        ShownMatrix::tie(*item, *enable)->m_pMatrix = &matrix;
        ORXCCMWidget widget(item.get(), nullptr);
        matrix.setShown(true);
        item.reset();
        enable.reset();
        QTRY_VERIFY(matrix.isKnown());
        QVERIFY(widget.findChild<QPropertyLineEdit*>()->isEnabled());
    }

    void fileModeShowsAndSwitchesTheFile()
    {
        open();
        ShownMatrix matrix(CTreeCustomCCMItemValue::InSettingsFile);
        m_camera->forget();
        matrix.updateData();
        QTRY_COMPARE(matrix.texts().join(QLatin1Char(' ')),
                     "1.0000 0.0000 0.0000 0.0000 1.0000 0.0000 0.0000 0.0000 1.0000"_s);
        QVERIFY(!matrix.cell(0)->isEnabled());
        QCOMPARE(kFile.stored(), QByteArray()); // made
        kFile.store("[Common]\nCCMEnable=true\nCCMValue0=512\nCCMValue5=-1\n");
        QVERIFY(matrix.read());
        QCOMPARE(matrix.cell(0)->text(), "0.5000"_s);
        QCOMPARE(matrix.cell(5)->text(), "-0.0010"_s);
        QVERIFY(matrix.isOn());
        // The host writes them: here they can be read and copied, but not edited.
        QVERIFY(matrix.cell(0)->isReadOnly());
        matrix.userSwitches(false);
        QTRY_VERIFY(!matrix.cell(0)->isEnabled());
        QVERIFY(kFile.stored().contains("CCMEnable=false"));
        // What the host writes meanwhile is kept, and shown when it counts again.
        kFile.store("[Common]\nCCMEnable=false\nCCMValue0=2048\n");
        matrix.userSwitches(true);
        QTRY_COMPARE(matrix.cell(0)->text(), "2.0000"_s);
        QVERIFY(kFile.stored().contains("CCMEnable=true"));
        QVERIFY(kFile.stored().contains("CCMValue0=2048"));
        QVERIFY(m_camera->writes().isEmpty());
    }
};

OBFT_TEST_MAIN(TestORXCCMWidget)
#include "tst_orxccmwidget.moc"
