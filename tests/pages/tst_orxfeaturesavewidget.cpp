// SPDX-License-Identifier: Apache-2.0
#include "DemoWindow.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "pages/ORXFeatureSaveWidget.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

constexpr auto kLoadTime = 2s; // the demo camera loads within
const QString kNotConfirmed = "The camera did not confirm that the user set is loaded."_s;

// What the buttons have to do, by id; written down here once more, independent of the dialog.
struct Row
{
    int id;
    const char* setValue;
    const char* selector;
    const char* command; // empty: the selector is all
    const char* message;
};

const Row kRows[] = {
    {0, "1", "UserSetSelector", "UserSetSave", "user set1 saved."},
    {1, "2", "UserSetSelector", "UserSetSave", "user set2 saved."},
    {2, "3", "UserSetSelector", "UserSetSave", "user set3 saved."},
    {3, "0", "UserSetSelector", "UserSetLoad", "user default loaded."},
    {4, "1", "UserSetSelector", "UserSetLoad", "user set1 loaded."},
    {5, "2", "UserSetSelector", "UserSetLoad", "user set2 loaded."},
    {6, "3", "UserSetSelector", "UserSetLoad", "user set3 loaded."},
    {7, "0", "UserSetDefault", "",
     "Configuration suscceeded. The camera will load the default UserSet when it is rebooted."},
    {8, "1", "UserSetDefault", "",
     "Configuration suscceeded. The camera will load the UserSet1 when it is rebooted."},
    {9, "2", "UserSetDefault", "",
     "Configuration suscceeded. The camera will load the UserSet2 when it is rebooted."},
    {10, "3", "UserSetDefault", "",
     "Configuration suscceeded. The camera will load the UserSet3 when it is rebooted."},
};

QByteArray without(const char* feature)
{
    QByteArray xml = DemoCamera::description();
    xml.replace("<pFeature>" + QByteArray(feature) + "</pFeature>", "");
    return xml;
}

} // namespace

// How a load is interrupted.
using End = std::function<void(DemoWindow&, ORXFeatureSaveWidget*)>;
Q_DECLARE_METATYPE(End)

class TestORXFeatureSaveWidget : public GuardedTest
{
    Q_OBJECT
private slots:
    void everyButtonDoesItsWork_data();
    void everyButtonDoesItsWork();
    void equalValuesAreNotWrittenAgain();
    void setsKeepAndRestoreSettings();
    void refusedSelectorSkipsTheCommand();
    void loadWaitsForTheStatus();
    void loadWithoutStatusDoesNotWait();
    void loadThatWasOverAtOnceEnds();
    void waitEndsCleanly_data();
    void waitEndsCleanly();
    void unpluggedCameraEndsTheWait();
    void endlessLoadEndsByItself();
    void openMessageGoesWithTheWindow();
    void releaseFromInsideTheWrite();
    void missingFeatureIsNotSupported_data();
    void missingFeatureIsNotSupported();
    void acquisitionDisablesLoading();
    void levelHidesTheReset();
    void resetClosesAndTellsTheUser();
    void keyboardReachesEveryButton();
    void dialogSpeaksChinese();

protected:
    void prepare() override;
    void finish() override;

private:
    // Opens the dialog by the tool bar and runs the steps inside its event loop.
    void inDialog(DemoWindow& window, const std::function<void(ORXFeatureSaveWidget*)>& steps);
    void press(ORXFeatureSaveWidget* dialog, int id);
    // Presses, and runs the steps in the dialog's inner event loop as soon as the condition holds.
    void press(ORXFeatureSaveWidget* dialog, int id, const std::function<bool()>& condition,
               const std::function<void()>& steps);
    static QAbstractButton* button(const ORXFeatureSaveWidget* dialog, int id);
    static QString text(const ORXFeatureSaveWidget* dialog, const char* label);
    static bool isWaiting(const ORXFeatureSaveWidget* dialog, DemoWindow& window);

    QTimer m_boxes;                   // answers message boxes
    QStringList m_seen;               // their texts
    DemoWindow* m_pMovesOn = nullptr; // the window whose camera's time goes on by itself
    bool m_bAnswer = true;
};

