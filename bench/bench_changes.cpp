// SPDX-License-Identifier: Apache-2.0
// What it costs to tell the user what changed: on the reading thread for each item that was read
// with another value, and on the GUI thread for a pass that found a thousand of them.
#include "changes/ChangeJournal.h"
#include "changes/ChangesPanel.h"
#include "changes/TrendPictures.h"
#include "changes/TrendStore.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "model/CTreeIntergerItemValue.h"
#include "support/DescriptionBuilder.h"
#include "support/LoadedDescription.h"
#include "support/OpenedWindow.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>
#include <memory>

namespace {

constexpr int kChanged = 1000;

using Integers = QVector<ORXPropertyTreeItem*>;

Integers integersOf(const QMap<QString, ORXPropertyTreeItem*>& items)
{
    Integers integers;
    for (ORXPropertyTreeItem* item : items) {
        if (integers.size() < kChanged && item->visible() &&
            dynamic_cast<CTreeIntergerItemValue*>(item->value()))
            integers.append(item);
    }
    return integers;
}

// Another value for each, as a pass would read it.
void readAnew(const Integers& items, qint64 value, ValueWatch* watch)
{
    for (ORXPropertyTreeItem* item : items) {
        auto* integer = static_cast<CTreeIntergerItemValue*>(item->value());
        integer->setNumbers({value, 0, 1 << 30, 1});
        if (watch)
            watch->itemValueChanged(1, item, -1, false);
    }
}

void tell(ValueWatch* watch)
{
    QCoreApplication::sendPostedEvents(watch, QEvent::MetaCall);
}

// For each item; what it takes without the watch stands beside it.
void BM_Watched(benchmark::State& state)
{
    static const LoadedDescription description(
        DescriptionBuilder::generate(DescriptionBuilder::Size::ofFeatures(4000)));
    const Integers items = integersOf(description.builder.AllTreeItemsMap());
    ValueWatch watch;
    watch.watch(items);
    qint64 value = 0;
    for (auto _ : state) {
        readAnew(items, ++value, state.range(0) ? &watch : nullptr);
        state.PauseTiming();
        tell(&watch);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * items.size());
}
BENCHMARK(BM_Watched)->ArgName("watched")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// The window after a pass with a thousand changes: list, marks, dots and trends together.
class Window
{
public:
    Window()
        : m_xml(DescriptionBuilder::generate(size()))
    {
        m_host.serve(m_xml);
        m_window = std::make_unique<OpenedWindow>(m_host, m_xml);
        m_window->waitForFirstRead();
        QApplication::processEvents();
        tree()->PauseUpdateThread();
        m_items = integersOf(tree()->AllTreeItemsMap());
        readAnew(m_items, m_value, watch());
        tell(watch());
    }
    static DescriptionBuilder::Size size()
    {
        DescriptionBuilder::Size size = DescriptionBuilder::Size::ofFeatures(5000);
        size.categories = 30;
        return size;
    }
    ORXFeatureTree* tree() const { return m_window->tree(); }
    ValueWatch* watch() const { return tree()->valueWatch(); }
    void readOnce() { readAnew(m_items, ++m_value, watch()); }
    const Integers& items() const { return m_items; }
    bool isPolled(const QString& name) const
    {
        return tree()->descriptionIndex().pollingMap().contains(name);
    }
    CFeatureGroupTreeView* groups() const
    {
        return m_window->widget()->featureGroup(1)->groupView();
    }

private:
    QByteArray m_xml;
    FakeHost m_host;
    std::unique_ptr<OpenedWindow> m_window;
    Integers m_items;
    qint64 m_value = 1;
};

std::unique_ptr<Window> s_window;

void BM_ToldAPass(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        s_window->readOnce();
        state.ResumeTiming();
        tell(s_window->watch());
    }
    state.counters["changes"] = s_window->items().size();
}
BENCHMARK(BM_ToldAPass)->Unit(benchmark::kMillisecond);

QVector<ValueChange> changesOf(const Integers& items, qint64 value)
{
    QVector<ValueChange> changes;
    for (ORXPropertyTreeItem* item : items) {
        ValueChange change;
        change.name = item->value()->nodeName(0);
        change.item = item;
        change.before = value - 1;
        change.now = value;
        change.steadyMs = value * 1000;
        change.beforeSinceMs = change.steadyMs - 1000;
        change.restless = s_window->isPolled(change.name);
        changes.append(change);
    }
    return changes;
}

// Its parts.
void BM_List(benchmark::State& state)
{
    ChangeJournal* journal = s_window->tree()->findChild<ChangesPanel*>()->journal();
    const QVector<ValueChange> changes = changesOf(s_window->items(), 1);
    for (auto _ : state)
        journal->append(changes);
}
BENCHMARK(BM_List)->Unit(benchmark::kMillisecond);

void BM_Marks(benchmark::State& state)
{
    ValueWatch watch;
    ChangeMarks marks(&watch);
    const QVector<ValueChange> changes = changesOf(s_window->items(), 1);
    for (auto _ : state)
        emit watch.SigChanged(changes);
}
BENCHMARK(BM_Marks)->Unit(benchmark::kMillisecond);

void BM_Dots(benchmark::State& state)
{
    for (auto _ : state)
        s_window->groups()->noteChanges(s_window->items());
}
BENCHMARK(BM_Dots)->Unit(benchmark::kMillisecond);

void BM_Trends(benchmark::State& state)
{
    TrendStore store;
    qint64 value = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QVector<ValueChange> changes = changesOf(s_window->items(), ++value);
        state.ResumeTiming();
        store.append(changes);
    }
}
BENCHMARK(BM_Trends)->Unit(benchmark::kMillisecond);

// One picture of a series that is full, as it is made each second while it is seen.
void BM_TrendPicture(benchmark::State& state)
{
    TrendSeries series;
    for (int second = 0; second < 700; ++second)
        series.add(second * 1000, second % 17);
    const ORXPropertyTreeItem* item = s_window->items().first();
    for (auto _ : state)
        benchmark::DoNotOptimize(TrendPictures::make(item, series, 700000));
}
BENCHMARK(BM_TrendPicture)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    s_window = std::make_unique<Window>();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    s_window.reset();
    return 0;
}
