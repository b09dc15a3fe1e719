// SPDX-License-Identifier: Apache-2.0
#include "userset/ORXFeatureSaveWidget.h"

#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/ORXFeatureTree.h"
#include "userset/UserSetPanel.h"

#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <QVariant>

namespace {

constexpr QSize kSize{370, 438};
// Trees take 1, or the camera's key + 3; see getLoadingIndex().
constexpr int kLoadingIndex = 2;

} // namespace

ORXFeatureSaveWidget::ORXFeatureSaveWidget(qint64 key, QWidget* parent)
    : ZELCustomMainWindow(parent)
    , m_features(key)
    , m_work(m_features, this)
{
    setObjectName(QStringLiteral("ORXFeatureSaveWidget"));
    initUI();
    if (!InitFeaturesControls()) {
        m_bSupport = false;
        delete m_pPanel;
        m_pPanel = nullptr;
    }
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    setWindowModality(Qt::WindowModal);
    if (parent)
        parent->window()->installEventFilter(this);
}

ORXFeatureSaveWidget::~ORXFeatureSaveWidget()
{
    hideBusySign();
    m_features.removeView(this);
}

void ORXFeatureSaveWidget::initUI()
{
    m_pPanel = new UserSetPanel(cContentWidget());
    cContentLayout()->addWidget(m_pPanel);
    for (const ZELCustomPushButton* button : m_pPanel->buttons())
        connect(button, &QPushButton::clicked, this, &ORXFeatureSaveWidget::onBtnClicked);
    cEnableDefaultShadow(true);
    setFixedSize(kSize);
    retranslate();
}

bool ORXFeatureSaveWidget::InitFeaturesControls()
{
    if (!m_pPanel || !m_features.isComplete())
        return false;
    connect(this, &ORXFeatureSaveWidget::sigSetItemVisible, this,
            &ORXFeatureSaveWidget::onSetItemVisible);
    connect(this, &ORXFeatureSaveWidget::sigUpdateEditorData, this,
            &ORXFeatureSaveWidget::onUpdateEditorData);
    connect(m_features.tree(), &QObject::destroyed, this, &QWidget::close);
    m_features.registerView(this);
    for (int i = 0; i < UserSetTable::kFeatures; ++i) {
        if (ORXPropertyTreeItem* item = m_features.item(UserSetTable::Feature(i)))
            onSetItemVisible(item, item->visible());
    }
    showSetNames();
    return true;
}

int ORXFeatureSaveWidget::getBtnMapSelector(int id)
{
    const UserSetTable::Button* button = UserSetTable::button(id);
    return button ? button->setValue : 0;
}

// Items -------------------------------------------------------------------------------------------

// Whether a search hides the item in the tree does not matter here.
void ORXFeatureSaveWidget::itemVisibleChanged(qint64, ORXPropertyTreeItem* changed, bool)
{
    m_notices.tell([=, visible = changed->visible()] { emit sigSetItemVisible(changed, visible); });
}

void ORXFeatureSaveWidget::itemValueChanged(qint64, ORXPropertyTreeItem* changed, int, bool)
{
    m_notices.tell([=] { emit sigUpdateEditorData(changed); });
}

void ORXFeatureSaveWidget::onSetItemVisible(ORXPropertyTreeItem* changed, bool visible)
{
    for (int i = 0; i < UserSetTable::kFeatures; ++i) {
        const auto feature = UserSetTable::Feature(i);
        if (changed && m_features.item(feature) == changed)
            m_pPanel->setFeatureShown(feature, visible);
    }
    updateLoadEnable();
}

void ORXFeatureSaveWidget::onUpdateEditorData(ORXPropertyTreeItem* changed)
{
    showSetNames();
    if (!changed || !m_features.tree())
        return;
    if (changed == m_features.item(UserSetTable::Load))
        updateLoadEnable();
    if (changed == m_features.item(UserSetTable::LoadStatus))
        m_work.noteLoadStatus(changed->value()->displayValue().contains(QLatin1String("Load")));
}

void ORXFeatureSaveWidget::updateLoadEnable()
{
    const ORXPropertyTreeItem* load = m_features.item(UserSetTable::Load);
    m_pPanel->setLoadEnabled(load && load->visible() && !load->readOnly());
}

void ORXFeatureSaveWidget::showSetNames()
{
    m_pPanel->showSetNames(m_features.number(UserSetTable::Current),
                           m_features.number(UserSetTable::PowerUp));
}

void ORXFeatureSaveWidget::retranslate()
{
    cSetTitleText(tr("User Set Control"));
    if (!m_pPanel)
        return;
    m_pPanel->retranslate();
    showSetNames();
}

void ORXFeatureSaveWidget::changeEvent(QEvent* event)
{
    ZELCustomMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

// Buttons -----------------------------------------------------------------------------------------

void ORXFeatureSaveWidget::onBtnClicked()
{
    const QObject* pressed = sender();
    const UserSetTable::Button* button =
        pressed ? UserSetTable::button(pressed->property(UserSetPanel::kIdProperty).toInt())
                : nullptr;
    if (!button || m_bBusy || !m_features.tree())
        return;
    // The host may release the library from inside the writes, the wait and the message.
    const ReentrancyScope scope;
    if (button->action == UserSetTable::Action::Reset) {
        m_features.execute(UserSetTable::Reset);
        close();
        return;
    }
    setBusy(true);
    const UserSetWork::Outcome outcome = m_work.run(*button);
    setBusy(false);
    if (outcome == UserSetWork::Outcome::Done)
        showMessage(UserSetTable::translated(button->message),
                    ZELCustomMessageBox::Hint_Information);
    else if (outcome == UserSetWork::Outcome::NotConfirmed)
        showMessage(tr("The camera did not confirm that the user set is loaded."),
                    ZELCustomMessageBox::Hint_Warning);
}

// While something is under way only the way out works.
void ORXFeatureSaveWidget::setBusy(bool busy)
{
    m_bBusy = busy;
    if (busy) {
        m_pPanel->setBusy(true);
        ZELCustomLoadingDialog::setHostWindow(this, kLoadingIndex);
        ZELCustomLoadingDialog::showLoading(tr("Setting ..."), kLoadingIndex);
    } else {
        ZELCustomLoadingDialog::hideLoading(kLoadingIndex);
        m_pPanel->setBusy(false);
    }
}

void ORXFeatureSaveWidget::showMessage(const QString& text, int hintStyle)
{
    m_pBox = new ZELCustomMessageBox(this);
    m_pBox->cSetCaption(tr("Prompt"));
    m_pBox->cSetContent(text);
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

// Closing -----------------------------------------------------------------------------------------

int ORXFeatureSaveWidget::notify(int code, void* payload)
{
    if (code == ListenCode::kBeforeTreeRemoved && payload &&
        *static_cast<qint64*>(payload) == m_features.cameraID())
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
    m_work.setClosed(false);
    ZELCustomMainWindow::showEvent(event);
}

void ORXFeatureSaveWidget::hideEvent(QHideEvent* event)
{
    ZELCustomMainWindow::hideEvent(event);
    if (event->spontaneous())
        return;
    // The event loops that stand above this dialog's own on the stack have to end first.
    m_work.setClosed(true);
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
