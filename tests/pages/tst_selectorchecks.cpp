// SPDX-License-Identifier: Apache-2.0
// The check boxes of the image processing page in the window, on the simulated camera: embedded
// information and events.
#include "CameraError.h"
#include "DemoCamera.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeBooleanItemValue.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/TestMain.h"
#include "tree/IORXFeatureWidget.h"

#include <QAbstractButton>

#include <memory>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
const char kSelected[] = "3"; // entry that the user has selected elsewhere

} // namespace

class TestSelectorChecks : public GuardedTest
{
    Q_OBJECT
private slots:
    void statesAreRead_data();
    void statesAreRead();
    void checkWritesBetweenSelections_data() { statesAreRead_data(); }
    void checkWritesBetweenSelections();
    void refusedWriteIsTakenBack_data() { statesAreRead_data(); }
    void refusedWriteIsTakenBack();
    void failureInTheMiddlePutsTheSelectorBack_data();
    void failureInTheMiddlePutsTheSelectorBack();
    void passesSeeTheirOwnSelection();
    void whatTheCameraChangesIsFollowed();
    void lockedWhileAcquiring();
    void endsWithTheCamera_data();
    void endsWithTheCamera();
    void textsInBothLanguages();

protected:
    void prepare() override
    {
        OBDeviceControl::SetUserLevel(0);
        m_demo = std::make_unique<DemoCamera>();
    }
    void finish() override
    {
        if (m_camera)
            m_camera->openGate();
        m_window.reset();
        m_camera.reset();
        m_demo.reset();
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage(QStringLiteral("ENG"));
    }

private:
    // Opens the window at the boxes of the row of data.
    void open(const QByteArray& selector = "ChunkSelector", const QStringList& lacking = {},
              int language = 0)
    {
        m_selector = selector;
        for (const char* each : {"ChunkSelector", "FrameSpecInfoSelector", "EventSelector"})
            QCOMPARE(m_demo->write(OB_FT_TYPE_ENUMERATION, each, kSelected), 0);
        m_camera = std::make_unique<MeddledCamera>(*m_demo, lacking);
        m_window = std::make_unique<PageWindow>(*m_camera, language);
        QVERIFY(m_window->show(kPage, rowName(0)));
    }
    QByteArray rowName(int entry) const
    {
        return "Custom_" + m_selector + "_" + QByteArray::number(entry & ~1);
    }
    QAbstractButton* box(int entry) const
    {
        ORXPropertyTreeItem* row = m_window->item(kPage, rowName(entry));
        return row ? qobject_cast<QAbstractButton*>(
                         m_window->page(kPage)->treeView()->editorOf(row, entry % 2))
                   : nullptr;
    }
    // "1" for each checked box, "0" for each that is not.
    QByteArray states() const
    {
        QByteArray all;
        while (const QAbstractButton* each = box(all.size()))
            all += each->isChecked() ? '1' : '0';
        return all;
    }
    void click(int entry) const
    {
        QTest::mouseClick(box(entry), Qt::LeftButton, {}, QPoint(10, box(entry)->height() / 2));
    }
    qint64 held(const char* name) const
    {
        _ZDCC_INTVALUE_EX_T record = {};
        m_demo->read(OB_FT_TYPE_INTEGER, name, &record);
        return record.value;
    }
    QString message() const
    {
        const auto* found = m_window->tree()->findChild<ZELCustomMessageBox*>();
        return found && found->isVisible() ? found->cContent() : QString();
    }

    QByteArray m_selector;
    std::unique_ptr<DemoCamera> m_demo;
    std::unique_ptr<MeddledCamera> m_camera;
    std::unique_ptr<PageWindow> m_window;
};

void TestSelectorChecks::statesAreRead_data()
{
    QTest::addColumn<QString>("lacking");
    QTest::addColumn<QByteArray>("selector");
    QTest::addColumn<QByteArray>("enable");
    QTest::addColumn<QByteArray>("states");
    QTest::newRow("chunks") << QString() << QByteArray("ChunkSelector") << QByteArray("ChunkEnable")
                            << QByteArray("1110110");
    QTest::newRow("frame information")
        << QStringLiteral("ChunkModeActive ChunkSelector ChunkEnable")
        << QByteArray("FrameSpecInfoSelector") << QByteArray("FrameSpecInfo")
        << QByteArray("100001000");
    QTest::newRow("events") << QString() << QByteArray("EventSelector")
                            << QByteArray("EventNotification") << QByteArray("0000000");
}

