// SPDX-License-Identifier: Apache-2.0
// What the window shows of a camera that has not answered yet.
#include "model/ORXPropertyTreeModel.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSemaphore>
#include <QTextEdit>
#include <QThread>

using namespace DescriptionBuilder;

namespace {

constexpr int kMany = 100000; // more calls than are made

QByteArray description()
{
    const QString guru = child("Visibility"_s, "Guru"_s);
    const QString gone = child("pIsAvailable"_s, "Never"_s);
    return wrap(
        category("Root"_s, words("SecretControl ImageControl SoundControl LineControl")) +
        category("SecretControl"_s, words("Secret")) + category("ImageControl"_s, words("Width")) +
        category("SoundControl"_s, words("Volume")) + category("LineControl"_s, words("LineMode")) +
        node("Integer"_s, "Secret"_s, guru) +
        node("Integer"_s, "Width"_s,
             "<DisplayName>Image Width</DisplayName><Description>Columns.</Description>"_s + gone) +
        node("Float"_s, "Volume"_s) + node("Integer"_s, "LineMode"_s, gone) +
        node("Integer"_s, "Never"_s));
}

} // namespace

class TestFirstLook : public DescribedWindowTest<description>
{
    Q_OBJECT

protected:
    void prepare() override
    {
        OpenedWindowTest::prepare();
        m_host->set("Never"_s, FakeHost::integerFeature(0));
        // Reading only: the gate is opened by the window's own thread.
        m_host->beforeGet = [this](const QString&) {
            if (QThread::currentThread() != qApp->thread())
                m_gate.acquire();
        };
    }
    void finish() override
    {
        m_gate.release(kMany);
        OpenedWindowTest::finish();
        m_gate.acquire(m_gate.available());
    }

private:
    bool isGroupShown(const OpenedWindow& window, const char* name)
    {
        const QModelIndex index = window.group(name);
        return !window.groups()->isRowHidden(index.row(), index.parent());
    }
    ORXPropertyTreeItem* currentGroup(const OpenedWindow& window)
    {
        return CFeatureGroupModel::itemFromIndex(window.groups()->currentIndex());
    }

    QSemaphore m_gate;

private slots:
    void theDescriptionShowsBeforeTheCameraAnswers()
    {
        const OpenedWindow window(*m_host, m_xml);
        const auto answer = qScopeGuard([this] { m_gate.release(kMany); });
        QVERIFY(!window.tree()->HadUpdatedOnce());
        QCOMPARE(currentGroup(window), window.item("ImageControl"));
        QVERIFY(!isGroupShown(window, "SecretControl"));
        ORXPropertyTreeItem* width = window.item("Width");
        QCOMPARE(width->value()->displayName(), "Image Width"_s);
        QTRY_VERIFY(window.view()->isVisible());
        QCoreApplication::processEvents();
        QVERIFY(!window.view()->editorOf(width));
        window.view()->setCurrentIndex(window.view()->treeModel()->indexFromItem(width, 0));
        auto* panel = window.tree()->findChild<QTextEdit*>("FeatureDescription"_s);
        const auto text = [&] { return panel->toPlainText(); };
        QTRY_VERIFY2(text().startsWith("Image Width\nColumns."_s), qPrintable(text()));
    }

    // How far the reading is, and what a camera that does not answer is being asked for.
    void theWindowSaysWhatItWaitsFor_data()
    {
        const Rows<int, QString, QString, QString> row("language", "progress", "name", "seconds");
        row("English", 0, "Reading features: %1 of 8"_s, "Image Width"_s, "s)"_s);
        row("Chinese", 1, "正在读取参数：%1 / 8"_s, "宽度"_s, "秒）"_s);
    }

