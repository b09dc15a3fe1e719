// SPDX-License-Identifier: Apache-2.0
// The check boxes of the image processing page in the window, on the simulated camera: embedded
// information and events.
#include "cameras/CameraError.h"
#include "model/CTreeBooleanItemValue.h"
#include "pages/DemoPageTest.h"
#include "reading/FeatureMutex.h"
#include "tree/IORXFeatureWidget.h"

#include <QAbstractButton>

namespace {

constexpr int kSelectedEntry = 3; // that the user has selected elsewhere

} // namespace

class TestSelectorChecks : public DemoPageTest
{
    Q_OBJECT

private:
    // Opens the window at the boxes of the row of data.
    void openBoxes(const QByteArray& selector, const QStringList& lacking = {}, int language = 0)
    {
        m_selector = selector;
        for (const char* each : {"ChunkSelector", "FrameSpecInfoSelector", "EventSelector"})
            QCOMPARE(write(each, QByteArray::number(kSelectedEntry).constData()), 0);
        open(lacking, language);
        QVERIFY(m_window->show(kImage, rowName(0)));
    }
    // The same at the chunks, when their states have been read.
    void openChunks(int language = 0)
    {
        openBoxes("ChunkSelector", {}, language);
        OBFT_TRY_COMPARE(states(), QByteArray("1110110"));
        OBFT_TRY_COMPARE(read("ChunkSelector"), 3);
    }
    QByteArray rowName(int entry) const
    {
        return "Custom_" + m_selector + "_" + QByteArray::number(entry & ~1);
    }
    QAbstractButton* box(int entry) const { return DemoPageTest::box(m_selector, entry); }
    // "1" for each checked box, "0" for each that is not.
    QByteArray states() const
    {
        QByteArray all;
        while (const QAbstractButton* each = box(int(all.size())))
            all += each->isChecked() ? '1' : '0';
        return all;
    }
    void click(int entry) const { PageWindow::press(box(entry)); }
    // What was read from and written to the features since they were forgotten, in order.
    QString traffic(const QList<QByteArray>& features) const
    {
        QString all;
        const QStringList calls = m_camera->calls();
        for (const QString& call : calls) {
            const QByteArray name =
                call.section(QLatin1Char(' '), 1).section(QLatin1Char('='), 0, 0).toLatin1();
            if (!call.startsWith("mode"_s) && features.contains(name))
                all += call + QLatin1Char(' ');
        }
        return all;
    }

    QByteArray m_selector;

private slots:
    void checkWritesBetweenSelections_data()
    {
        const Rows<QStringList, QByteArray, QByteArray, QByteArray> row("lacking", "selector",
                                                                        "enable", "states");
        row("chunks", "", "ChunkSelector", "ChunkEnable", "1110110");
        row("frame information", "ChunkModeActive ChunkSelector ChunkEnable",
            "FrameSpecInfoSelector", "FrameSpecInfo", "100001000");
        row("events", "", "EventSelector", "EventNotification", "0000000");
    }

    void checkWritesBetweenSelections()
    {
        auto [lacking, selector, enable, states] =
            fetchRow<QStringList, QByteArray, QByteArray, QByteArray>();
        openBoxes(selector, lacking);
        OBFT_TRY_COMPARE(this->states(), states);
        OBFT_TRY_COMPARE(read(selector), 3);
        // One box has no neighbour when the entries are odd in number.
        const ORXPropertyTreeItem* last = m_window->item(kImage, rowName(int(states.size()) - 1));
        QVERIFY(last->value()->nodeName(1).isEmpty());
        for (const int entry : {6, 3, 6}) {
            m_camera->forget();
            const bool on = states.at(entry) == '0';
            states[entry] = on ? '1' : '0';
            click(entry);
            // Of the selected entry the selector is left alone. The boxes may just be read again.
            const QString write = "set %1=%2 "_s.arg(QString::fromLatin1(enable)).arg(on ? 1 : 0);
            const QString select = "set %1=%2 "_s.arg(QString::fromLatin1(selector));
            const QString expected = entry == kSelectedEntry
                                         ? write
                                         : select.arg(entry) + write + select.arg(kSelectedEntry);
            const QString look = "get %1 "_s.arg(QString::fromLatin1(selector));
            OBFT_TRY_VERIFY(traffic({selector, enable}).contains(look + expected));
            // Read again afterwards, and on request.
            QVERIFY(m_window->refresh());
            OBFT_TRY_COMPARE(this->states(), states);
            OBFT_TRY_COMPARE(read(selector), 3);
        }
        // A refused write is taken back.
        MessageGuard::expectMessage("Read Feature Failed"_s);
        m_camera->fail(enable, CameraError::NotWritable);
        click(6);
        OBFT_TRY_VERIFY(message().startsWith(
            "Node '%1':failed to save value '1'"_s.arg(QString::fromLatin1(enable))));
        OBFT_TRY_COMPARE(this->states(), states);
        OBFT_TRY_COMPARE(read(selector), 3);
    }

