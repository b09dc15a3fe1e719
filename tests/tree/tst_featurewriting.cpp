// SPDX-License-Identifier: Apache-2.0
// Writing through a feature tree: values, commands, what is read again, messages, the overlay.
#include "basetools/ORXInterface.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/FeatureTreeTest.h"
#include "tree/ORXPropertySpinBox.h"

#include <QRegularExpression>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>

class TestFeatureWriting : public FeatureTreeTest
{
    Q_OBJECT

private:
    QStringList sortedReads() const
    {
        QStringList reads = m_host->calls().filter(QRegularExpression("^get "_s));
        reads.sort();
        return reads;
    }

private slots:
    // Values --------------------------------------------------------------------------------------
    void oneEdit()
    {
        readWithoutPolling();
        auto* spin = editor<ORXPropertySpinBox>("Width");
        spin->setFocus();
        spin->selectAll();
        QTest::keyClicks(spin, "650"_s);
        QTest::keyClick(spin, Qt::Key_Return);
        QCOMPARE(m_host->writes(), QStringList("set Width 640"_s)); // on the grid
        QVERIFY(MessageGuard::contains("NodeName:Width, NodeValue:640, [CameraID:1]"_s));
        QCOMPARE(overlay(), "Setting features..."_s);
        QTRY_VERIFY(overlay().isEmpty());
        // Exactly what the write invalidates is read again, each once.
        QCOMPARE(sortedReads(), QStringList({"get Height"_s, "get Width"_s}));
        QCOMPARE(spin->value(), qlonglong(640));
    }

    void writesByTag_data()
    {
        // call: empty: refused
        const Rows<QString, QString, QVariant, QString> row("tag", "name", "value", "call");
        row.of("Boolean", "ReverseX", false, "set ReverseX 0");
        row.of("Command", "AcquisitionStart", QVariant(), "set AcquisitionStart");
        row.of("Integer", "Width", qlonglong(INT64_MIN), "set Width -9223372036854775808");
        row.of("IntReg", "Width", 5, "set Width 5");
        row.of("Enumeration", "PixelFormat", 4000000000LL, "set PixelFormat 4000000000");
        row.of("Float", "Gain", 2.5F, "set Gain 2.5");
        row.of("Converter", "Gain", 2.5, "set Gain 2.5");
        row.of("StringReg", "Note", "a b"_s, "set Note a b");
        row.of("String", "Note", "c"_s, "set Note c");
        row.of("Category", "Image", 1, "");
        row.of("CustomTagNameDraw", "Width", 1, "");
        row("empty tag", "", "Width", 1, "");
    }

    void writesByTag()
    {
        const auto [tag, name, value, call] = fetchRow<QString, QString, QVariant, QString>();
        QCOMPARE(m_tree->setFeatureValue(tag, name, value), !call.isEmpty());
        QCOMPARE(m_host->writes().join(QLatin1Char('|')).trimmed(), call);
        QCOMPARE(overlay().isEmpty(), call.isEmpty());
        QVERIFY(!m_tree->setFeatureValue(tag, QString(), value)); // no name
        m_tree->readyForDelete();
        m_host->clearCalls();
        QVERIFY(!m_tree->setFeatureValue(tag, name, value));
        QVERIFY(m_host->writes().isEmpty());
    }