void TestORXFeatureSaveWidget::prepare()
{
    m_seen.clear();
    m_bAnswer = true;
    m_pMovesOn = nullptr;
    m_boxes.setInterval(5);
    m_boxes.callOnTimeout(this, [this] {
        if (m_pMovesOn)
            m_pMovesOn->clock.advance(100ms);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* box = qobject_cast<ZELCustomMessageBox*>(window);
            if (!box || !box->isVisible() || !m_bAnswer)
                continue;
            m_seen += box->cContent().isEmpty() ? box->cTextTitle() : box->cContent();
            QTest::mouseClick(box->cButton(ZELCustomMessageBox::Result_Ok), Qt::LeftButton);
            return;
        }
    });
    m_boxes.start();
}

void TestORXFeatureSaveWidget::finish()
{
    m_boxes.stop();
    m_boxes.disconnect();
    OBDeviceControl::SetUserLevel(1);
    ORXInterface::setLanguage("ENG"_s);
}

void TestORXFeatureSaveWidget::inDialog(DemoWindow& window,
                                        const std::function<void(ORXFeatureSaveWidget*)>& steps)
{
    bool ran = false;
    QTimer::singleShot(0, this, [&] {
        const QPointer<ORXFeatureSaveWidget> dialog =
            window.widget()->findChild<ORXFeatureSaveWidget*>();
        QVERIFY(dialog && dialog->isVisible());
        ran = true;
        steps(dialog);
        if (dialog)
            dialog->close();
    });
    QTest::mouseClick(window.widget()->findChild<QAbstractButton*>("ORXFeatureSave"_s),
                      Qt::LeftButton);
    QVERIFY(ran);
}

QAbstractButton* TestORXFeatureSaveWidget::button(const ORXFeatureSaveWidget* dialog, int id)
{
    for (QAbstractButton* each : dialog->findChildren<QAbstractButton*>()) {
        if (each->property("userData") == QVariant(id))
            return each;
    }
    return nullptr;
}

QString TestORXFeatureSaveWidget::text(const ORXFeatureSaveWidget* dialog, const char* label)
{
    return dialog->findChild<QLabel*>(QString::fromLatin1(label))->text();
}

void TestORXFeatureSaveWidget::press(ORXFeatureSaveWidget* dialog, int id)
{
    QTRY_VERIFY(button(dialog, id)->isEnabled());
    QTest::mouseClick(button(dialog, id), Qt::LeftButton);
}

void TestORXFeatureSaveWidget::press(ORXFeatureSaveWidget* dialog, int id,
                                     const std::function<bool()>& condition,
                                     const std::function<void()>& steps)
{
    bool ran = false;
    QTimer watch;
    watch.callOnTimeout(this, [&] {
        if (!condition())
            return;
        watch.stop();
        QTimer::singleShot(0, this, [&] {
            ran = true;
            steps();
        });
    });
    watch.start(5);
    press(dialog, id);
    QVERIFY(ran);
}

bool TestORXFeatureSaveWidget::isWaiting(const ORXFeatureSaveWidget* dialog, DemoWindow& window)
{
    const ORXPropertyTreeItem* status = window.tree()->propertyItemByName("UserSetLoadStatus"_s);
    return !button(dialog, 0)->isEnabled() &&
           status->value()->displayValue() == QLatin1String("Loading");
}

void TestORXFeatureSaveWidget::everyButtonDoesItsWork_data()
{
    QTest::addColumn<int>("row");
    for (const Row& row : kRows)
        QTest::addRow("%d", row.id) << static_cast<int>(&row - kRows);
}

