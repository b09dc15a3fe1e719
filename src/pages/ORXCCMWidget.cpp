// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXCCMWidget.h"

#include "model/CTreeCustomCCMItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/ORXCCMUpdateThread.h"
#include "pages/ORXCCMValueWidget.h"
#include "pages/ORXCCMWidgetPrivateData.h"
#include "pages/PageSupport.h"
#include "styledctl/ZELCustom.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/QPropertyLineEdit.h"

#include <QDebug>
#include <QHeaderView>
#include <QPointer>
#include <QVariant>

namespace {

constexpr int kSide = 3;
constexpr int kRowHeight = 40;
constexpr double kCoefficientUnit = 0.0009765625; // 1/1024
constexpr int kWrittenByUser = 2;                 // column of such a notification

const QLatin1String kSelector("ColorTransformationValueSelector");

} // namespace

ORXCCMWidget::ORXCCMWidget(ORXPropertyTreeItem* item, QWidget* parent)
    : QTableWidget(parent)
    , d(std::make_unique<ORXCCMWidgetPrivateData>())
{
    d->m_pWidget = this;
    d->m_pItem = item;
    const auto* value =
        item ? dynamic_cast<const CTreeCustomCCMItemValue*>(item->value()) : nullptr;
    if (value) {
        d->m_lCameraID = value->m_lCameraID;
        d->m_bDeviceMode = value->m_nState == CTreeCustomCCMItemValue::InCamera;
        d->m_pEnableItem = value->m_pEnableItem;
    }
    initData();
    connect(this, &ORXCCMWidget::sigUpdateEditorData, this, &ORXCCMWidget::onUpdateEditorData);
    if (ORXPropertyTreeItem* enable = enableItem())
        enable->registerView(this);
}

ORXCCMWidget::~ORXCCMWidget()
{
    if (ORXPropertyTreeItem* enable = enableItem())
        enable->removeView(this);
    disconnect(d->m_pThread, nullptr, this, nullptr);
    d->m_pThread->abandon();
}

void ORXCCMWidget::registerEditor()
{
    ORXPropertyTreeDelegate::registerExternalEditor(
        FeatureTag::CCM,
        [](QWidget* parent, ORXPropertyTreeItem* item) { return new ORXCCMWidget(item, parent); },
        [](QWidget* editor, ORXPropertyTreeItem*) {
            if (auto* widget = qobject_cast<ORXCCMWidget*>(editor))
                widget->updateData();
        });
}

void ORXCCMWidget::initData()
{
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setFrameShape(QFrame::NoFrame);
    setAlternatingRowColors(true);
    setShowGrid(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_Table));
    setMaximumHeight(kSide * kRowHeight + 1); // with the last line of the grid
    setColumnCount(kSide);
    setRowCount(kSide);
    for (int index = 0; index < ORXRWCCMValue::kCoefficients; ++index) {
        const int row = index / kSide;
        const int column = index % kSide;
        setRowHeight(row, kRowHeight);
        setItem(row, column, new QTableWidgetItem);
        auto* cell = new ORXCCMValueWidget(this, index);
        cell->setReadOnly(!d->m_bDeviceMode);
        setCellWidget(row, column, cell);
        connect(cell->lineEdit(), &QLineEdit::editingFinished, this,
                &ORXCCMWidget::onEditedCCMValue);
        d->m_cells[static_cast<std::size_t>(index)] = cell;
    }
    setFocusProxy(d->m_cells.front()->lineEdit());
    setCellsEnabled(false);
    d->m_pThread = new ORXCCMUpdateThread(d->m_lCameraID, d->m_bDeviceMode);
    // By name, as the thread itself does it.
    connect(d->m_pThread, SIGNAL(finished()), this, SLOT(endUpdate()), Qt::QueuedConnection);
}

// Reading -----------------------------------------------------------------------------------------

void ORXCCMWidget::updateData()
{
    // What the user is typing goes before; the end of the edit comes back here.
    if (d->m_bReading || isEdited()) {
        d->m_bReadAgain = true;
        return;
    }
    d->m_bReadAgain = false;
    d->m_bReading = true;
    // The thread moves the selector, so nothing can be written meanwhile.
    if (d->m_bDeviceMode)
        setCellsEnabled(false);
    ORXFeatureTree* tree = PageSupport::treeOf(d->m_lCameraID);
    d->m_pThread->startReading(tree ? tree->GetFeatureMutex() : nullptr);
}