    void itemBasedWrite()
    {
        readOnce();
        QVERIFY(!m_tree->setFeatureValue(nullptr, 5, true));
        QVERIFY(m_tree->setFeatureValue(item("Width"), 640, true));
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(640));
        m_host->fail("Width"_s, 5);
        MessageGuard::expectMessage("Width"_s);
        QVERIFY(!m_tree->setFeatureValue(item("Width"), 800, true)); // shown whatever the outcome
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(800));
    }

    // What is read again --------------------------------------------------------------------------
    void writesInARowAreAllReadAgain_data()
    {
        const Rows<QString, QString, bool, QString> row("tag", "name", "refused", "read");
        row("another feature", "Float", "Gain", false, "Gain Height Width");
        row("the same feature", "Integer", "Width", false, "Height Width");
        row("a feature that the first changes", "Integer", "Height", false, "Height Width");
        row("refused", "Float", "Gain", true, "Height Width");
        row("command", "Command", "TriggerSoftware", false, "Height Width");
        row("refused command", "Command", "TriggerSoftware", true, "Height Width");
        row("no such kind", "Category", "Image", false, "Height Width");
        row("no name", "Enumeration", "", false, "Height Width");
    }

    // What the first write changed must not be forgotten for the second one's sake.
    void writesInARowAreAllReadAgain()
    {
        const auto [tag, name, refused, read] = fetchRow<QString, QString, bool, QString>();
        readWithoutPolling();
        if (refused) {
            m_host->fail(name, 5);
            MessageGuard::expectMessage(name);
        }
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        m_tree->setFeatureValue(tag, name, 3);
        m_host->fail(name, 0);
        const QStringList expected =
            words(read.toUtf8()).replaceInStrings(QRegularExpression("^"_s), "get "_s);
        QTRY_COMPARE(sortedReads(), expected);
        QTRY_VERIFY(overlay().isEmpty());
        QTRY_VERIFY(!m_tree->isReading());
        QCOMPARE(sortedReads(), expected); // each once
    }

    // A held key writes for minutes.
    void writesWithoutAPauseAreReadAgainMeanwhile()
    {
        readWithoutPolling();
        m_host->setLatencyMs(1);
        constexpr int kEdits = 2000; // 2 s at least
        int edits = 0;
        for (; edits < kEdits && m_host->count("get Height"_s) == 0; ++edits) {
            QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 16 * (edits % 200 + 1)));
            QCoreApplication::processEvents();
        }
        m_host->setLatencyMs(0);
        QVERIFY(edits < kEdits);
    }

    // Nothing is left over for the time after.
    void pausedReadingTakesUpWithEverything()
    {
        readWithoutPolling();
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        m_tree->PauseUpdateThread();
        QTRY_VERIFY(overlay().isEmpty()); // the timer came to nothing
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 656));
        QVERIFY(!overlay().isEmpty());
        QTRY_VERIFY(overlay().isEmpty());
        QVERIFY(sortedReads().isEmpty());
        m_host->set("Height"_s, FakeHost::integerFeature(99));
        m_tree->StartUpdateThread();
        QTRY_COMPARE(item("Height")->value()->value().toInt(), 99);
        QTRY_VERIFY(m_tree->HadUpdatedOnce());
        QTRY_VERIFY(!m_tree->isReading());
        m_host->clearCalls();
        QVERIFY(m_tree->setFeatureValue("Float"_s, "Gain"_s, 2.0));
        QTRY_COMPARE(m_host->count("get Gain"_s), 1);
        QTRY_VERIFY(!m_tree->isReading());
        QCOMPARE(m_host->count("get Width"_s), 0);
    }

    // Commands ------------------------------------------------------------------------------------
    void firstStartAfterAStopIsSwallowed()
    {
        readOnce();
        m_tree->OnCameraStopShot();
        const QString start = "AcquisitionStart"_s;
        QVERIFY(m_tree->OnCommandNodeBtnClicked("TriggerSoftware"_s));
        QVERIFY(!m_tree->OnCommandNodeBtnClicked(start));
        QCOMPARE(m_host->writes().filter(start).size(), 0);
        QVERIFY(m_tree->OnCommandNodeBtnClicked(start));
        QCOMPARE(m_host->writes().filter(start).size(), 1);
        QVERIFY(MessageGuard::contains("NodeName:AcquisitionStart, [CameraID:1]"_s));
    }

    void acquisitionReadsWhatItLocks()
    {
        readWithoutPolling();
        for (const bool byCommand : {true, true, false}) { // a stop by command swallows no start
            for (const bool on : {true, false}) {
                m_host->set("TLParamsLocked"_s, FakeHost::integerFeature(on ? 1 : 0));
                const QString command = on ? "AcquisitionStart"_s : "AcquisitionStop"_s;
                if (byCommand)
                    QVERIFY(m_tree->setFeatureValue("Command"_s, command, {}));
                else
                    on ? m_tree->OnCameraStartShot() : m_tree->OnCameraStopShot();
                QTRY_COMPARE(editor<ZELCustomCheckBox>("ReverseX")->isEnabled(), !on);
            }
        }
        QCOMPARE(m_host->count("get Gain"_s), 0);
        QCOMPARE(m_host->writes().filter("AcquisitionStart"_s).size(), 2);
    }

    void refusedCommand()
    {
        readWithoutPolling();
        m_host->fail("AcquisitionStart"_s, 5);
        MessageGuard::expectMessage("AcquisitionStart"_s);
        QVERIFY(m_tree->setFeatureValue("Command"_s, "AcquisitionStart"_s, {}));
        QVERIFY(MessageGuard::contains("Node 'AcquisitionStart': Failed to execute Node. 5\r\n"_s +
                                       ORXInterface::IntCode2DisplayCode(5)));
        QVERIFY(!messageBox());
        QVERIFY(!overlay().isEmpty());
        QTRY_VERIFY(overlay().isEmpty()); // the invalidation pass ran all the same
        QTRY_COMPARE(m_host->count("mode AcquisitionStart"_s), 1);
        QTRY_VERIFY(!m_tree->isReading());
        QCOMPARE(m_host->count("mode ReverseX"_s), 0); // nothing is locked
    }

    void deviceReset()
    {
        readWithoutPolling();
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        QSignalSpy trigger(m_tree.get(), &ORXFeatureTree::SigAutoSoftwareTrigChanged);
        m_tree->SetAutoSoftwareTrig(true, 1000000);
        QCOMPARE(trigger.size(), 1);
        QVERIFY(m_tree->setFeatureValue("Command"_s, "DeviceReset"_s, {}));
        QVERIFY(overlay().isEmpty());
        QCOMPARE(messageBox()->cContent(),
                 "The camera is about to reboot. Reconnect the\ncamera later."_s);
        QCOMPARE(messageBox()->cHintStyle(), int(ZELCustomMessageBox::Hint_Information));
        QVERIFY(!editor<ORXPropertySpinBox>("Width")->isEnabled());
        QVERIFY(!m_tree->isCanEdit());
        QCOMPARE(trigger.size(), 2);
        QVERIFY(!trigger.last().last().toBool());
        m_host->pace().closeGate("Height"_s);
        m_tree->OnTimeInvalidaterFeaturesUpdate();
        QVERIFY(!m_tree->isReading()); // what the write has changed is not asked for any more
        m_finder.trees.clear();
        QVERIFY(!m_tree->setFeatureValue("Command"_s, "DeviceReset"_s, {}));
    }

    // The host may release the window from inside the command, and while a reading is waited for.
    void loadingASetKeepsTheShownRegion_data()
    {
        const Rows<QString, QString, int> row("released", "written", "told");
        row("kept", "", "set RegionDisplaySelector 7", 1);
        row("refused by the camera", "refused", "set RegionDisplaySelector 7", 1);
        row("released by the command", "command", "set UserSetLoad ", 0);
        row("released while waiting", "waiting", "set UserSetLoad ", 1);
    }

    // Its selector is just being read.
    void loadingASetKeepsTheShownRegion()
    {
        QFETCH(QString, released);
        const QString selector = "RegionDisplaySelector"_s;
        m_host->set(selector, FakeHost::enumFeature(7));
        readWithoutPolling();
        QSignalSpy osd(m_tree.get(), &ORXFeatureTree::SigFeatureChangeOsd);
        QSemaphore reads;
        QSemaphore mayRead;
        m_host->beforeGet = [&](const QString& name) {
            if (name == selector) {
                reads.release();
                mayRead.acquire();
            }
        };
        m_host->afterSet = [&](const QString&) {
            if (released == "command"_s) {
                mayRead.release();
                m_tree->readyForDelete();
            }
        };
        m_tree->rereadInvalidated(selector);
        reads.acquire();
        int meanwhile = -1;
        QTimer::singleShot(0, &osd, [&] {
            meanwhile = int(m_host->writes().size());
            mayRead.release();
            if (released == "waiting"_s)
                m_tree->readyForDelete();
        });
        if (released == "refused"_s || released == "waiting"_s)
            MessageGuard::ignoreMessage(QtCriticalMsg, "GetOstSettingData failed");
        if (released == "refused"_s) {
            MessageGuard::expectMessage(selector);
            m_host->fail(selector, 5);
        }
        m_tree->OnCommandNodeBtnClicked("UserSetLoad"_s);
        mayRead.release();
        QCOMPARE(meanwhile, released == "command"_s ? -1 : 1);
        QTEST(m_host->writes().last(), "written");
        QTEST(int(osd.size()), "told");
    }

    // Messages and overlay ------------------------------------------------------------------------
    void refusedWrites_data()
    {
        // quoted: in the box's content; read: what the user sees of it
        const Rows<QString, QString, QVariant, QString, QString> row("tag", "name", "value",
                                                                     "quoted", "read");
        row("integer", "Integer", "Width", 640, "640", "640");
        row("float", "Float", "Gain", 2.5F, "2.5", "2.5");
        row("boolean", "Boolean", "ReverseX", true, "1", "1");
        row("enumeration", "Enumeration", "PixelFormat", 7, "7", "7");
        row("text", "StringReg", "Note", "a<b>"_s, "a&lt;b&gt;", "a<b>");
        row("ampersand", "StringReg", "Note", "R&D & Co"_s, "R&D & Co", "R&D & Co");
        row("like an entity", "StringReg", "Note", "a&lt;b"_s, "a&amp;lt;b", "a&lt;b");
        row("blanks", "StringReg", "Note", " a  b "_s, " a  b ", " a  b ");
    }

    void refusedWrites()
    {
        const auto [tag, name, value, quoted, read] =
            fetchRow<QString, QString, QVariant, QString, QString>();
        constexpr int kCode = 5;
        m_host->fail(name, kCode);
        MessageGuard::expectMessage(name); // the device layer's own line
        QVERIFY(!m_tree->setFeatureValue(tag, name, value));
        QVERIFY(overlay().isEmpty());
        const ZELCustomMessageBox* box = messageBox();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->cCaption(), "Prompt"_s);
        QCOMPARE(box->cTextTitle(), "Failed to set the feature value."_s);
        const QString code = ORXInterface::IntCode2DisplayCode(kCode);
        QCOMPARE(box->cContent(),
                 "Node '%1':failed to save value '%2'\r\n"_s.arg(name, quoted) + code);
        QCOMPARE(box->findChild<QTextEdit*>()->toPlainText(),
                 "Node '%1':failed to save value '%2'\n"_s.arg(name, read) + code);
        QCOMPARE(box->cHintStyle(), int(ZELCustomMessageBox::Hint_Error));
        QVERIFY(box->cButton(ZELCustomMessageBox::Result_Ok));
        QVERIFY(!box->cButton(ZELCustomMessageBox::Result_Cancel));
        QVERIFY(!MessageGuard::contains("NodeValue:"_s));
    }

    void oneMessageAtATime()
    {
        m_host->fail("Note"_s, 5);
        MessageGuard::expectMessage("Note"_s);
        QVERIFY(!m_tree->setFeatureValue("String"_s, "Note"_s, "a"_s));
        const QString refused = messageBox()->cTextTitle();
        m_tree->ShowMessage(nullptr, "second"_s, "b"_s, QString(), 3);
        QCOMPARE(m_tree->findChildren<ZELCustomMessageBox*>().size(), 1);
        QCOMPARE(messageBox()->cTextTitle(), refused);
        messageBox()->hide();
        m_tree->ShowMessage(nullptr, "third"_s, QString(), "Caption"_s, 5);
        QCOMPARE(m_tree->findChildren<ZELCustomMessageBox*>().size(), 1);
        QCOMPARE(messageBox()->cContent(), "third"_s); // without a text the title is all
        QVERIFY(messageBox()->cTextTitle().isEmpty());
        QCOMPARE(messageBox()->cCaption(), "Caption"_s);
        // The message before is not what is said in another language now.
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_tree.get(), &change);
        QCOMPARE(messageBox()->cContent(), "third"_s);
    }

    // A box without its window would stand alone on the screen.
    void messageGoesWithTheWindow()
    {
        const auto isShown = [this] { return messageBox() && messageBox()->isVisible(); };
        m_tree->ShowMessage(nullptr, "words"_s, QString(), QString(), 5);
        QCoreApplication::processEvents();
        QVERIFY(isShown());
        m_tree->hide();
        QTRY_VERIFY(!isShown());
        // A write may still be refused when the window has gone.
        m_tree->ShowMessage(nullptr, "late"_s, QString(), QString(), 5);
        QTRY_VERIFY(!isShown());
        m_tree->show();
        m_tree->ShowMessage(nullptr, "again"_s, QString(), QString(), 5);
        QCoreApplication::processEvents();
        QVERIFY(isShown());
    }

    void overlayStaysWhileTheEditIsReadAgain()
    {
        readWithoutPolling();
        m_host->pace().closeGate("Height"_s);
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        QTRY_COMPARE(m_host->pace().waitingAt("Height"_s), 1);
        m_tree->ShowLoadingFeatures(false, true);
        emit m_tree->findChildren<QGetFeaturesThread*>().last()->sigThreadEnd(); // the other pass
        QVERIFY(!overlay().isEmpty());
        m_host->pace().openGate("Height"_s);
        QTRY_VERIFY(overlay().isEmpty());
        m_tree->ShowLoadingFeatures(true, false); // only device type 8 shows updates
        QVERIFY(overlay().isEmpty());
        QCOMPARE(getLoadingIndex(8, 5), 8);
    }
};

OBFT_TEST_MAIN(TestFeatureWriting)
#include "tst_featurewriting.moc"
