// SPDX-License-Identifier: Apache-2.0
#include "DemoWindow.h"
#include "basetools/ORXInterface.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "pages/ORXCCMUpdateThread.h"
#include "pages/ORXCCMWidget.h"
#include "pages/ORXRWCCMValue.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/TestMain.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/TestPage.h"

#include <QDir>
#include <QSemaphore>
#include <QTimer>

namespace {

using Item = ORXPropertyTreeItem;

const QString kTransformation = "ColorTransformationEnable"_s;
const QString kValue = "ColorTransformationValue"_s;
const QString kDemoSerial = "DEMO000001"_s;

} // namespace

// The widget over items as a page makes them.
class Matrix
{
public:
    explicit Matrix(CTreeCustomCCMItemValue::State state)
    {
        enable.setTagName("Boolean"_s);
        item.setTagName("CustomTagNameCCM"_s);
        auto* value = static_cast<CTreeCustomCCMItemValue*>(item.value());
        value->m_nState = state;
        value->m_lCameraID = 1;
        value->m_pEnableItem = &enable;
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
        widget->updateData();
        return QTest::qWaitFor([this] { return cell(0)->isEnabled(); });
    }
    // As the model tells of a switch that the user pressed.
    void userSwitches(bool on)
    {
        enable.value()->setValue(on);
        enable.notifyViewUpdate(1, 2, false);
    }
    void enter(int index, const char* text)
    {
        cell(index)->selectAll();
        QTest::keyClicks(cell(index), QString::fromLatin1(text));
        QTest::keyClick(cell(index), Qt::Key_Return);
    }

    Item enable{nullptr, Item::ImageProcessingPage};
    Item item{nullptr, Item::ImageProcessingPage};
    QWidget window;
    QPointer<ORXCCMWidget> widget;
};

