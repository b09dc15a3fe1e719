// SPDX-License-Identifier: Apache-2.0
#include "ccm/ORXCCMWidget.h"

#include "ccm/ColorMatrix.h"
#include "ccm/ORXCCMValueWidget.h"
#include "ccm/ORXCCMWidgetPrivateData.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustom.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/editors/ExternalEditor.h"

#include <QHeaderView>
#include <QPointer>
#include <QVariant>

namespace {

constexpr int kSide = 3;
constexpr int kRowHeight = 40;

} // namespace

ORXCCMWidget::ORXCCMWidget(ORXPropertyTreeItem* item, QWidget* parent)
    : QTableWidget(parent)
    , d(std::make_unique<ORXCCMWidgetPrivateData>())
{
    const auto* value =
        item ? dynamic_cast<const CTreeCustomCCMItemValue*>(item->value()) : nullptr;
    if (value)
        d->m_pMatrix = qobject_cast<ColorMatrix*>(value->m_pMatrix);
    initData();
    connect(this, &ORXCCMWidget::sigUpdateEditorData, this, &ORXCCMWidget::onUpdateEditorData);
    if (!d->m_pMatrix)
        return;
    connect(d->m_pMatrix, &ColorMatrix::SigChanged, this, &ORXCCMWidget::showMatrix);
    d->m_pMatrix->setEditedTest([this] { return isEdited(); });
    if (ORXPropertyTreeItem* enable = d->m_pMatrix->enableItem())
        enable->registerView(this);
    showMatrix();
}

ORXCCMWidget::~ORXCCMWidget()
{
    if (!d->m_pMatrix)
        return;
    d->m_pMatrix->setEditedTest(nullptr);
    if (ORXPropertyTreeItem* enable = d->m_pMatrix->enableItem())
        enable->removeView(this);
    d->m_pMatrix->editingEnded();
}

void ORXCCMWidget::registerEditor()
{
    ExternalEditor::registerEditor(
        FeatureTag::CCM,
        [](QWidget* parent, ORXPropertyTreeItem* item) { return new ORXCCMWidget(item, parent); },
        [](QWidget* editor, ORXPropertyTreeItem*) {
            if (auto* widget = qobject_cast<ORXCCMWidget*>(editor))
                widget->showMatrix();
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
        cell->setReadOnly(!d->m_pMatrix || !d->m_pMatrix->isInCamera());
        setCellWidget(row, column, cell);
        connect(cell->lineEdit(), &QLineEdit::editingFinished, this,
                &ORXCCMWidget::onEditedCCMValue);
        d->m_cells[static_cast<std::size_t>(index)] = cell;
    }
    setFocusProxy(d->m_cells.front()->lineEdit());
    setCellsEnabled(false);
}

// Showing -----------------------------------------------------------------------------------------

void ORXCCMWidget::updateData()
{
    if (d->m_pMatrix)
        d->m_pMatrix->read();
}

bool ORXCCMWidget::getSDKCCMEnable(const QString& name, int* values)
{
    return ColorMatrix::enabledInFile(name, values);
}

void ORXCCMWidget::showMatrix()
{
    if (!d->m_pMatrix)
        return;
    // Not while the user is typing; the end of the edit comes back here.
    if (d->m_pMatrix->isKnown() && !isEdited())
        showCells();
    setCellsEnabled(d->m_pMatrix->isOn());
}

void ORXCCMWidget::showCells()
{
    for (std::size_t i = 0; i < d->m_cells.size(); ++i) {
        if (d->m_pMatrix->isInCamera())
            d->m_cells[i]->setRange(d->m_pMatrix->minimum(), d->m_pMatrix->maximum());
        d->m_cells[i]->showValue(d->m_pMatrix->values()[i]);
    }
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

void ORXCCMWidget::itemValueChanged(qint64 cameraID, ORXPropertyTreeItem* item, int column, bool)
{
    m_notices.tell([=] { emit sigUpdateEditorData(cameraID, item, column); });
}

// The item that switches the matrix has changed.
void ORXCCMWidget::onUpdateEditorData(qint64, ORXPropertyTreeItem*, int)
{
    showMatrix();
}

// Editing a cell ----------------------------------------------------------------------------------

void ORXCCMWidget::onEditedCCMValue()
{
    auto* edit = qobject_cast<QPropertyLineEdit*>(sender());
    if (!edit || !d->m_pMatrix)
        return;
    const int index = edit->property(ORXCCMValueWidget::kIndexProperty).toInt();
    ORXCCMValueWidget* cell = d->m_cells[static_cast<std::size_t>(index)];
    QVariant value;
    if (!edit->SaveProperty(value)) {
        edit->Rollback();
    } else {
        const QPointer<ORXCCMWidget> self(this);
        if (d->m_pMatrix->isInCamera())
            d->m_pMatrix->writeCell(index, value.toFloat());
        if (!self || !d->m_pMatrix)
            return;
        cell->showValue(d->m_pMatrix->values()[static_cast<std::size_t>(index)]);
    }
    d->m_pMatrix->editingEnded();
}