void TestSelectorChecks::statesAreRead()
{
    QFETCH(QString, lacking);
    QFETCH(QByteArray, selector);
    QFETCH(QByteArray, states);
    open(selector, words(lacking.toLatin1()));
    OBFT_TRY_COMPARE(this->states(), states);
    OBFT_TRY_COMPARE(held(selector), qint64(3));
    // One box has no neighbour when the entries are odd in number.
    const ORXPropertyTreeItem* last = m_window->item(kPage, rowName(states.size() - 1));
    QVERIFY(last->value()->nodeName(1).isEmpty());
}

void TestSelectorChecks::checkWritesBetweenSelections()
{
    QFETCH(QString, lacking);
    QFETCH(QByteArray, selector);
    QFETCH(QByteArray, enable);
    QFETCH(QByteArray, states);
    open(selector, words(lacking.toLatin1()));
    OBFT_TRY_COMPARE(this->states(), states);
    for (const int entry : {6, 3, 6}) {
        m_camera->forget();
        const bool on = states.at(entry) == '0';
        states[entry] = on ? '1' : '0';
        click(entry);
        // Of the selected entry the selector is left alone.
        const QString write = QString::fromLatin1(enable + (on ? "=1" : "=0"));
        const QString select = QString::fromLatin1(selector + '=') + QString::number(entry);
        const QString back = QString::fromLatin1(selector + '=' + kSelected);
        const QStringList expected =
            entry == 3 ? QStringList{write} : QStringList{select, write, back};
        OBFT_TRY_COMPARE(m_camera->writes().mid(0, expected.size()), expected);
        // Read again afterwards, and on request.
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(this->states(), states);
        OBFT_TRY_COMPARE(held(selector), qint64(3));
    }
}

void TestSelectorChecks::refusedWriteIsTakenBack()
{
    QFETCH(QString, lacking);
    QFETCH(QByteArray, selector);
    QFETCH(QByteArray, enable);
    QFETCH(QByteArray, states);
    MessageGuard::expectMessage(QStringLiteral("Read Feature Failed"));
    open(selector, words(lacking.toLatin1()));
    OBFT_TRY_COMPARE(this->states(), states);
    m_camera->fail(enable, CameraError::NotWritable);
    click(6);
    OBFT_TRY_VERIFY(message().startsWith(
        QStringLiteral("Node '%1':failed to save value '1'").arg(QString::fromLatin1(enable))));
    OBFT_TRY_COMPARE(this->states(), states);
    OBFT_TRY_COMPARE(held(selector), qint64(3));
}

void TestSelectorChecks::failureInTheMiddlePutsTheSelectorBack_data()
{
    QTest::addColumn<QByteArray>("fails");
    QTest::newRow("state") << QByteArray("ChunkEnable");
    QTest::newRow("camera unplugged") << QByteArray();
}

void TestSelectorChecks::failureInTheMiddlePutsTheSelectorBack()
{
    QFETCH(QByteArray, fails);
    MessageGuard::expectMessage(QStringLiteral("Feature Failed"));
    open();
    OBFT_TRY_COMPARE(states(), QByteArray("1110110"));
    OBFT_TRY_COMPARE(held("ChunkSelector"), qint64(3));
    m_camera->forget();
    m_camera->closeGate("ChunkSelector");
    OB_FT_UpdateFeatures();
    OBFT_TRY_VERIFY(m_camera->writesOf("ChunkSelector") > 0);
    if (fails.isEmpty())
        m_camera->unplug();
    else
        m_camera->fail(fails, CameraError::Timeout);
    m_camera->openGate();
    OBFT_TRY_COMPARE(m_camera->writes().last(), QStringLiteral("ChunkSelector=3"));
    QVERIFY(m_window->refresh());
    // Of a camera that does not answer any more nothing needs to show.
    if (fails.isEmpty())
        return;
    QCOMPARE(states(), QByteArray("1110110"));
    OBFT_TRY_COMPARE(held("ChunkSelector"), qint64(3));
}

// While the boxes are read and written the whole tree must not take another entry's value for that
// of the selected one.
void TestSelectorChecks::passesSeeTheirOwnSelection()
{
    open();
    OBFT_TRY_COMPARE(states(), QByteArray("1110110"));
    const auto* selector = m_window->item(kTree, "ChunkSelector")->value();
    const auto* enable = m_window->item(kTree, "ChunkEnable")->value();
    for (int i = 0; i < 10; ++i) {
        OB_FT_UpdateFeatures();
        click(i % 3);
        OBFT_TRY_COMPARE(m_camera->writesOf("ChunkEnable"), i + 1);
        QCOMPARE(selector->value().toInt(), 3);
        QVERIFY(!enable->value().toBool());
    }
    QVERIFY(m_window->refresh());
    QCOMPARE(selector->value().toInt(), 3);
    QVERIFY(!enable->value().toBool());
    // Four times the first, three times the others.
    OBFT_TRY_COMPARE(states(), QByteArray("1000110"));
}

