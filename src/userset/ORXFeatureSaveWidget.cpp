// SPDX-License-Identifier: Apache-2.0
#include "userset/ORXFeatureSaveWidget.h"

#include "device/ORXListenTools.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/ORXFeatureTree.h"
#include "tree/PageSupport.h"
#include "userset/UserSetTable.h"

#include <QKeyEvent>
#include <QTimer>
#include <QVariant>

namespace {

struct NeededFeature
{
    const char* name;
    bool required;
};

// In the order of ORXFeatureSaveWidget::Feature.
const NeededFeature kNeeded[] = {
    {"UserSetCurrent", true},     {"UserSetSelector", true}, {"UserSetLoad", true},
    {"UserSetSave", true},        {"UserSetDefault", true},  {"DeviceReset", true},
    {"UserSetLoadStatus", false},
};

} // namespace

ORXFeatureSaveWidget::ORXFeatureSaveWidget(qint64 key, QWidget* parent)
    : ZELCustomMainWindow(parent)
    , m_lCameraID(key)
{
    setObjectName(QStringLiteral("ORXFeatureSaveWidget"));
    initUI();
    if (!InitFeaturesControls()) {
        m_bSupport = false;
        releaseControls();
    }
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    setWindowModality(Qt::WindowModal);
    if (parent)
        parent->window()->installEventFilter(this);
}

ORXFeatureSaveWidget::~ORXFeatureSaveWidget()
{
    hideBusySign();
    for (ORXPropertyTreeItem* each : m_items) {
        if (each && ORXPropertyTreeItem::isAlive(each))
            each->removeView(this);
    }
}

bool ORXFeatureSaveWidget::InitFeaturesControls()
{
    m_pTree = PageSupport::treeOf(m_lCameraID);
    if (!m_pTree || !m_pCurrent || !m_pPowerUp)
        return false;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        m_items[i] = m_pTree->propertyItemByName(QString::fromLatin1(kNeeded[i].name));
        if (!m_items[i] && kNeeded[i].required)
            return false;
    }
    connect(this, &ORXFeatureSaveWidget::sigSetItemVisible, this,
            &ORXFeatureSaveWidget::onSetItemVisible);
    connect(this, &ORXFeatureSaveWidget::sigUpdateEditorData, this,
            &ORXFeatureSaveWidget::onUpdateEditorData);
    connect(m_pTree.data(), &QObject::destroyed, this, &QWidget::close);
    for (ORXPropertyTreeItem* each : m_items) {
        if (!each)
            continue;
        each->registerView(this);
        onSetItemVisible(each, each->visible());
    }
    showSetNames();
    updateLoadEnable();
    return true;
}

int ORXFeatureSaveWidget::getBtnMapSelector(int id)
{
    const UserSetTable::Button* button = UserSetTable::button(id);
    return button ? button->setValue : 0;
}

// Items -------------------------------------------------------------------------------------------

// Null when the camera's items have gone.
ORXPropertyTreeItem* ORXFeatureSaveWidget::item(Feature feature) const
{
    ORXPropertyTreeItem* found = m_items[feature];
    return m_pTree && found && ORXPropertyTreeItem::isAlive(found) ? found : nullptr;
}

// -1 without one.
int ORXFeatureSaveWidget::number(Feature feature) const
{
    const ORXPropertyTreeItem* found = item(feature);
    return found && found->value() ? found->value()->value().toInt() : -1;
}

// Whether a search hides the item in the tree does not matter here.
void ORXFeatureSaveWidget::itemVisibleChanged(qint64, ORXPropertyTreeItem* changed, bool)
{
    emit sigSetItemVisible(changed, changed->visible());
}

void ORXFeatureSaveWidget::itemValueChanged(qint64, ORXPropertyTreeItem* changed, int, bool)
{
    emit sigUpdateEditorData(changed);
}

void ORXFeatureSaveWidget::onSetItemVisible(ORXPropertyTreeItem* changed, bool visible)
{
    for (int i = 0; i < kFeatures; ++i) {
        if (!changed || item(Feature(i)) != changed)
            continue;
        for (QWidget* control : qAsConst(m_controls[static_cast<std::size_t>(i)]))
            control->setVisible(visible);
    }
    updateLoadEnable();
}

void ORXFeatureSaveWidget::onUpdateEditorData(ORXPropertyTreeItem* changed)
{
    showSetNames();
    if (!changed || !m_pTree)
        return;
    if (changed == item(Load))
        updateLoadEnable();
    if (m_pWait && changed == item(LoadStatus))
        m_pWait->noteReading(changed->value()->displayValue().contains(QLatin1String("Load")));
}

void ORXFeatureSaveWidget::updateLoadEnable()
{
    const ORXPropertyTreeItem* load = item(Load);
    const bool enabled = load && load->visible() && !load->readOnly();
    for (ZELCustomPushButton* button : qAsConst(m_loadButtons))
        button->setEnabled(enabled);
}

void ORXFeatureSaveWidget::showSetNames()
{
    if (!m_pCurrent)
        return;
    const int current = number(Current);
    m_pCurrent->setText(tr(UserSetTable::setName(current)));
    m_pPowerUp->setText(tr(UserSetTable::setName(number(PowerUp))));
}

// Closing -----------------------------------------------------------------------------------------

int ORXFeatureSaveWidget::notify(int code, void* payload)
{
    if (code == ListenCode::kBeforeTreeRemoved && payload &&
        *static_cast<qint64*>(payload) == m_lCameraID)
        close();
    return 0;
}

bool ORXFeatureSaveWidget::eventFilter(QObject* watched, QEvent* event)
{
    // Queued: a window that changes its flags is hidden for a moment.
    if (parentWidget() && watched == parentWidget()->window() && event->type() == QEvent::Hide)
        QTimer::singleShot(0, this, &ORXFeatureSaveWidget::closeWithWindow);
    return ZELCustomMainWindow::eventFilter(watched, event);
}

void ORXFeatureSaveWidget::closeWithWindow()
{
    if (!parentWidget() || !parentWidget()->window()->isVisible())
        close();
}

void ORXFeatureSaveWidget::showEvent(QShowEvent* event)
{
    m_bClosed = false;
    ZELCustomMainWindow::showEvent(event);
}

void ORXFeatureSaveWidget::hideEvent(QHideEvent* event)
{
    ZELCustomMainWindow::hideEvent(event);
    if (event->spontaneous())
        return;
    // The event loops that stand above this dialog's own on the stack have to end first.
    m_bClosed = true;
    if (m_pWait)
        m_pWait->abandon();
    if (m_pBox)
        m_pBox->reject();
}

// Enter belongs to the buttons.
void ORXFeatureSaveWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        ZELCustomMainWindow::keyPressEvent(event);
}
