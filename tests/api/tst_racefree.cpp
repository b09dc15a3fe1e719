// SPDX-License-Identifier: Apache-2.0
#include "device/IORXListen.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "model/CTreeItemValue.h"
#include "model/IORXFeatureNotify.h"
#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include <atomic>

using namespace DescriptionBuilder;

namespace {

constexpr int kEdits = 1000;

class Listener : public IORXListen
{
public:
    int notify(int, void*) override { return 0; }
};

class CountingView : public IORXFeatureNotify
{
public:
    void itemValueChanged(qint64, ORXPropertyTreeItem*, int, bool) override { ++calls; }
    std::atomic<int> calls{0};
};

Size mediumSize()
{
    Size size = Size::ofFeatures(200);
    size.categories = 4;
    size.polled = 100;
    return size;
}

} // namespace

// Everything at once: both reading threads, polling, edits through the real editors, and whatever
// else a user does meanwhile. Meant for the thread sanitizer, worthwhile without it.
class TestRaceFree : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestRaceFree()
        : OpenedWindowTest(generate(mediumSize()))
    {
    }

private:
    // Acts on an editor as a user does; true when there was something to act on.
    static bool edit(QWidget* editor, int round)
    {
        if (!editor || !editor->isEnabled())
            return false;
        if (auto* box = qobject_cast<QCheckBox*>(editor)) {
            box->click();
        } else if (auto* combo = qobject_cast<QComboBox*>(editor)) {
            if (combo->count() > 1)
                combo->setCurrentIndex((combo->currentIndex() + 1) % combo->count());
        } else if (auto* spin = qobject_cast<QAbstractSpinBox*>(editor)) {
            spin->stepBy(round % 2 ? 1 : 2);
        } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
            line->setText(QString::number(2 + round % 50));
            emit line->editingFinished();
        }
        return true;
    }

private slots:
    void everythingAtOnce()
    {
        // Values change by themselves, so that polling publishes.
        std::atomic<int> moving{0};
        m_host->beforeGet = [&](const QString& name) {
            if (name == QLatin1String("Feature00003"))
                m_host->set(name, FakeHost::integerFeature(++moving % 1000));
        };
        OpenedWindow window(*m_host, m_xml);
        ORXFeatureTree* tree = window.tree();
        ORXFeatureTreeView* view = window.view();
        CFeatureGroupTreeView* groups = window.groups();
        Listener listener;
        CountingView counting;
        int edits = 0;
        for (int round = 0; edits < kEdits && round < 20 * kEdits; ++round) {
            const QModelIndex page = groups->model()->index(0, 0);
            if (round % 40 == 0)
                groups->OnChangedIndex(groups->model()->index(1 + round / 40 % 4, 0, page));
            QCoreApplication::processEvents();
            const QModelIndex row = view->indexAt(QPoint(5, 40 + 38 * (round % 8)));
            ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(row);
            edits += edit(view->editorOf(item), round) ? 1 : 0;
            if (ORXPropertyTreeItem* any = tree->propertyItemByName("Feature00003"_s)) {
                if (round % 7 == 0)
                    any->registerView(&counting);
                else if (round % 7 == 3)
                    any->removeView(&counting);
            }
            switch (round % 50) {
            case 5:
                OBDeviceControl::SetUserLevel(round % 100 == 5 ? 0 : 1);
                tree->OnUserLevelChanged();
                break;
            case 10:
                groups->SetSearchText("feature 1"_s);
                break;
            case 15:
                groups->SetSearchText(QString());
                break;
            case 20:
                ORXListenTools::instance()->addListener(&listener, ORXListenTools::PriorityLow);
                tree->RefreshFeatures();
                break;
            case 25:
                ORXListenTools::instance()->removeListener(&listener);
                view->collapseAll();
                break;
            case 27:
                view->expandAll();
                break;
            case 30:
                tree->OnTimerFeatureNoCache();
                break;
            case 35:
                tree->addFavoriteItem(item && item->childCount() == 0 ? item : nullptr);
                break;
            case 40:
                tree->removeAllFavoriteItems();
                break;
            case 45:
                window.widget()->onTabIndexChange(round % 100 == 45 ? 1 : 0);
                window.widget()->onTabIndexChange(0);
                break;
            default:
                break;
            }
        }
        QCOMPARE(edits, kEdits);
        tree->propertyItemByName("Feature00003"_s)->removeView(&counting);
        const int calls = counting.calls;
        // In the middle of a pass the window goes.
        tree->RefreshFeatures();
        tree->OnTimeInvalidaterFeaturesUpdate();
        QCOMPARE(OB_FT_Close(), 0);
        QCOMPARE(counting.calls.load(), calls);
    }
};

OBFT_TEST_MAIN(TestRaceFree)
#include "tst_racefree.moc"
