// SPDX-License-Identifier: Apache-2.0
#include "userset/ORXFeatureSaveWidget.h"

#include "cameras/CameraError.h"
#include "device/OBDeviceControl.h"
#include "pages/DemoPageTest.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

constexpr auto kLoadTime = 2s; // the demo camera loads within
const QString kNotConfirmed = "The camera did not confirm that the user set is loaded."_s;

} // namespace

// How a load is interrupted.
using End = std::function<void(ORXFeatureSaveWidget*)>;
Q_DECLARE_METATYPE(End)

// The user set dialog: opened by the tool bar, its buttons pressed, and the message boxes that come
// up answered.
class TestORXFeatureSaveWidget : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_seen.clear();
        m_bAnswer = true;
        m_bTimeGoesOn = false;
        m_boxes.setInterval(5);
        m_boxes.callOnTimeout(this, [this] {
            if (m_bTimeGoesOn)
                m_clock->advance(100ms);
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
    void finish() override
    {
        m_boxes.stop();
        m_boxes.disconnect();
        DemoPageTest::finish();
    }

private:
    // Opens the dialog by the tool bar and runs the steps inside its event loop.
    void inDialog(const std::function<void(ORXFeatureSaveWidget*)>& steps)
    {
        bool ran = false;
        QTimer::singleShot(0, this, [&] {
            const QPointer<ORXFeatureSaveWidget> dialog =
                m_window->widget()->findChild<ORXFeatureSaveWidget*>();
            QVERIFY(dialog && dialog->isVisible());
            ran = true;
            steps(dialog);
            if (dialog)
                dialog->close();
        });
        QTest::mouseClick(m_window->widget()->findChild<QAbstractButton*>("ORXFeatureSave"_s),
                          Qt::LeftButton);
        QVERIFY(ran);
    }
    void press(ORXFeatureSaveWidget* dialog, int id)
    {
        QTRY_VERIFY(button(dialog, id)->isEnabled());
        QTest::mouseClick(button(dialog, id), Qt::LeftButton);
    }
    // Presses, and runs the steps in the dialog's inner event loop as soon as the condition holds.
    void press(ORXFeatureSaveWidget* dialog, int id, const std::function<bool()>& condition,
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
    static QAbstractButton* button(const ORXFeatureSaveWidget* dialog, int id)
    {
        for (QAbstractButton* each : dialog->findChildren<QAbstractButton*>()) {
            if (each->property("userData") == QVariant(id))
                return each;
        }
        return nullptr;
    }
    static QString text(const ORXFeatureSaveWidget* dialog, const char* label)
    {
        return dialog->findChild<QLabel*>(QString::fromLatin1(label))->text();
    }
    bool isWaiting(const ORXFeatureSaveWidget* dialog) const
    {
        const auto* status = m_window->item(kTree, "UserSetLoadStatus")->value();
        return !button(dialog, 0)->isEnabled() && status->displayValue() == "Loading"_s;
    }
    // The same as soon as the dialog waits for the load.
    void pressAndWait(ORXFeatureSaveWidget* dialog, int id, const std::function<void()>& steps)
    {
        press(
            dialog, id, [&] { return isWaiting(dialog); }, steps);
    }

    QTimer m_boxes;     // answers message boxes
    QStringList m_seen; // their texts
    bool m_bTimeGoesOn = false;
    bool m_bAnswer = true;

private slots:
    void everyButtonDoesItsWork_data()
    {
        // What the buttons have to do, by id; written down here once more, independent of the
        // dialog.
        const Rows<int, QByteArray, QStringList, QString> row("id", "set", "writes", "message");
        row("0", 0, "1", "UserSetSelector=1 UserSetSave", "user set1 saved.");
        row("1", 1, "2", "UserSetSelector=2 UserSetSave", "user set2 saved.");
        row("2", 2, "3", "UserSetSelector=3 UserSetSave", "user set3 saved.");
        row("3", 3, "0", "UserSetSelector=0 UserSetLoad", "user default loaded.");
        row("4", 4, "1", "UserSetSelector=1 UserSetLoad", "user set1 loaded.");
        row("5", 5, "2", "UserSetSelector=2 UserSetLoad", "user set2 loaded.");
        row("6", 6, "3", "UserSetSelector=3 UserSetLoad", "user set3 loaded.");
        const QString done =
            "Configuration suscceeded. The camera will load the %1 when it is rebooted."_s;
        row("7", 7, "0", "UserSetDefault=0", done.arg("default UserSet"_s));
        row("8", 8, "1", "UserSetDefault=1", done.arg("UserSet1"_s));
        row("9", 9, "2", "UserSetDefault=2", done.arg("UserSet2"_s));
        row("10", 10, "3", "UserSetDefault=3", done.arg("UserSet3"_s));
    }

    void everyButtonDoesItsWork()
    {
        const auto [id, set, writes, message] = fetchRow<int, QByteArray, QStringList, QString>();
        const bool powerUp = writes.size() == 1;
        // Another value than the wanted one, so that it has to be written.
        write(powerUp ? "UserSetDefault" : "UserSetSelector", set == "3" ? "2" : "3");
        open();
        m_bTimeGoesOn = true;
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            press(dialog, id);
            QCOMPARE(m_seen, QStringList(message));
            QTRY_COMPARE(text(dialog, powerUp ? "UserSetPowerUpName" : "UserSetCurrentName"),
                         set == "0" ? "Default"_s : "User Set "_s + QLatin1String(set));
            press(dialog, id);
            QCOMPARE(m_seen, QStringList({message, message}));
        });
        // A load puts a selector of the display back, which is no matter of this dialog.
        QStringList written = m_camera->writes();
        for (const QString& each : m_camera->writes().filter("RegionDisplaySelector"_s))
            written.removeOne(each);
        // What the camera has already is not written again.
        QCOMPARE(written, writes + writes.mid(1));
    }

    void setsKeepAndRestoreSettings()
    {
        write("ExposureTime", "5000");
        open();
        m_bTimeGoesOn = true;
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            press(dialog, 2);
            write("ExposureTime", "700");
            press(dialog, 6);
            _ZDCC_FLOATVALUE_T record = {};
            QCOMPARE(m_demo->read(OB_FT_TYPE_FLOAT, "ExposureTime", &record), 0);
            QCOMPARE(record.value, 5000.0F);
            // What the camera changed by itself is shown, too.
            const auto* shown = m_window->item(kTree, "ExposureTime")->value();
            QTRY_COMPARE(shown->value().toFloat(), 5000.0F);
        });
    }

    void refusedSelectorSkipsTheCommand()
    {
        open();
        m_camera->fail("UserSetSelector", CameraError::NotWritable, MeddledCamera::Writes);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            press(dialog, 0);
            press(dialog, 4); // its wait ends, since nothing is loaded
        });
        QCOMPARE(m_camera->writes(), words("UserSetSelector=1 UserSetSelector=1"));
        // Only the tree reports it; a second message is dropped while the first one is shown.
        QTRY_VERIFY(!m_seen.isEmpty());
        for (const QString& each : qAsConst(m_seen))
            QVERIFY2(each.contains(QLatin1String("failed to save value")), qPrintable(each));
    }

    void loadWaitsForTheStatus()
    {
        open();
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            pressAndWait(dialog, 5, [&] {
                // Nothing can be pressed, but the window lives: what is read meanwhile arrives.
                write("UserSetDefault", "2");
                OB_FT_UpdateFeatures();
                QTRY_COMPARE(text(dialog, "UserSetPowerUpName"), "User Set 2"_s);
                QVERIFY(isWaiting(dialog));
                QVERIFY(m_seen.isEmpty());
                m_clock->advance(kLoadTime);
            });
            QCOMPARE(m_seen, QStringList("user set2 loaded."_s));
            QVERIFY(button(dialog, 5)->isEnabled());
        });
    }

    void loadWithoutStatusDoesNotWait()
    {
        open({"UserSetLoadStatus"_s});
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            press(dialog, 4);
            QCOMPARE(m_seen, QStringList("user set1 loaded."_s));
        });
    }

    // It may have begun before the load.
    void theFirstReadingIsNotTrusted()
    {
        UserSetLoadWait one(nullptr, nullptr, {});
        one.noteReading(false);
        QVERIFY(one.run() == UserSetLoadWait::Outcome::Abandoned);
        UserSetLoadWait more(nullptr, nullptr, {});
        for (const bool loading : {false, true, false})
            more.noteReading(loading);
        QVERIFY(more.run() == UserSetLoadWait::Outcome::Ended);
    }

    void waitEndsCleanly_data()
    {
        const Rows<End> row("end");
        row("release", End([](auto*) { OB_FT_Release(); }));
        row("close the window", End([](auto*) { OB_FT_Close(); }));
        row("remove the tree",
            End([](auto*) { ORXMainFeatureWidget::instance(nullptr)->removeFeatureTree(1); }));
        row("escape", End([](auto* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }));
        row("close and release", End([](auto*) {
                OB_FT_Close();
                OB_FT_Release();
            }));
    }

    void waitEndsCleanly()
    {
        QFETCH(End, end);
        open();
        const QPointer<ORXMainFeatureWidget> widget = m_window->widget();
        QPointer<ORXFeatureSaveWidget> dialog;
        inDialog([&](ORXFeatureSaveWidget* opened) {
            dialog = opened;
            pressAndWait(opened, 4, [&] { end(opened); });
        });
        QVERIFY(dialog.isNull());
        QVERIFY(m_seen.isEmpty());
        OB_FT_Release();
        QTRY_VERIFY(widget.isNull());
    }

    void waitEndsByItself_data()
    {
        const Rows<bool, QString> row("unplugged", "line");
        row("camera unplugged", true, "Loading a user set: the camera does not answer any more");
        row("endless load", false, "still says that it is loading");
    }

    void waitEndsByItself()
    {
        const auto [unplugged, line] = fetchRow<bool, QString>();
        MessageGuard::ignoreMessage(QtCriticalMsg, QRegularExpression(line));
        open();
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            UserSetLoadWait::Limits limits;
            (unplugged ? limits.lostMs : limits.longestMs) = unplugged ? 400 : 1500;
            dialog->setLoadLimits(limits);
            pressAndWait(dialog, 4, [&] {
                if (unplugged)
                    m_camera->unplug();
            });
            QCOMPARE(m_seen, QStringList{kNotConfirmed});
            QTRY_COMPARE(button(dialog, 4)->isEnabled(), !unplugged);
        });
    }

    void openMessageGoesWithTheWindow()
    {
        open();
        const QPointer<ORXMainFeatureWidget> widget = m_window->widget();
        m_bAnswer = false;
        inDialog([&](ORXFeatureSaveWidget* dialog) {
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

    void releaseFromInsideTheWrite()
    {
        open();
        const QPointer<ORXMainFeatureWidget> widget = m_window->widget();
        m_camera->beforeWrite = [](const QString& name) {
            if (name == QLatin1String("UserSetSelector"))
                OB_FT_Release();
        };
        inDialog([&](ORXFeatureSaveWidget* dialog) { press(dialog, 4); });
        QTRY_VERIFY(widget.isNull());
        QVERIFY(m_seen.isEmpty());
    }

    void missingFeatureIsNotSupported_data()
    {
        const Rows<QString> row("feature");
        for (const char* name : {"UserSetCurrent", "UserSetSelector", "UserSetLoad", "UserSetSave",
                                 "UserSetDefault", "DeviceReset"})
            row.of(name);
    }

    void missingFeatureIsNotSupported()
    {
        QFETCH(QString, feature);
        open({feature});
        QTest::mouseClick(m_window->widget()->findChild<QAbstractButton*>("ORXFeatureSave"_s),
                          Qt::LeftButton);
        QCOMPARE(m_seen, QStringList("Not supported."_s));
        QVERIFY(m_camera->writes().isEmpty());
    }

    void acquisitionDisablesLoadingAndTheLevelHidesTheReset()
    {
        write("AcquisitionStart", "");
        OBDeviceControl::SetUserLevel(1);
        open();
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            QCOMPARE(dialog->size(), QSize(370, 438));
            QCOMPARE(dialog->windowModality(), Qt::WindowModal);
            QVERIFY(dialog->windowFlags() & Qt::WindowStaysOnTopHint);
            const auto usable = [dialog](int id) { return button(dialog, id)->isEnabled(); };
            for (int id = 0; id <= 10; ++id)
                QCOMPARE(usable(id), id < 3 || id > 6); // none that loads
            write("AcquisitionStop", "");
            OB_FT_UpdateFeatures();
            for (int id = 3; id <= 6; ++id)
                QTRY_VERIFY(usable(id));
            QVERIFY(!button(dialog, 11)->isVisible());
            OBDeviceControl::SetUserLevel(0);
            m_window->widget()->OnUserLeverChanged();
            QTRY_VERIFY(button(dialog, 11)->isVisible());
        });
    }

    void resetClosesAndTellsTheUser()
    {
        open();
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            const QPointer<ORXFeatureSaveWidget> guard(dialog);
            press(dialog, 11);
            QVERIFY(!guard || !guard->isVisible());
        });
        QCOMPARE(m_camera->writes(), QStringList("DeviceReset"_s));
        QTRY_COMPARE(m_seen,
                     QStringList("The camera is about to reboot. Reconnect the\ncamera later."_s));
        QVERIFY(!m_demo->isConnected());
        m_clock->advance(DemoCamera::kRestartTime + 1s);
        QCOMPARE(m_demo->reconnect(), 0);
    }

    void keyboardReachesEveryButton()
    {
        open();
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            // By rows: the default set cannot be saved.
            for (const int id : {3, 7, 0, 4, 8, 1, 5, 9, 2, 6, 10, 11}) {
                QCOMPARE(dialog->focusWidget(), button(dialog, id));
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            }
            button(dialog, 8)->setFocus();
            QTest::keyClick(button(dialog, 8), Qt::Key_Space);
            QCOMPARE(m_camera->writes(), QStringList("UserSetDefault=1"_s));
            QTRY_COMPARE(dialog->focusWidget(), button(dialog, 8));
            QTest::keyClick(button(dialog, 8), Qt::Key_Escape);
            QVERIFY(!dialog->isVisible());
        });
    }

    void dialogSpeaksChinese()
    {
        open({}, 1);
        inDialog([&](ORXFeatureSaveWidget* dialog) {
            QCOMPARE(dialog->windowTitle(), "用户集控制"_s);
            QCOMPARE(text(dialog, "UserSetCurrentName"), "默认"_s);
            press(dialog, 2);
            QCOMPARE(m_seen, QStringList("用户集 3 已保存。"_s));
            // Nothing is cut off.
            for (int id = 0; id <= 10; ++id)
                QVERIFY(button(dialog, id)->width() >= button(dialog, id)->sizeHint().width());
        });
    }
};

OBFT_TEST_MAIN(TestORXFeatureSaveWidget)
#include "tst_orxfeaturesavewidget.moc"
