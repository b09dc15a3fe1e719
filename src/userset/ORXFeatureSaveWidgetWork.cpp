// SPDX-License-Identifier: Apache-2.0
// What the buttons of ORXFeatureSaveWidget do.
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/ORXFeatureTree.h"
#include "userset/ORXFeatureSaveWidget.h"
#include "userset/UserSetTable.h"

#include <QCoreApplication>
#include <QDebug>
#include <QVariant>

namespace {

// Trees take 1, or the camera's key + 3; see getLoadingIndex().
constexpr int kLoadingIndex = 2;

} // namespace

// The item takes the value only if the camera did: what it shows decides whether the next press
// selects a set again.
bool ORXFeatureSaveWidget::write(Feature feature, int value)
{
    ORXPropertyTreeItem* target = item(feature);
    if (!target)
        return false;
    if (number(feature) == value)
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
    return write(Selector, setValue) && execute(command);
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

void ORXFeatureSaveWidget::hideBusySign()
{
    ZELCustomLoadingDialog::hideLoading(kLoadingIndex);
    ZELCustomLoadingDialog::setHostWindow(nullptr, kLoadingIndex);
}