void TestORXFeatureSaveWidget::everyButtonDoesItsWork()
{
    QFETCH(int, row);
    const Row& wanted = kRows[row];
    DemoWindow window;
    // Another value than the wanted one, so that it has to be written.
    const char* other = qstrcmp(wanted.setValue, "3") == 0 ? "2" : "3";
    window.write(OB_FT_TYPE_ENUMERATION, wanted.selector, other);
    QVERIFY(window.open());
    m_pMovesOn = &window;
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        QCOMPARE(ORXFeatureSaveWidget::getBtnMapSelector(wanted.id), atoi(wanted.setValue));
        press(dialog, wanted.id);
        QCOMPARE(m_seen, QStringList{QString::fromLatin1(wanted.message)});
        const bool powerUp = qstrlen(wanted.command) == 0;
        const QString name = "User Set "_s + QLatin1String(wanted.setValue);
        QTRY_COMPARE(text(dialog, powerUp ? "UserSetPowerUpName" : "UserSetCurrentName"),
                     wanted.setValue[0] == '0' ? "Default"_s : name);
    });
    QStringList writes = {QString::fromLatin1(wanted.selector) + QLatin1Char(' ') +
                          QLatin1String(wanted.setValue)};
    if (qstrlen(wanted.command) > 0)
        writes += QString::fromLatin1(wanted.command);
    // A load puts a selector of the display back, which is no matter of this dialog.
    QStringList written = window.plugged.writes();
    for (const QString& each : window.plugged.writes()) {
        if (each.startsWith(QLatin1String("RegionDisplaySelector")))
            written.removeOne(each);
    }
    QCOMPARE(written, writes);
}

void TestORXFeatureSaveWidget::equalValuesAreNotWrittenAgain()
{
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        press(dialog, 1);
        press(dialog, 1);
        QCOMPARE(window.plugged.writes(),
                 (QStringList{"UserSetSelector 2"_s, "UserSetSave"_s, "UserSetSave"_s}));
        window.plugged.clearWrites();
        press(dialog, 7);
        QVERIFY(window.plugged.writes().isEmpty());
        QCOMPARE(m_seen.size(), 3);
    });
    for (const int id : {-1, 11, 12, 100})
        QCOMPARE(ORXFeatureSaveWidget::getBtnMapSelector(id), 0);
}

void TestORXFeatureSaveWidget::setsKeepAndRestoreSettings()
{
    DemoWindow window;
    window.write(OB_FT_TYPE_FLOAT, "ExposureTime", "5000");
    QVERIFY(window.open());
    m_pMovesOn = &window;
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        press(dialog, 2);
        window.write(OB_FT_TYPE_FLOAT, "ExposureTime", "700");
        press(dialog, 6);
        QCOMPARE(window.number("ExposureTime"), 5000.0F);
        // What the camera changed by itself is shown, too.
        const ORXPropertyTreeItem* exposure = window.tree()->propertyItemByName("ExposureTime"_s);
        QTRY_COMPARE(exposure->value()->value().toFloat(), 5000.0F);
    });
}

void TestORXFeatureSaveWidget::refusedSelectorSkipsTheCommand()
{
    DemoWindow window;
    QVERIFY(window.open());
    window.plugged.refuse("UserSetSelector"_s);
    MessageGuard::expectMessage("Read Feature Failed"_s);
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        press(dialog, 0);
        press(dialog, 4); // its wait ends, since nothing is loaded
    });
    QVERIFY(window.plugged.writes().isEmpty());
    // Only the tree reports it; a second message is dropped while the first one is shown.
    QTRY_VERIFY(!m_seen.isEmpty());
    for (const QString& each : qAsConst(m_seen))
        QVERIFY2(each.contains(QLatin1String("failed to save value")), qPrintable(each));
}

void TestORXFeatureSaveWidget::loadWaitsForTheStatus()
{
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        const auto waiting = [&] { return isWaiting(dialog, window); };
        press(dialog, 5, waiting, [&] {
            // Nothing can be pressed, but the window lives: what is read meanwhile arrives.
            window.write(OB_FT_TYPE_ENUMERATION, "UserSetDefault", "2");
            OB_FT_UpdateFeatures();
            QTRY_COMPARE(text(dialog, "UserSetPowerUpName"), "User Set 2"_s);
            QVERIFY(waiting());
            QVERIFY(m_seen.isEmpty());
            window.clock.advance(kLoadTime);
        });
        QCOMPARE(m_seen, QStringList{"user set2 loaded."_s});
        QVERIFY(button(dialog, 5)->isEnabled());
    });
}

void TestORXFeatureSaveWidget::loadWithoutStatusDoesNotWait()
{
    DemoWindow window(without("UserSetLoadStatus"));
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        press(dialog, 4);
        QCOMPARE(m_seen, QStringList{"user set1 loaded."_s});
    });
}

