// SPDX-License-Identifier: Apache-2.0
// What the window shows of changes besides the list: the trend, the marks and the dots.
#include "changes/TrendPanel.h"

#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "pages/DemoPageTest.h"
#include "tree/RowPainter.h"

#include <QTabWidget>

namespace {

} // namespace

class TestTrendPanel : public DemoPageTest
{
    Q_OBJECT

private:
    void openAt(qint64 ms, int language = 0)
    {
        open({}, language);
        m_now = m_window->tree()->valueWatch()->steadyMs() + ms;
        m_window->tree()->valueWatch()->setClock([this] { return m_now.load(); });
    }
    QTabWidget* tabs() const
    {
        return m_window->tree()->findChild<QTabWidget*>("FeatureInfoTabs"_s);
    }
    TrendPanel* panel() const { return m_window->tree()->findChild<TrendPanel*>(); }
    void showPanel(const char* feature) const
    {
        QVERIFY(m_window->select(kTree, feature));
        tabs()->setCurrentIndex(2);
        QVERIFY(panel()->isVisible());
    }
    // What is read aloud of the rows of the side column that have a dot.
    QStringList dotted() const
    {
        const QAbstractItemModel* groups =
            m_window->widget()->featureGroup(1)->groupView()->model();
        QStringList texts;
        for (int page = 0; page < groups->rowCount(); ++page) {
            const QModelIndex above = groups->index(page, 0);
            for (int row = 0; row < groups->rowCount(above); ++row) {
                const QModelIndex group = groups->index(row, 0, above);
                const QString text = group.data(Qt::AccessibleTextRole).toString();
                if (text != group.data().toString())
                    texts.append(text);
            }
        }
        return texts;
    }

    std::atomic<qint64> m_now{0};

private slots:
    void followsTheCurrentFeature_data()
    {
        const Rows<int, QString, QString, QString> row("language", "name", "summary", "empty");
        row("English", 0, "Trend of Height", "min 480   mean 840   max 1200 px",
            "Select a feature with a number.");
        row("Chinese", 1, "高度 的趋势", "最小 480   平均 840   最大 1200 px",
            "请选择数值类参数。");
    }

    void followsTheCurrentFeature()
    {
        const auto [language, name, summary, empty] = fetchRow<int, QString, QString, QString>();
        openAt(30000, language);
        showPanel("DeviceUserID");
        QCOMPARE(panel()->picture().empty, empty);
        QCOMPARE(panel()->accessibleDescription(), empty);
        showPanel("Height");
        const qint64 firstRead = m_now - 30000;
        write("Height", "480");
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(panel()->picture().curve.steps.size(), 2);
        // As long as before, to the millisecond.
        const qint64 stoodBefore = m_now - panel()->picture().curve.steps.first().fromMs;
        QVERIFY(stoodBefore >= 30000 && panel()->picture().curve.steps.first().fromMs <= firstRead);
        m_now += stoodBefore;
        OBFT_TRY_COMPARE(panel()->accessibleDescription(), summary);
        QCOMPARE(panel()->accessibleName(), name);
        QVERIFY(m_camera->writes().isEmpty());
    }

    // A polled feature fills it by itself, also while nobody looks, and nothing is read for it.
    void polledFeaturesFillIt()
    {
        openAt(0);
        for (int i = 0; i < 3; ++i) {
            const QVariant before = m_window->item(kTree, "Timestamp")->value()->value();
            m_now += 2000;
            m_clock->advance(std::chrono::minutes(1));
            OBFT_TRY_VERIFY(m_window->item(kTree, "Timestamp")->value()->value() != before);
            QCoreApplication::processEvents();
        }
        showPanel("Timestamp");
        QVERIFY(panel()->picture().curve.steps.size() >= 4);
        m_window->widget()->SetLanguage(1);
        OBFT_TRY_VERIFY(panel()->picture().summary.startsWith("最小"_s));
        // Hidden it draws nothing.
        tabs()->setCurrentIndex(0);
        const qint64 drawn = panel()->picture().nowMs;
        m_now += 5000;
        QVERIFY(m_window->select(kTree, "Height"));
        QCOMPARE(panel()->picture().nowMs, drawn);
    }

    void groupsTellWhatChanged_data()
    {
        const Rows<int, QString, QString, QStringList> row("language", "feature", "value", "dots");
        row("English", 0, "TriggerDelay", "5", "Acquisition_Control,_changed IO_Input,_changed");
        row("Chinese", 1, "TriggerDelay", "5", "采集控制，有变更 IO_输入，有变更");
        row("polled", 0, "Timestamp", "", "");
    }

    void groupsTellWhatChanged()
    {
        auto [language, feature, value, dots] = fetchRow<int, QString, QString, QStringList>();
        openAt(0, language);
        QVERIFY(m_window->show(kTree, "Width"));
        QCOMPARE(dotted(), QStringList());
        QStringList told;
        connect(m_window->tree()->valueWatch(), &ValueWatch::SigChanged, panel(),
                [&told](const QVector<ValueChange>& changes) {
                    for (const ValueChange& change : changes)
                        told.append(change.name);
                });
        if (value.isEmpty())
            m_clock->advance(std::chrono::minutes(1));
        else
            QVERIFY(write(qPrintable(feature), qPrintable(value)) == 0 && m_window->refresh());
        OBFT_TRY_VERIFY(told.contains(feature));
        dots.replaceInStrings("_"_s, " "_s);
        QCOMPARE(dotted(), dots);
        // Looking takes it away.
        QVERIFY(m_window->show(kTree, "TriggerDelay"));
        QVERIFY(dotted().size() < qMax(1, dots.size()));
        // An edit is none; a reset of the camera leaves none.
        m_window->tree()->OnCommandNodeBtnClicked("DeviceReset"_s);
        QCOMPARE(dotted(), QStringList());
    }

    // The rows of curated pages are marked, too.
    void allPagesMark()
    {
        openAt(0);
        QVERIFY(m_window->show(kImage, "Height"));
        QCOMPARE(m_window->item(kImage, "Height"), m_window->item(kTree, "Height"));
        ORXFeatureTreeView* view = m_window->page(kImage)->treeView();
        const QModelIndex row = m_window->row(kImage, "Height");
        const auto mark = [&] {
            const QPoint at = RowPainter::markPlace(view->visualRect(row)).center();
            return view->viewport()->grab().toImage().pixelColor(at);
        };
        const QColor before = mark();
        write("Height", "480");
        QVERIFY(m_window->refresh());
        OBFT_TRY_VERIFY(mark() != before);
        m_now += ChangeMarks::kFadeMs;
        QCOMPARE(mark(), before);
    }
};

OBFT_TEST_MAIN(TestTrendPanel)
#include "tst_trendpanel.moc"
