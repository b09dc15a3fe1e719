// SPDX-License-Identifier: Apache-2.0
#include "Camera.h"
#include "HostCallbacks.h"
#include "OBFeatureTree/OBFeatureTree.h"
#include "RealCamera.h"
#include "host/FakeGigECamera.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXMainFeatureWidget.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QComboBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

#include <memory>

namespace {

constexpr int kSlowMs = 15000; // a pass over the protocol on a busy machine

} // namespace

// Drives the visible editors of the window on a GigE Vision camera that another program simulates,
// and asks a third program what the camera holds.
class TestGigEWindow : public GuardedTest
{
    Q_OBJECT
private slots:
    void initTestCase();
    void typedWidthReachesTheCamera();
    void valueOutOfRangeIsNotSent();
    void chosenEntryReachesTheCamera();
    void commandIsExecuted();
    void valueChangedByAnotherProgramShowsAfterRefresh();
    void windowSurvivesTheCamerasDeath();
    void cleanupTestCase();

private:
    // Shows the group of a feature and scrolls to it; its open editor.
    template <typename Editor>
    Editor* editorOf(const char* name);
    QString shown(const char* name) const
    {
        return m_tree->propertyItemByName(QString::fromLatin1(name))->value()->displayValue();
    }
    void type(QWidget* editor, const QString& text)
    {
        editor->setFocus();
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
    }

    std::unique_ptr<FakeGigECamera> m_fake;
    std::unique_ptr<Camera> m_camera;
    std::unique_ptr<HostCallbacks> m_host;
    ORXFeatureTree* m_tree = nullptr;
};

void TestGigEWindow::initTestCase()
{
    const QString reason = FakeGigECamera::reasonToSkip();
    if (!reason.isEmpty())
        QSKIP(qPrintable(reason));
    m_fake = std::make_unique<FakeGigECamera>();
    QVERIFY(m_fake->start());
    std::string error;
    m_camera = RealCamera::open("127.0.0.1", &error);
    QVERIFY2(m_camera, error.c_str());
    m_host = std::make_unique<HostCallbacks>(*m_camera);
    OB_FT_Init(m_camera->descriptionXml().c_str(), nullptr, nullptr);
    OB_FT_SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                          HostCallbacks::getMode, HostCallbacks::invalidate, HostCallbacks::action,
                          m_host.get());
    OB_FT_SetWidgetSize(900, 900);
    OB_FT_Start(nullptr, 0);
    m_tree = ORXMainFeatureWidget::instance(nullptr)->featureTree(1, false);
    QTRY_VERIFY_WITH_TIMEOUT(m_tree->HadUpdatedOnce(), kSlowMs);
}

void TestGigEWindow::cleanupTestCase()
{
    OB_FT_Release();
}

template <typename Editor>
Editor* TestGigEWindow::editorOf(const char* name)
{
    ORXPropertyTreeItem* item = m_tree->propertyItemByName(QString::fromLatin1(name));
    if (!item)
        return nullptr;
    // The group that shows the feature is chosen as the user does it.
    ORXPropertyTreeItem* group = item;
    while (group->parent(ORXPropertyTreeItem::FeatureTreePage) != m_tree->rootItem())
        group = group->parent(ORXPropertyTreeItem::FeatureTreePage);
    CFeatureGroupTreeView* groups =
        ORXMainFeatureWidget::instance(nullptr)->featureGroup(1)->groupView();
    const QModelIndex page = groups->model()->index(0, 0);
    const QModelIndex row =
        groups->model()->index(group->indexInParent(ORXPropertyTreeItem::FeatureTreePage), 0, page);
    QTest::mouseClick(groups->viewport(), Qt::LeftButton, {}, groups->visualRect(row).center());
    ORXFeatureTreeView* view = m_tree->treeView();
    QWidget* editor = nullptr;
    const bool ready = QTest::qWaitFor(
        [&] {
            editor = view->editorOf(item);
            return editor && editor->isVisible() && editor->isEnabled();
        },
        kSlowMs);
    return ready ? qobject_cast<Editor*>(editor) : nullptr;
}