// The status never said "Loading" when it was read: nothing of it changes.
void TestORXFeatureSaveWidget::loadThatWasOverAtOnceEnds()
{
    DemoWindow window;
    QVERIFY(window.open());
    // The camera is still busy with an earlier load when the command comes, and refuses it.
    window.plugged.refuse("UserSetLoad"_s);
    MessageGuard::expectMessage("Read Feature Failed"_s);
    MessageGuard::expectMessage("Failed to execute Node"_s);
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        press(dialog, 4);
        QVERIFY(button(dialog, 4)->isEnabled());
    });
}

void TestORXFeatureSaveWidget::waitEndsCleanly_data()
{
    const Rows<End> row("end");
    row("release", End([](DemoWindow&, ORXFeatureSaveWidget*) { OB_FT_Release(); }));
    row("close the window", End([](DemoWindow&, ORXFeatureSaveWidget*) { OB_FT_Close(); }));
    row("remove the tree", End([](DemoWindow& window, ORXFeatureSaveWidget*) {
            window.widget()->removeFeatureTree(1);
        }));
    row("escape", End([](DemoWindow&, ORXFeatureSaveWidget* dialog) {
            QTest::keyClick(dialog, Qt::Key_Escape);
        }));
    row("close and release", End([](DemoWindow&, ORXFeatureSaveWidget*) {
            OB_FT_Close();
            OB_FT_Release();
        }));
}

void TestORXFeatureSaveWidget::waitEndsCleanly()
{
    QFETCH(End, end);
    DemoWindow window;
    QVERIFY(window.open());
    const QPointer<ORXMainFeatureWidget> widget = window.widget();
    QPointer<ORXFeatureSaveWidget> dialog;
    inDialog(window, [&](ORXFeatureSaveWidget* opened) {
        dialog = opened;
        press(
            opened, 4, [&] { return isWaiting(opened, window); }, [&] { end(window, opened); });
    });
    QVERIFY(dialog.isNull());
    QVERIFY(m_seen.isEmpty());
    OB_FT_Release();
    QTRY_VERIFY(widget.isNull());
}

void TestORXFeatureSaveWidget::unpluggedCameraEndsTheWait()
{
    MessageGuard::ignoreMessage(QtCriticalMsg,
                                "Loading a user set: the camera does not answer any more");
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        UserSetLoadWait::Limits limits;
        limits.lostMs = 400;
        dialog->setLoadLimits(limits);
        press(
            dialog, 4, [&] { return isWaiting(dialog, window); }, [&] { window.plugged.unplug(); });
        QCOMPARE(m_seen, QStringList{kNotConfirmed});
        QTRY_VERIFY(!button(dialog, 4)->isEnabled());
    });
}

void TestORXFeatureSaveWidget::endlessLoadEndsByItself()
{
    MessageGuard::ignoreMessage(QtCriticalMsg,
                                QRegularExpression("still says that it is loading"_s));
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        UserSetLoadWait::Limits limits;
        limits.longestMs = 1500;
        dialog->setLoadLimits(limits);
        press(dialog, 4);
        QCOMPARE(m_seen, QStringList{kNotConfirmed});
        QVERIFY(button(dialog, 4)->isEnabled());
    });
}

void TestORXFeatureSaveWidget::openMessageGoesWithTheWindow()
{
    DemoWindow window;
    QVERIFY(window.open());
    const QPointer<ORXMainFeatureWidget> widget = window.widget();
    m_bAnswer = false;
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        const auto box = [&] { return dialog->findChild<ZELCustomMessageBox*>(); };
        press(
            dialog, 0, [&] { return box() && box()->isVisible(); },
            [&] {
                QCOMPARE(box()->cCaption(), "Prompt"_s);
                OB_FT_Release();
            });
    });
    QTRY_VERIFY(widget.isNull());
}

void TestORXFeatureSaveWidget::releaseFromInsideTheWrite()
{
    DemoWindow window;
    QVERIFY(window.open());
    const QPointer<ORXMainFeatureWidget> widget = window.widget();
    window.plugged.beforeWrite = [](const QString& name) {
        if (name == QLatin1String("UserSetSelector"))
            OB_FT_Release();
    };
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) { press(dialog, 4); });
    QTRY_VERIFY(widget.isNull());
    QVERIFY(m_seen.isEmpty());
}

