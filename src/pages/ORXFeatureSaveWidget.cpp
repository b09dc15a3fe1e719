// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXFeatureSaveWidget.h"

#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/UserSetTable.h"
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"

#include <QCoreApplication>
#include <QDebug>
#include <QKeyEvent>
#include <QTimer>
#include <QVariant>

namespace {

// Trees take 1, or the camera's key + 3; see getLoadingIndex().
constexpr int kLoadingIndex = 2;

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

int numberOf(const ORXPropertyTreeItem* item)
{
    return item && item->value() ? item->value()->value().toInt() : -1;
}

ORXFeatureTree* treeOf(qint64 key)
{
    IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    return finder && finder->hasFeatureTree(key) ? finder->featureTree(key, false) : nullptr;
}

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
    ZELCustomLoadingDialog::hideLoading(kLoadingIndex);
    ZELCustomLoadingDialog::setHostWindow(nullptr, kLoadingIndex);
    for (ORXPropertyTreeItem* each : m_items) {
        if (each && ORXPropertyTreeItem::isAlive(each))
            each->removeView(this);
    }
}

bool ORXFeatureSaveWidget::InitFeaturesControls()
{
    m_pTree = treeOf(m_lCameraID);
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

// The camera
// -----------------------------------------------------------------------------------------

// Null when the camera's items have gone.
ORXPropertyTreeItem* ORXFeatureSaveWidget::item(Feature feature) const
{
    ORXPropertyTreeItem* found = m_items[feature];
    return m_pTree && found && ORXPropertyTreeItem::isAlive(found) ? found : nullptr;
}

// The item takes the value only if the camera did: what it shows decides whether the next press
// selects a set again.
bool ORXFeatureSaveWidget::write(Feature feature, int value)
{
    ORXPropertyTreeItem* target = item(feature);
    if (!target)
        return false;
    if (numberOf(target) == value)
        return true;
    if (!m_pTree->setFeatureValue(target, value, false))
        return false;
    target = item(feature);
    if (!target)
        return false;
    target->value()->setValue(value);
    target->notifyViewUpdate(m_lCameraID, -1, false);
    return true;
}

bool ORXFeatureSaveWidget::execute(Feature feature)
{
    ORXPropertyTreeItem* command = item(feature);
    return command && m_pTree->setFeatureValue(command, QVariant(), false);
}

bool ORXFeatureSaveWidget::setPowerUp(int setValue)
{
    return write(PowerUp, setValue);
}

bool ORXFeatureSaveWidget::saveOrLoad(Feature command, int setValue)
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (m_bClosed)
        return false;
    const bool selected = numberOf(item(Selector)) == setValue;
    const bool done = write(Selector, setValue) && execute(command);
    // The tree reads again what the last write changed, which is now the command.
    if (!selected && item(Selector)) {
        m_pTree->UpdateFeatures(
            FEATURES_UPDATE_INVALIDATED, QString::fromLatin1(kNeeded[Selector].name),
            QGetFeaturesThread::UpdateFlags(UpdateFlagSets::kFirstRead), false, false);
    }
    return done;
}

// Also after a refused load: the camera may be loading all the same. False when the camera has not
// said that it has finished.
bool ORXFeatureSaveWidget::waitForLoad()
{
    if (m_bClosed || !item(LoadStatus))
        return !m_bClosed;
    // What was told before the command is no news.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    UserSetLoadWait wait(m_pTree, item(LoadStatus), m_limits);
    if (m_bClosed || !wait.canWait())
        return !m_bClosed;
    m_pWait = &wait;
    const UserSetLoadWait::Outcome outcome = wait.run();
    m_pWait = nullptr;
    if (outcome == UserSetLoadWait::Outcome::TimedOut)
        qCritical("Loading a user set: the status still says that it is loading after %d s",
                  m_limits.longestMs / 1000);
    else if (outcome == UserSetLoadWait::Outcome::CameraLost)
        qCritical("%s", "Loading a user set: the camera does not answer any more");
    return outcome == UserSetLoadWait::Outcome::Ended;
}

void ORXFeatureSaveWidget::onBtnClicked()
{
    const QObject* pressed = sender();
    const UserSetTable::Button* button =
        pressed ? UserSetTable::button(pressed->property(kIdProperty).toInt()) : nullptr;
    if (!button || m_bBusy || !m_pTree)
        return;
    // The host may release the library from inside the writes, the wait and the message.
    const ReentrancyScope scope;
    if (button->action == UserSetTable::Action::Reset) {
        execute(Reset);
        close();
        return;
    }
    const bool loads = button->action == UserSetTable::Action::Load;
    setBusy(true);
    const bool written = button->action == UserSetTable::Action::PowerUp
                             ? setPowerUp(button->setValue)
                             : saveOrLoad(loads ? Load : Save, button->setValue);
    const bool finished = !loads || waitForLoad();
    setBusy(false);
    if (m_bClosed || !written)
        return;
    if (finished)
        showMessage(button->message, ZELCustomMessageBox::Hint_Information);
    else
        showMessage(QT_TR_NOOP("The camera did not confirm that the user set is loaded."),
                    ZELCustomMessageBox::Hint_Warning);
}

// While something is under way only the way out works.
void ORXFeatureSaveWidget::setBusy(bool busy)
{
    m_bBusy = busy;
    if (busy) {
        m_pFocusBeforeWork = focusWidget();
        m_pBody->setEnabled(false);
        ZELCustomLoadingDialog::setHostWindow(this, kLoadingIndex);
        ZELCustomLoadingDialog::showLoading(tr("Setting ..."), kLoadingIndex);
        return;
    }
    ZELCustomLoadingDialog::hideLoading(kLoadingIndex);
    m_pBody->setEnabled(true);
    if (m_pFocusBeforeWork && m_pFocusBeforeWork->isEnabled())
        m_pFocusBeforeWork->setFocus(Qt::OtherFocusReason);
}

void ORXFeatureSaveWidget::showMessage(const char* text, int hintStyle)
{
    const QString message = tr(text);
    if (message.isEmpty())
        return;
    m_pBox = new ZELCustomMessageBox(this);
    m_pBox->cSetCaption(tr("Prompt"));
    m_pBox->cSetContent(message);
    m_pBox->cSetHintStyle(hintStyle);
    m_pBox->cEndSetParameter();
    m_pBox->exec();
    delete m_pBox;
}

// Items
// --------------------------------------------------------------------------------------------

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
    const int current = numberOf(item(Current));
    m_pCurrent->setText(tr(UserSetTable::setName(current)));
    m_pPowerUp->setText(tr(UserSetTable::setName(numberOf(item(PowerUp)))));
}

// Closing
// ------------------------------------------------------------------------------------------

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