    void theWindowSaysWhatItWaitsFor()
    {
        const auto [language, progress, name] = fetchRow<int, QString, QString>();
        m_gate.release(kMany);
        m_host->pace().closeGate("Width"_s);
        const OpenedWindow window(*m_host, m_xml, language);
        const auto answer = qScopeGuard([this] { m_host->pace().openAllGates(); });
        QTRY_COMPARE(m_host->pace().waitingAt("Width"_s), 1);
        auto* line = window.widget()->findChild<QWidget*>("ReadingProgressLine"_s);
        const QRegularExpression told(QRegularExpression::anchoredPattern(progress.arg("[1-8]"_s)));
        QTRY_VERIFY2(told.match(line->toolTip()).hasMatch(), qPrintable(line->toolTip()));
        auto* wait = window.tree()->findChild<QLabel*>("HostWaitLine"_s);
        QVERIFY(!wait->isVisible());
        QTRY_VERIFY(wait->isVisible());
        QVERIFY2(wait->text().contains(name), qPrintable(wait->text()));
        QFETCH(QString, seconds);
        QVERIFY2(wait->text().endsWith(seconds), qPrintable(wait->text()));
        wait->parentWidget()->hide();
        QVERIFY(wait->isHidden()); // it would be what was waited for then
        wait->parentWidget()->show();
        m_host->pace().openAllGates();
        QVERIFY(window.waitForFirstRead());
        QTRY_VERIFY(!wait->isVisible());
        QTRY_COMPARE(line->toolTip(), QString());
    }

    void aGroupThatTurnsOutEmptyIsLeft()
    {
        const OpenedWindow window(*m_host, m_xml);
        const auto answer = qScopeGuard([this] { m_gate.release(kMany); });
        QCOMPARE(currentGroup(window), window.item("ImageControl"));
        m_host->failMode("Width"_s, 1);
        m_gate.release(kMany);
        QVERIFY(window.waitForFirstRead());
        QVERIFY(!isGroupShown(window, "ImageControl"));
        QTRY_COMPARE(currentGroup(window), window.item("SoundControl"));
        QTRY_VERIFY(window.view()->editorOf(window.item("Volume")));
    }

    void aTabFollowsWhatIsRead_data()
    {
        const Rows<int> row("language");
        row("English", 0);
        row("Chinese", 1);
    }

    void aTabFollowsWhatIsRead()
    {
        QFETCH(int, language);
        const OpenedWindow window(*m_host, m_xml, language);
        const auto answer = qScopeGuard([this] { m_gate.release(kMany); });
        const auto tab = [&window](int index) {
            return window.widget()->findChild<QPushButton*>("FeatureTab%1"_s.arg(index));
        };
        QVERIFY(tab(ORXMainFeatureWidget::TriggerTab)->isEnabled());
        // The first group of the page, the inputs, is not there.
        tab(ORXMainFeatureWidget::TriggerTab)->click();
        ORXPropertyTreeItem* lines =
            window.widget()->getItemByName("Custom_IOControl"_s, ORXMainFeatureWidget::TriggerTab);
        QCOMPARE(currentGroup(window), lines);

        m_gate.release(kMany);
        QVERIFY(window.waitForFirstRead());
        QVERIFY(tab(ORXMainFeatureWidget::TriggerTab)->isEnabled());
        m_host->failMode("LineMode"_s, 1);
        window.widget()->onRefreshFeature();
        QTRY_VERIFY(!tab(ORXMainFeatureWidget::TriggerTab)->isEnabled());
        QVERIFY(tab(ORXMainFeatureWidget::WholeTreeTab)->isEnabled());
        const ORXFeatureTreeView* page = nullptr;
        for (const auto* view : window.widget()->findChildren<ORXFeatureTreeView*>()) {
            if (view->isVisible())
                page = view;
        }
        QVERIFY(page);
        const QString english =
            "This camera has nothing to show on this page at this user level."_s;
        QTRY_COMPARE(page->placeholderText() == english, language == 0);
        QVERIFY(page->placeholderText().size() > 10);
        window.widget()->SetLanguage(0);
        QTRY_COMPARE(page->placeholderText(), english);

        m_host->failMode("LineMode"_s, 0);
        window.widget()->onRefreshFeature();
        QTRY_VERIFY(tab(ORXMainFeatureWidget::TriggerTab)->isEnabled());
        QTRY_COMPARE(currentGroup(window), lines);
        QTRY_VERIFY(page->editorOf(window.item("LineMode")));
    }
};

OBFT_TEST_MAIN(TestFirstLook)
#include "tst_firstlook.moc"