void TestORXFeatureSaveWidget::missingFeatureIsNotSupported_data()
{
    const Rows<QByteArray> row("feature");
    for (const char* name : {"UserSetCurrent", "UserSetSelector", "UserSetLoad", "UserSetSave",
                             "UserSetDefault", "DeviceReset"})
        row.of(name);
}

void TestORXFeatureSaveWidget::missingFeatureIsNotSupported()
{
    QFETCH(QByteArray, feature);
    DemoWindow window(without(feature.constData()));
    QVERIFY(window.open());
    QTest::mouseClick(window.widget()->findChild<QAbstractButton*>("ORXFeatureSave"_s),
                      Qt::LeftButton);
    QCOMPARE(m_seen, QStringList{"Not supported."_s});
    QVERIFY(window.plugged.writes().isEmpty());
}

void TestORXFeatureSaveWidget::acquisitionDisablesLoading()
{
    DemoWindow window;
    window.write(OB_FT_TYPE_COMMAND, "AcquisitionStart", "");
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        for (const int id : {3, 4, 5, 6})
            QVERIFY(!button(dialog, id)->isEnabled());
        QVERIFY(button(dialog, 0)->isEnabled());
        window.write(OB_FT_TYPE_COMMAND, "AcquisitionStop", "");
        OB_FT_UpdateFeatures();
        for (const int id : {3, 4, 5, 6})
            QTRY_VERIFY(button(dialog, id)->isEnabled());
    });
}

void TestORXFeatureSaveWidget::levelHidesTheReset()
{
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        QCOMPARE(dialog->size(), QSize(370, 438));
        QCOMPARE(dialog->windowModality(), Qt::WindowModal);
        QVERIFY(dialog->windowFlags() & Qt::WindowStaysOnTopHint);
        QVERIFY(!button(dialog, 11)->isVisible());
        OBDeviceControl::SetUserLevel(0);
        window.widget()->OnUserLeverChanged();
        QTRY_VERIFY(button(dialog, 11)->isVisible());
    });
}

void TestORXFeatureSaveWidget::resetClosesAndTellsTheUser()
{
    OBDeviceControl::SetUserLevel(0);
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        const QPointer<ORXFeatureSaveWidget> guard(dialog);
        press(dialog, 11);
        QVERIFY(!guard || !guard->isVisible());
    });
    QCOMPARE(window.plugged.writes(), QStringList{"DeviceReset"_s});
    QTRY_COMPARE(m_seen,
                 QStringList{"The camera is about to reboot. Reconnect the\ncamera later."_s});
    QVERIFY(!window.camera.isConnected());
    window.clock.advance(DemoCamera::kRestartTime + 1s);
    QCOMPARE(window.camera.reconnect(), 0);
}

void TestORXFeatureSaveWidget::keyboardReachesEveryButton()
{
    OBDeviceControl::SetUserLevel(0);
    DemoWindow window;
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        // By rows: the default set cannot be saved.
        for (const int id : {3, 7, 0, 4, 8, 1, 5, 9, 2, 6, 10, 11}) {
            QCOMPARE(dialog->focusWidget(), button(dialog, id));
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        }
        button(dialog, 8)->setFocus();
        QTest::keyClick(button(dialog, 8), Qt::Key_Space);
        QCOMPARE(window.plugged.writes(), QStringList{"UserSetDefault 1"_s});
        QTRY_COMPARE(dialog->focusWidget(), button(dialog, 8));
        QTest::keyClick(button(dialog, 8), Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
    });
}

void TestORXFeatureSaveWidget::dialogSpeaksChinese()
{
    DemoWindow window({}, 1);
    QVERIFY(window.open());
    inDialog(window, [&](ORXFeatureSaveWidget* dialog) {
        QCOMPARE(dialog->windowTitle(), "用户集控制"_s);
        QCOMPARE(text(dialog, "UserSetCurrentName"), "默认"_s);
        press(dialog, 2);
        QCOMPARE(m_seen, QStringList{"用户集 3 已保存。"_s});
        // Nothing is cut off.
        for (int id = 0; id <= 10; ++id)
            QVERIFY(button(dialog, id)->width() >= button(dialog, id)->sizeHint().width());
    });
}

OBFT_TEST_MAIN(TestORXFeatureSaveWidget)
#include "tst_orxfeaturesavewidget.moc"