    void failureInTheMiddlePutsTheSelectorBack()
    {
        MessageGuard::expectMessage("Feature Failed"_s);
        openChunks();
        m_camera->forget();
        m_camera->closeGate("ChunkSelector");
        OB_FT_UpdateFeatures();
        OBFT_TRY_VERIFY(m_camera->writesOf("ChunkSelector") > 0);
        m_camera->fail("ChunkEnable", CameraError::Timeout);
        m_camera->openGate();
        OBFT_TRY_COMPARE(m_camera->writes().last(), "ChunkSelector=3"_s);
        QVERIFY(m_window->refresh());
        QCOMPARE(states(), QByteArray("1110110"));
        OBFT_TRY_COMPARE(read("ChunkSelector"), 3);
    }

    // While the boxes are read and written the whole tree must not take another entry's value for
    // that of the selected one.
    void passesSeeTheirOwnSelection()
    {
        watchSelection("ChunkSelector", 3, "ChunkEnable");
        openChunks();
        const auto* selector = m_window->item(kTree, "ChunkSelector")->value();
        const auto* enable = m_window->item(kTree, "ChunkEnable")->value();
        for (int i = 0; i < 10; ++i) {
            OB_FT_UpdateFeatures();
            click(i % 3);
            OBFT_TRY_COMPARE(m_camera->writesOf("ChunkEnable"), i + 1);
            // After each pass the states are read, while the next pass runs.
            OBFT_TRY_VERIFY(!m_window->tree()->isReading());
            QCOMPARE(selector->value().toInt(), 3);
            QVERIFY(!enable->value().toBool());
        }
        QCOMPARE(strangeReads(), 0);
        // Four times the first, three times the others.
        OBFT_TRY_COMPARE(states(), QByteArray("1000110"));
    }

    void whatChangesIsFollowed()
    {
        openChunks(1);
        QCOMPARE(box(2)->text(), "曝光时间"_s);
        m_window->widget()->SetLanguage(0);
        OBFT_TRY_COMPARE(box(2)->text(), "Exposure Time"_s);
        QCOMPARE(states(), QByteArray("1110110"));
        // In the whole tree, of the entry that is selected there.
        QVERIFY(m_window->click(kTree, "ChunkEnable"));
        QVERIFY(m_window->show(kImage, rowName(0)));
        OBFT_TRY_COMPARE(states(), QByteArray("1111110"));
        // By the camera itself, while nobody reads the boxes: who does puts the selector back.
        {
            const FeatureLock untouched(m_window->tree()->GetFeatureMutex());
            QCOMPARE(write("ChunkSelector", "6"), 0);
            QCOMPARE(write("ChunkEnable", "1"), 0);
        }
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(states(), QByteArray("1111111"));
        OBFT_TRY_COMPARE(read("ChunkSelector"), 6);
        // When it has no chunks any more there is the frame information.
        for (const char* name : {"ChunkModeActive", "ChunkSelector", "ChunkEnable"})
            m_camera->hide(name, true);
        QVERIFY(m_window->refresh());
        m_selector = "FrameSpecInfoSelector";
        OBFT_TRY_COMPARE(states(), QByteArray("100001000"));
    }

    void lockedWhileAcquiring()
    {
        openChunks();
        for (const char* command : {"AcquisitionStart", "AcquisitionStop"}) {
            const bool locked = qstrcmp(command, "AcquisitionStart") == 0;
            OBFT_TRY_VERIFY(box(0) && box(0)->isEnabled() == locked);
            QVERIFY(m_window->click(kTree, command));
            QVERIFY(m_window->show(kImage, rowName(0)));
            OBFT_TRY_VERIFY(box(0) && box(0)->isEnabled() != locked);
        }
    }

    void endsWithTheCamera_data()
    {
        const Rows<QByteArray, QString> row("gated", "end");
        for (const char* end : {"camera removed", "another camera shown", "released"}) {
            row(qPrintable("reading, "_s + QLatin1String(end)), "ChunkSelector", end);
            row(qPrintable("writing, "_s + QLatin1String(end)), "ChunkEnable", end);
        }
    }

    void endsWithTheCamera()
    {
        const auto [gated, end] = fetchRow<QByteArray, QString>();
        openChunks();
        QVERIFY(m_window->refresh());
        m_camera->closeGate(gated);
        m_camera->forget();
        if (gated == "ChunkEnable")
            click(6);
        else
            OB_FT_UpdateFeatures();
        OBFT_TRY_VERIFY(m_camera->writesOf(gated) > 0);
        // Lets the host go on while the window waits for it, or just before.
        std::thread hanging([&] { m_camera->openGate(); });
        if (end == "another camera shown"_s)
            m_window->page(kImage)->resetCamaraID(2);
        if (end == "released"_s)
            OB_FT_Release();
        else
            m_window->widget()->removeFeatureTree(1);
        const int writes = int(m_camera->writes().size());
        hanging.join();
        QApplication::processEvents();
        // No host call afterwards, and the selector is where it was.
        QCOMPARE(m_camera->writes().size(), writes);
        QCOMPARE(read("ChunkSelector"), 3);
    }
};

OBFT_TEST_MAIN(TestSelectorChecks)
#include "tst_selectorchecks.moc"