void TestSelectorChecks::whatTheCameraChangesIsFollowed()
{
    open();
    OBFT_TRY_COMPARE(states(), QByteArray("1110110"));
    // In the whole tree, of the entry that is selected there.
    QVERIFY(m_window->click(kTree, "ChunkEnable"));
    QVERIFY(m_window->show(kPage, rowName(0)));
    OBFT_TRY_COMPARE(states(), QByteArray("1111110"));
    // By the camera itself.
    QCOMPARE(m_demo->write(OB_FT_TYPE_ENUMERATION, "ChunkSelector", "6"), 0);
    QCOMPARE(m_demo->write(OB_FT_TYPE_BOOLEAN, "ChunkEnable", "1"), 0);
    QVERIFY(m_window->refresh());
    OBFT_TRY_COMPARE(states(), QByteArray("1111111"));
    OBFT_TRY_COMPARE(held("ChunkSelector"), qint64(6));
    // When it has no chunks any more there is the frame information.
    for (const char* name : {"ChunkModeActive", "ChunkSelector", "ChunkEnable"})
        m_camera->hide(name, true);
    QVERIFY(m_window->refresh());
    m_selector = "FrameSpecInfoSelector";
    OBFT_TRY_COMPARE(states(), QByteArray("100001000"));
}

void TestSelectorChecks::lockedWhileAcquiring()
{
    open();
    OBFT_TRY_VERIFY(box(0)->isEnabled());
    QVERIFY(m_window->click(kTree, "AcquisitionStart"));
    QVERIFY(m_window->show(kPage, rowName(0)));
    OBFT_TRY_VERIFY(!box(0)->isEnabled());
    QVERIFY(m_window->click(kTree, "AcquisitionStop"));
    QVERIFY(m_window->show(kPage, rowName(0)));
    OBFT_TRY_VERIFY(box(0)->isEnabled());
}

void TestSelectorChecks::endsWithTheCamera_data()
{
    QTest::addColumn<bool>("writing");
    QTest::addColumn<int>("end");
    const char* const ends[] = {"window closed", "camera removed", "another camera shown",
                                "released"};
    for (int end = 0; end < 4; ++end) {
        QTest::addRow("reading, %s", ends[end]) << false << end;
        QTest::addRow("writing, %s", ends[end]) << true << end;
    }
}

void TestSelectorChecks::endsWithTheCamera()
{
    QFETCH(bool, writing);
    QFETCH(int, end);
    open();
    OBFT_TRY_COMPARE(states(), QByteArray("1110110"));
    OBFT_TRY_COMPARE(held("ChunkSelector"), qint64(3));
    QVERIFY(m_window->refresh());
    const char* gated = writing ? "ChunkEnable" : "ChunkSelector";
    m_camera->closeGate(gated);
    m_camera->forget();
    if (writing)
        click(6);
    else
        OB_FT_UpdateFeatures();
    OBFT_TRY_VERIFY(m_camera->writesOf(gated) > 0);
    // Lets the host go on while the window waits for it, or just before.
    std::thread hanging([&] { m_camera->openGate(); });
    const std::function<void()> ends[] = {
        [] { OB_FT_Close(); },
        [&] { m_window->widget()->removeFeatureTree(1); },
        [&] {
            m_window->page(kPage)->resetCamaraID(2);
            m_window->widget()->removeFeatureTree(1);
        },
        [] { OB_FT_Release(); },
    };
    ends[end]();
    const int writes = m_camera->writes().size();
    hanging.join();
    QApplication::processEvents();
    // No host call afterwards, and the selector is where it was.
    QCOMPARE(m_camera->writes().size(), writes);
    QCOMPARE(held("ChunkSelector"), qint64(3));
}

void TestSelectorChecks::textsInBothLanguages()
{
    open("ChunkSelector", {}, 1);
    OBFT_TRY_COMPARE(states(), QByteArray("1110110"));
    QCOMPARE(box(2)->text(), QStringLiteral("曝光时间"));
    m_window->widget()->SetLanguage(0);
    OBFT_TRY_COMPARE(box(2)->text(), QStringLiteral("Exposure Time"));
    QCOMPARE(states(), QByteArray("1110110"));
}

OBFT_TEST_MAIN(TestSelectorChecks)
#include "tst_selectorchecks.moc"