// Asking the camera through another program takes seconds while this one holds it: its writes have
// returned by then, so one look is enough.
void TestGigEWindow::typedWidthReachesTheCamera()
{
    auto* width = editorOf<QWidget>("Width");
    QVERIFY(width);
    const QString wanted = shown("Width") == QLatin1String("320") ? "256"_s : "320"_s;
    type(width, wanted);
    QVERIFY(FakeGigECamera::readIndependently("Width"_s).contains(wanted));
    QTRY_COMPARE_WITH_TIMEOUT(shown("Width"), wanted, kSlowMs);
}

void TestGigEWindow::valueOutOfRangeIsNotSent()
{
    auto* width = editorOf<QWidget>("Width");
    QVERIFY(width);
    type(width, "99999999"_s);
    QTest::keyClick(width, Qt::Key_Tab);
    // Whatever the editor makes of it (the nearest legal value), it is legal, and window and camera
    // agree.
    _ZDCC_INTVALUE_EX_T record = {};
    QCOMPARE(m_camera->read(OB_FT_TYPE_INTEGER, "Width", &record), 0);
    QVERIFY(record.value <= record.maximum);
    QTRY_COMPARE_WITH_TIMEOUT(shown("Width"), QString::number(record.value), kSlowMs);
}

void TestGigEWindow::chosenEntryReachesTheCamera()
{
    auto* format = editorOf<QComboBox>("PixelFormat");
    QVERIFY(format);
    QTRY_VERIFY_WITH_TIMEOUT(format->count() > 1, kSlowMs);
    const QString old = format->currentText();
    format->setFocus();
    QTest::keyClick(format, format->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
    const QString text = format->currentText();
    QVERIFY(text != old);
    QVERIFY(FakeGigECamera::readIndependently("PixelFormat"_s).contains(text));
    QTRY_COMPARE_WITH_TIMEOUT(shown("PixelFormat"), text, kSlowMs);
}

void TestGigEWindow::commandIsExecuted()
{
    auto* button = editorOf<QPushButton>("AcquisitionStart");
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(MessageGuard::contains("NodeName:AcquisitionStart"_s));
    auto* stop = editorOf<QPushButton>("AcquisitionStop");
    QVERIFY(stop);
    QTest::mouseClick(stop, Qt::LeftButton);
    QVERIFY(MessageGuard::contains("NodeName:AcquisitionStop"_s));
}

void TestGigEWindow::valueChangedByAnotherProgramShowsAfterRefresh()
{
    // Another program cannot take control while this one has it, so the register is written past
    // the window: through the camera object, as a second user of the host would.
    QVERIFY(editorOf<QWidget>("Height"));
    const QString wanted = shown("Height") == QLatin1String("200") ? "160"_s : "200"_s;
    QCOMPARE(m_camera->write(OB_FT_TYPE_INTEGER, "Height", wanted.toStdString()), 0);
    QVERIFY(shown("Height") != wanted);
    OB_FT_UpdateFeatures();
    QTRY_COMPARE_WITH_TIMEOUT(shown("Height"), wanted, kSlowMs);
}

void TestGigEWindow::windowSurvivesTheCamerasDeath()
{
    MessageGuard::expectMessage("Read Feature Failed"_s);
    OB_FT_UpdateFeatures();
    m_fake->kill();
    // The window stays alive and answers while the pass runs into the dead camera.
    auto* width = editorOf<QWidget>("Width");
    QVERIFY(width);
    type(width, "128"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_tree->findChild<ZELCustomMessageBox*>(), kSlowMs);
    auto* box = m_tree->findChild<ZELCustomMessageBox*>();
    QCOMPARE(box->cTextTitle(), "Failed to set the feature value."_s);
    QVERIFY(box->cContent().startsWith("Node 'Width':failed to save value '128'\r\n"_s));
    QCOMPARE(OB_FT_UpdateFeatures(), 0);
    QCOMPARE(OB_FT_Close(), 0);
}

OBFT_TEST_MAIN(TestGigEWindow)
#include "tst_gigewindow.moc"