void ORXCCMWidget::endUpdate()
{
    d->m_bReading = false;
    const ORXCCMUpdateThread::Result result = d->m_pThread->result();
    if (d->m_wantedEnable) {
        const bool wanted = *d->m_wantedEnable;
        d->m_wantedEnable.reset();
        const QPointer<ORXCCMWidget> self(this);
        enableCCMValueChanged(wanted);
        if (self)
            updateData();
        return;
    }
    if (!result.fault.isEmpty()) {
        if (d->m_bDeviceMode) {
            qCritical("Reading the color correction matrix: %s", qUtf8Printable(result.fault));
            // The selector may not be where it was.
            rereadInTree(kSelector);
        } else {
            reportFile(ORXRWCCMValue::fileOf(result.settingsName), result.fault, true);
        }
    } else if (result.complete) {
        forgetFileReport();
    }
    if (d->m_bReadAgain) {
        updateData();
        return;
    }
    if (!enableItem())
        return;
    // What the camera has is not known: it cannot be edited, and nothing is claimed.
    if (d->m_bDeviceMode && !result.complete) {
        setCellsEnabled(false);
        return;
    }
    for (std::size_t i = 0; i < d->m_cells.size(); ++i) {
        d->m_values[i] = d->m_bDeviceMode ? static_cast<double>(result.values[i])
                                          : result.coefficients[i] * kCoefficientUnit;
        if (d->m_bDeviceMode)
            d->m_cells[i]->setRange(result.minimum, result.maximum);
    }
    showCells();
    setCellsEnabled(result.enabled);
    setEnableItem(result.enabled);
}

bool ORXCCMWidget::getSDKCCMEnable(const QString& name, int* values)
{
    ORXRWCCMValue settings;
    if (!settings.createSetting(name) || !settings.content().enabled)
        return false;
    std::copy(settings.content().values.cbegin(), settings.content().values.cend(), values);
    return true;
}

void ORXCCMWidget::showCells()
{
    for (std::size_t i = 0; i < d->m_cells.size(); ++i)
        d->m_cells[i]->showValue(d->m_values[i]);
}

void ORXCCMWidget::setCellsEnabled(bool on)
{
    for (ORXCCMValueWidget* cell : d->m_cells)
        cell->setEnabled(on);
    // The first cell takes the focus for all, as far as it can.
    setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
}

bool ORXCCMWidget::isEdited() const
{
    for (const ORXCCMValueWidget* cell : d->m_cells) {
        if (cell->lineEdit()->hasPendingEdit())
            return true;
    }
    return false;
}

// What was written here past the whole tree shows there, too.
void ORXCCMWidget::rereadInTree(const QString& feature)
{
    ORXFeatureTree* tree = d->m_bDeviceMode ? PageSupport::treeOf(d->m_lCameraID) : nullptr;
    if (tree && tree->propertyItemByName(feature))
        tree->UpdateFeatures(FEATURES_UPDATE_INVALIDATED, feature,
                             QGetFeaturesThread::UpdateFlags(UpdateFlagSets::kFirstRead), false,
                             false);
}

// The item that switches the matrix ---------------------------------------------------------------

// Null when there is none, or it has gone with the camera.
ORXPropertyTreeItem* ORXCCMWidget::enableItem() const
{
    return d->m_pEnableItem && ORXPropertyTreeItem::isAlive(d->m_pEnableItem) ? d->m_pEnableItem
                                                                              : nullptr;
}

void ORXCCMWidget::setEnableItem(bool on)
{
    ORXPropertyTreeItem* enable = enableItem();
    if (!enable || !enable->value())
        return;
    enable->value()->setValue(on);
    enable->notifyViewUpdate(d->m_lCameraID, -1, false);
}

void ORXCCMWidget::itemValueChanged(qint64 cameraID, ORXPropertyTreeItem* item, int column, bool)
{
    emit sigUpdateEditorData(cameraID, item, column);
}

void ORXCCMWidget::onUpdateEditorData(qint64, ORXPropertyTreeItem* item, int column)
{
    if (!item || item != enableItem() || !item->value())
        return;
    const bool on = item->value()->value().toBool();
    if (column == kWrittenByUser)
        enableCCMValueChanged(on);
    else if (!d->m_bReading)
        setCellsEnabled(on);
}
