// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendPanel.h"

#include "changes/TrendPainter.h"
#include "changes/TrendPictures.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kRefreshMs = 1000;
constexpr QSize kMinimumSize(160, 80);

} // namespace

TrendPanel::TrendPanel(ORXFeatureTree* tree, QWidget* parent)
    : QWidget(parent)
    , m_pTree(tree)
{
    setObjectName(QStringLiteral("TrendPanel"));
    setFocusPolicy(Qt::TabFocus); // what is drawn can be read aloud
    m_timer.setInterval(kRefreshMs);
    connect(&m_timer, &QTimer::timeout, this, &TrendPanel::refresh);
    connect(tree->valueWatch(), &ValueWatch::SigChanged, this, &TrendPanel::append);
    connect(tree->changeMarks(), &ChangeMarks::SigCleared, this, [this] {
        m_store.clear();
        refresh();
    });
    connect(tree->treeView(), &QTreeView::pressed, this, &TrendPanel::choose);
    connect(tree->treeView()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TrendPanel::choose);
}

QSize TrendPanel::minimumSizeHint() const
{
    return kMinimumSize;
}

void TrendPanel::append(const QVector<ValueChange>& changes)
{
    m_store.append(changes);
    const bool shown = m_timer.isActive() && std::any_of(changes.begin(), changes.end(),
                                                         [this](const ValueChange& change) {
                                                             return change.name == m_strFeature;
                                                         });
    if (shown)
        refresh();
}

void TrendPanel::choose(const QModelIndex& index)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!item || !item->value())
        return;
    m_strFeature = item->value()->nodeName(0);
    m_store.setShown(m_strFeature);
    refresh();
}

// Only while it is seen.
void TrendPanel::refresh()
{
    if (!m_timer.isActive())
        return;
    ORXPropertyTreeItem* item = m_pTree->propertyItemByName(m_strFeature);
    ValueWatch* watch = m_pTree->valueWatch();
    const TrendSeries series =
        item ? m_store.series(m_strFeature, watch->held(item)) : TrendSeries();
    m_picture = TrendPictures::make(item, series, watch->steadyMs());
    setAccessibleName(m_picture.name.isEmpty() ? tr("Trend")
                                               : tr("Trend of %1").arg(m_picture.name));
    setAccessibleDescription(m_picture.empty.isEmpty() ? m_picture.summary : m_picture.empty);
    update();
}

void TrendPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}

void TrendPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_timer.start();
    refresh();
}

void TrendPanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}

void TrendPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(),
                     ZELCustom::getDataBaseColor(QStringLiteral("TrendPanelColor_Background")));
    TrendPainter::paint(&painter, rect(), m_picture);
    if (hasFocus()) {
        painter.setPen(ZELCustom::getDataBaseColor(QStringLiteral("StyledCtlColor_Accent")));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}