class TestORXCCMWidget : public GuardedTest
{
    Q_OBJECT
private slots:
    void cellsShowTheCamera();
    void switchStatesDecide_data();
    void switchStatesDecide();
    void editReachesTheCamera_data();
    void editReachesTheCamera();
    void refusedEditShowsWhatTheCameraHas();
    void switchingWritesBothFeatures();
    void switchingWhileReadingWins();
    void failureInTheMiddleLeavesTheCameraAsItWas();
    void cameraUnpluggedInTheMiddle();
    void destroyedWhileTheHostHangs();
    void nextEditorWaitsForTheLastOne();
    void itemsMayGoFirst();
    void fileModeShowsTheFile();
    void fileModeSwitchesTheFile();
    void badFileIsReportedAndLeftAlone();
    void delegateMakesTheEditor();
    void cellsSayWhereTheyAre();

protected:
    void prepare() override { removeFiles(); }
    void finish() override
    {
        removeFiles();
        ORXInterface::setLanguage("ENG"_s);
    }

private:
    static void removeFiles()
    {
        QDir(ORXInterface::userDataPath() + "/CCMList"_s).removeRecursively();
    }
    static void store(const QByteArray& content)
    {
        ORXRWCCMValue settings;
        settings.createSetting(kDemoSerial);
        QFile file(ORXRWCCMValue::fileOf(kDemoSerial));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QByteArray stored()
    {
        QFile file(ORXRWCCMValue::fileOf(kDemoSerial));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    static void setCoefficient(DemoWindow& window, const char* index, const char* value)
    {
        window.write(OB_FT_TYPE_ENUMERATION, "ColorTransformationValueSelector", index);
        window.write(OB_FT_TYPE_FLOAT, "ColorTransformationValue", value);
    }
    static bool switchOn(DemoWindow& window)
    {
        window.write(OB_FT_TYPE_BOOLEAN, "CCMEnable", "1");
        return window.open();
    }
    static QString shownMessage(const DemoWindow& window)
    {
        const auto* box = window.tree()->findChild<ZELCustomMessageBox*>();
        return box && box->isVisible() ? box->cTextTitle() : QString();
    }
};

void TestORXCCMWidget::cellsShowTheCamera()
{
    DemoWindow window;
    setCoefficient(window, "1", "-0.25");
    setCoefficient(window, "8", "3.5");
    window.write(OB_FT_TYPE_ENUMERATION, "ColorTransformationValueSelector", "6");
    QVERIFY(switchOn(window));
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    QVERIFY(!matrix.cell(0)->isEnabled());
    QVERIFY(matrix.read());
    QCOMPARE(matrix.texts().join(QLatin1Char(' ')),
             "1.0000 -0.2500 0.0000 0.0000 1.0000 0.0000 0.0000 0.0000 3.5000"_s);
    QVERIFY(matrix.isOn());
    // The camera is as it was.
    QCOMPARE(window.integer("ColorTransformationValueSelector"), 6);
    QCOMPARE(window.integer("ColorTransformationEnable"), 0);
    QCOMPARE(window.integer("CCMEnable"), 1);
}

void TestORXCCMWidget::switchStatesDecide_data()
{
    const Rows<bool, bool, QString, bool> row("transformed", "matrix", "unreadable", "on");
    row("matrix", false, true, "", true);
    row("neither", false, false, "", false);
    row("transformation", true, false, "", false);
    row("matrix not told", false, false, "CCMEnable", true);
    row("transformation, matrix not told", true, false, "CCMEnable", false);
}

void TestORXCCMWidget::switchStatesDecide()
{
    QFETCH(bool, transformed);
    QFETCH(bool, matrix);
    QFETCH(QString, unreadable);
    QFETCH(bool, on);
    DemoWindow window;
    setCoefficient(window, "2", "0.125");
    window.write(OB_FT_TYPE_BOOLEAN, "ColorTransformationEnable", transformed ? "1" : "0");
    window.write(OB_FT_TYPE_BOOLEAN, "CCMEnable", matrix ? "1" : "0");
    QVERIFY(window.open());
    window.plugged.refuseToRead(unreadable);
    Matrix cells(CTreeCustomCCMItemValue::InCamera);
    cells.enable.value()->setValue(!on);
    cells.widget->updateData();
    QTRY_COMPARE(cells.cell(2)->text(), "0.1250"_s);
    QCOMPARE(cells.cell(2)->isEnabled(), on);
    QCOMPARE(cells.isOn(), on);
    QCOMPARE(window.integer("ColorTransformationEnable"), transformed ? 1 : 0);
}

void TestORXCCMWidget::editReachesTheCamera_data()
{
    const Rows<int, QByteArray, QString, QStringList> row("index", "text", "shown", "writes");
    const auto writes = [](int index, const char* value) {
        return QStringList{"ColorTransformationValueSelector %1"_s.arg(index),
                           "ColorTransformationValue %1"_s.arg(QLatin1String(value))};
    };
    row("number", 5, "1.5", "1.5000", writes(5, "1.5"));
    row("exponent", 0, "-25e-2", "-0.2500", writes(0, "-0.25"));
    row("too large", 8, "9", "4.0000", writes(8, "4"));
    row("no number", 4, "one", "1.0000", QStringList());
    row("unchanged", 4, "1.0000", "1.0000", QStringList());
}

void TestORXCCMWidget::editReachesTheCamera()
{
    QFETCH(int, index);
    QFETCH(QByteArray, text);
    QFETCH(QString, shown);
    QFETCH(QStringList, writes);
    DemoWindow window;
    QVERIFY(switchOn(window));
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    QVERIFY(matrix.read());
    window.plugged.clearWrites();
    matrix.enter(index, text.constData());
    QCOMPARE(matrix.cell(index)->text(), shown);
    QCOMPARE(window.plugged.writes(), writes);
}

void TestORXCCMWidget::refusedEditShowsWhatTheCameraHas()
{
    MessageGuard::expectMessage("Read Feature Failed"_s);
    DemoWindow window;
    QVERIFY(switchOn(window));
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    QVERIFY(matrix.read());
    window.plugged.refuse(kValue);
    matrix.enter(4, "2");
    QCOMPARE(matrix.cell(4)->text(), "1.0000"_s);
    QCOMPARE(shownMessage(window), "Failed to set the feature value."_s);
    // A refused selector spares the value.
    window.plugged.refuse("ColorTransformationValueSelector"_s);
    window.plugged.clearWrites();
    matrix.enter(4, "2");
    QCOMPARE(matrix.cell(4)->text(), "1.0000"_s);
    QVERIFY(window.plugged.writes().isEmpty());
}

void TestORXCCMWidget::switchingWritesBothFeatures()
{
    DemoWindow window;
    QVERIFY(window.open());
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    for (const bool on : {true, false}) {
        window.plugged.clearWrites();
        matrix.userSwitches(on);
        QCOMPARE(window.plugged.writes(),
                 (QStringList{"ColorTransformationEnable %1"_s.arg(on ? 0 : 1),
                              "CCMEnable %1"_s.arg(on ? 1 : 0)}));
        QCOMPARE(matrix.cell(3)->isEnabled(), on);
    }
    // A refused switch goes back.
    MessageGuard::expectMessage("Read Feature Failed"_s);
    window.plugged.refuse(kTransformation);
    matrix.userSwitches(true);
    QVERIFY(!matrix.isOn());
    QVERIFY(!matrix.cell(3)->isEnabled());
    QCOMPARE(shownMessage(window), "Failed to set the feature value."_s);
}

void TestORXCCMWidget::switchingWhileReadingWins()
{
    DemoWindow window;
    window.write(OB_FT_TYPE_BOOLEAN, "ColorTransformationEnable", "1");
    QVERIFY(window.open());
    OB_FT_Close(); // nothing else reads
    QSemaphore reached;
    QSemaphore goOn;
    window.plugged.beforeRead = [&](const QString& name) {
        if (name != kValue || reached.available() > 0)
            return;
        reached.release();
        goOn.acquire();
    };
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    matrix.widget->updateData();
    QTRY_COMPARE(reached.available(), 1);
    matrix.userSwitches(true);
    goOn.release();
    QTRY_VERIFY(matrix.cell(0)->isEnabled());
    QVERIFY(matrix.isOn());
    QCOMPARE(window.integer("ColorTransformationEnable"), 0);
    QCOMPARE(window.integer("CCMEnable"), 1);
}

void TestORXCCMWidget::failureInTheMiddleLeavesTheCameraAsItWas()
{
    MessageGuard::ignoreMessage(QtCriticalMsg, "Reading the color correction matrix: coefficient 4 "
                                               "cannot be read");
    DemoWindow window;
    window.write(OB_FT_TYPE_ENUMERATION, "ColorTransformationValueSelector", "7");
    window.write(OB_FT_TYPE_BOOLEAN, "ColorTransformationEnable", "1");
    QVERIFY(window.open());
    OB_FT_Close();
    std::atomic<int> reads{0};
    window.plugged.beforeRead = [&](const QString& name) {
        if (name == kValue && ++reads == 5)
            window.plugged.refuseToRead(kValue);
    };
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    matrix.widget->updateData();
    QTRY_VERIFY(MessageGuard::contains("cannot be read"_s));
    QCOMPARE(window.integer("ColorTransformationEnable"), 1);
    QCOMPARE(window.integer("ColorTransformationValueSelector"), 7);
    QVERIFY(!matrix.cell(0)->isEnabled());
}

void TestORXCCMWidget::cameraUnpluggedInTheMiddle()
{
    MessageGuard::expectMessage("Reading the color correction matrix"_s);
    MessageGuard::expectMessage("Read Feature Failed"_s);
    DemoWindow window;
    QVERIFY(switchOn(window));
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    QVERIFY(matrix.read());
    OB_FT_Close();
    window.plugged.beforeRead = [&](const QString& name) {
        if (name == kValue)
            window.plugged.unplug();
    };
    matrix.widget->updateData();
    QTRY_VERIFY(MessageGuard::contains("Reading the color correction matrix"_s));
    QVERIFY(!matrix.cell(0)->isEnabled());
    QVERIFY(matrix.isOn()); // nothing is known of it
}

void TestORXCCMWidget::destroyedWhileTheHostHangs()
{
    DemoWindow window;
    window.write(OB_FT_TYPE_BOOLEAN, "ColorTransformationEnable", "1");
    QVERIFY(window.open());
    OB_FT_Close();
    QSemaphore reached;
    QSemaphore goOn;
    window.plugged.beforeRead = [&](const QString& name) {
        if (name != kValue || reached.available() > 0)
            return;
        reached.release();
        goOn.acquire();
    };
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    matrix.widget->updateData();
    QTRY_COMPARE(reached.available(), 1);
    delete matrix.widget; // returns although the host does not
    window.plugged.clearWrites();
    goOn.release();
    ORXCCMUpdateThread::stopAll();
    // No further coefficient; what was changed is put back.
    QCOMPARE(window.plugged.writes(), QStringList{"ColorTransformationEnable 1"_s});
    QCOMPARE(window.integer("ColorTransformationEnable"), 1);
}

void TestORXCCMWidget::nextEditorWaitsForTheLastOne()
{
    DemoWindow window;
    setCoefficient(window, "3", "0.75");
    window.write(OB_FT_TYPE_BOOLEAN, "ColorTransformationEnable", "1");
    QVERIFY(window.open());
    OB_FT_Close();
    QSemaphore reached;
    QSemaphore goOn;
    window.plugged.beforeRead = [&](const QString& name) {
        if (name != kValue || reached.available() > 0)
            return;
        reached.release();
        goOn.acquire();
    };
    Matrix first(CTreeCustomCCMItemValue::InCamera);
    first.widget->updateData();
    QTRY_COMPARE(reached.available(), 1);
    delete first.widget; // the transformation is off by now
    Matrix second(CTreeCustomCCMItemValue::InCamera);
    second.enable.value()->setValue(true);
    second.widget->updateData();
    QTimer::singleShot(50, this, [&] { goOn.release(); });
    QTRY_COMPARE(second.cell(3)->text(), "0.7500"_s);
    QVERIFY(!second.isOn());
    QCOMPARE(window.integer("ColorTransformationEnable"), 1);
}

void TestORXCCMWidget::itemsMayGoFirst()
{
    DemoWindow window;
    QVERIFY(switchOn(window));
    auto enable = std::make_unique<Item>(nullptr, Item::ImageProcessingPage);
    auto item = std::make_unique<Item>(nullptr, Item::ImageProcessingPage);
    enable->setTagName("Boolean"_s);
    item->setTagName("CustomTagNameCCM"_s);
    auto* value = static_cast<CTreeCustomCCMItemValue*>(item->value());
    value->m_lCameraID = 1;
    value->m_pEnableItem = enable.get();
    ORXCCMWidget widget(item.get(), nullptr);
    window.plugged.clearWrites();
    widget.updateData();
    item.reset();
    enable.reset();
    // Without the enable item the cells stay as they are.
    QTRY_VERIFY(window.plugged.writes().size() >= ORXRWCCMValue::kCoefficients);
    ORXCCMUpdateThread::stopAll();
    QApplication::processEvents();
    QVERIFY(!widget.findChild<QPropertyLineEdit*>()->isEnabled());
}

void TestORXCCMWidget::fileModeShowsTheFile()
{
    DemoWindow window;
    QVERIFY(window.open());
    Matrix matrix(CTreeCustomCCMItemValue::InSettingsFile);
    window.plugged.clearWrites();
    matrix.widget->updateData();
    QTRY_COMPARE(matrix.texts().join(QLatin1Char(' ')),
                 "1.0000 0.0000 0.0000 0.0000 1.0000 0.0000 0.0000 0.0000 1.0000"_s);
    QVERIFY(!matrix.cell(0)->isEnabled());
    QCOMPARE(stored(), QByteArray()); // made
    store("[Common]\nCCMEnable=true\nCCMValue0=512\nCCMValue5=-1\n");
    QVERIFY(matrix.read());
    QCOMPARE(matrix.cell(0)->text(), "0.5000"_s);
    QCOMPARE(matrix.cell(5)->text(), "-0.0010"_s);
    QVERIFY(matrix.isOn());
    // The host writes them: here they can be read and copied, but not edited.
    QVERIFY(matrix.cell(0)->isReadOnly());
    QVERIFY(window.plugged.writes().isEmpty());
}

void TestORXCCMWidget::fileModeSwitchesTheFile()
{
    DemoWindow window;
    QVERIFY(window.open());
    store("[Common]\nCCMEnable=false\nCCMValue0=2048\n");
    Matrix matrix(CTreeCustomCCMItemValue::InSettingsFile);
    matrix.userSwitches(true);
    QTRY_COMPARE(matrix.cell(0)->text(), "2.0000"_s);
    QVERIFY(stored().contains("CCMEnable=true"));
    QVERIFY(stored().contains("CCMValue0=2048"));
    matrix.userSwitches(false);
    QVERIFY(stored().contains("CCMEnable=false"));
    QTRY_VERIFY(!matrix.cell(0)->isEnabled());
}

void TestORXCCMWidget::badFileIsReportedAndLeftAlone()
{
    const QByteArray bad = "[Common]\nCCMEnable=true\nCCMValue3=abc\n";
    MessageGuard::expectMessage("Color correction settings"_s);
    DemoWindow window;
    QVERIFY(window.open());
    store(bad);
    Matrix matrix(CTreeCustomCCMItemValue::InSettingsFile);
    matrix.widget->updateData();
    QTRY_COMPARE(shownMessage(window), "The color correction settings cannot be used."_s);
    QVERIFY(MessageGuard::contains("CCMList_DEMO000001.ini: CCMValue3"_s));
    QVERIFY(!matrix.cell(0)->isEnabled());
    matrix.userSwitches(true);
    QVERIFY(!matrix.isOn());
    QCOMPARE(stored(), bad);
}

void TestORXCCMWidget::delegateMakesTheEditor()
{
    DemoWindow window;
    QVERIFY(switchOn(window));
    TestPage page(Item::CommonPage);
    page.makeRoot = [&page] { return page.addGroupOfTags({"CustomTagNameCCM"_s}); };
    page.getRootItem(1, true);
    Item* item = page.getRootItem(1, false)->child(0)->child(0);
    Item enable(nullptr, Item::CommonPage);
    enable.setTagName("Boolean"_s);
    auto* value = static_cast<CTreeCustomCCMItemValue*>(item->value());
    value->m_lCameraID = 1;
    value->m_pEnableItem = &enable;
    page.open();
    auto* editor = page.editor<ORXCCMWidget>("CustomTagNameCCM"_s);
    QVERIFY(editor);
    auto* first = editor->findChild<QPropertyLineEdit*>("CCMValue0"_s);
    QTRY_VERIFY(first->isEnabled());
    QCOMPARE(first->text(), "1.0000"_s);
    // Every cell lies inside the editor.
    for (const QPropertyLineEdit* cell : editor->findChildren<QPropertyLineEdit*>())
        QVERIFY(editor->rect().contains(QRect(cell->mapTo(editor, QPoint(0, 0)), cell->size())));
}

void TestORXCCMWidget::cellsSayWhereTheyAre()
{
    DemoWindow window;
    QVERIFY(switchOn(window));
    Matrix matrix(CTreeCustomCCMItemValue::InCamera);
    QVERIFY(matrix.read());
    QCOMPARE(matrix.cell(5)->accessibleName(), "Row 2, column 3"_s);
    QVERIFY(matrix.cell(5)->toolTip().startsWith("Row 2, column 3\nRange"_s));
    window.widget()->SetLanguage(1);
    QTRY_COMPARE(matrix.cell(5)->accessibleName(), "第 2 行，第 3 列"_s);
    QTRY_VERIFY(matrix.cell(5)->toolTip().startsWith("第 2 行，第 3 列\n范围"_s));
}

OBFT_TEST_MAIN(TestORXCCMWidget)
#include "tst_orxccmwidget.moc"
