// SPDX-License-Identifier: Apache-2.0
#include "main/ORXFeatureToolBar.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomPushButton.h"

#include <QButtonGroup>
#include <QEvent>

#include <new>

namespace {

constexpr int kHeight = 46;
constexpr int kButtonSize = 34;
constexpr int kSpacing = 6;
constexpr int kEndSpacing = 16;
constexpr int kFontSize = 14;
constexpr int kLevelWidth = 95;
const char kBackgroundKey[] = "ZEL_DB_COLOR_ORXFeatureToolBarColor_Background_Gradient";

QString picture(const char* name)
{
    return QStringLiteral(":/ORXToolBarBtn/") + QString::fromLatin1(name) + QStringLiteral(".png");
}

bool isEnglish()
{
    return ORXInterface::language() == QLatin1String("ENG");
}

} // namespace

ORXFeatureToolBar::ORXFeatureToolBar(QWidget* parent)
    : ZELCustomToolBar(parent)
{
    if (!InitWidget())
        throw std::bad_alloc();
    updateLangeBtn();
    cSetBackgroundColor(QString::fromLatin1(kBackgroundKey));
    RefreshWidgetInfo();
}

bool ORXFeatureToolBar::InitWidget()
{
    setFixedHeight(kHeight);
    return InitCtrl() && InitSignals() && InitLayout();
}

// The buttons do not take the focus: each has a key instead.
ZELCustomPushButton* ORXFeatureToolBar::makeButton(const char* objectName, int id,
                                                   const QKeySequence& key)
{
    auto* button = new ZELCustomPushButton(this, ZELCustomPushButton::Style_Flat);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setFixedSize(kButtonSize, kButtonSize);
    button->setFocusPolicy(Qt::NoFocus);
    button->setShortcut(key);
    m_pButtons->addButton(button, id);
    return button;
}

bool ORXFeatureToolBar::InitCtrl()
{
    m_pButtons = new QButtonGroup(this);
    m_pButtons->setExclusive(false);
    m_pLanguage = makeButton("ORXFeatureLangue", ToolBarIndex::kLanguage, Qt::CTRL | Qt::Key_L);
    m_pSave = makeButton("ORXFeatureSave", ToolBarIndex::kSave, Qt::CTRL | Qt::Key_S);
    m_pSave->cSetImages(picture("Save"), picture("Save_sel"), picture("Save_sel"),
                        picture("Save_dis"));
    m_pRefresh = makeButton("ORXFeatureRefresh", ToolBarIndex::kRefresh, Qt::Key_F5);
    m_pRefresh->cSetImages(picture("refresh"), picture("refresh_sel"), picture("refresh_sel"),
                           picture("refresh_dis"));
    m_pLevelLabel = new ZELCustomLabel(this);
    m_pLevelLabel->cSetFontSize(kFontSize);
    m_pLevelLabel->cSetTextColor(QColor(QStringLiteral("#B4BEBEBE")));
    m_pLevelBox = new ZELCustomComboBox(this, ZELCustomComboBox::Style_Flat);
    m_pLevelBox->setObjectName(QStringLiteral("ORXFeatureUserLevel"));
    m_pLevelBox->cSetBackgroundColor(QString::fromLatin1(kBackgroundKey));
    m_pLevelBox->cSetBorderWidth(0);
    m_pLevelBox->cSetFontSize(kFontSize);
    m_pLevelBox->cSetTextColor(QColor(QStringLiteral("#BEBEBE")));
    m_pLevelBox->setFixedWidth(kLevelWidth);
    return true;
}

bool ORXFeatureToolBar::InitSignals()
{
    return connect(m_pButtons, &QButtonGroup::idClicked, this,
                   &ORXFeatureToolBar::OnSigToolBarBtnClicked) &&
           connectLevelBox();
}

bool ORXFeatureToolBar::connectLevelBox()
{
    return connect(m_pLevelBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                   &ORXFeatureToolBar::OnUserLeverChanged);
}

bool ORXFeatureToolBar::InitLayout()
{
    for (ZELCustomPushButton* button : {m_pLanguage, m_pSave, m_pRefresh}) {
        cAddSpacing(kSpacing);
        cAddWidget(button);
    }
    cAddEndMarker();
    cAddWidget(m_pLevelLabel);
    cAddSpacing(kSpacing);
    cAddWidget(m_pLevelBox);
    cAddSpacing(kEndSpacing);
    return true;
}

void ORXFeatureToolBar::OnSigToolBarBtnClicked(int id)
{
    if (id == ToolBarIndex::kLanguage) {
        ORXInterface::setLanguage(isEnglish() ? QStringLiteral("CH") : QStringLiteral("ENG"));
        updateLangeBtn();
    }
    emit SigToolBarBtnClicked(id);
}

void ORXFeatureToolBar::OnUserLeverChanged()
{
    OBDeviceControl::SetUserLevel(m_pLevelBox->currentIndex());
    emit SigToolBarBtnClicked(ToolBarIndex::kUserLevel);
}

void ORXFeatureToolBar::OnChangedUserLever()
{
    if (OBDeviceControl::GetUserLevel() == m_pLevelBox->currentIndex())
        return;
    disconnect(m_pLevelBox, nullptr, this, nullptr);
    m_pLevelBox->setCurrentIndex(OBDeviceControl::GetUserLevel());
    connectLevelBox();
}

void ORXFeatureToolBar::RefreshWidgetInfo()
{
    if (!m_pLevelBox || !m_pLevelLabel || !m_pLanguage || !m_pSave || !m_pRefresh)
        return;
    m_pRefresh->setToolTip(tr("Refresh"));
    m_pLanguage->setToolTip(tr("Langue"));
    m_pSave->setToolTip(tr("User Set Control"));
    m_pLevelLabel->setText(tr("User Lever: "));
    disconnect(m_pLevelBox, nullptr, this, nullptr);
    m_pLevelBox->clear();
    m_pLevelBox->addItem(tr("Guru"));
    m_pLevelBox->addItem(tr("Beginner"));
    m_pLevelBox->setCurrentIndex(OBDeviceControl::GetUserLevel());
    connectLevelBox();
}

void ORXFeatureToolBar::updateLangeBtn()
{
    const char* normal = isEnglish() ? "icon_Cn_normal" : "icon_En_normal";
    const char* hover = isEnglish() ? "icon_Cn_hover" : "icon_En_hover";
    m_pLanguage->cSetImages(picture(normal), picture(hover), picture(hover));
    m_pLanguage->update();
}

void ORXFeatureToolBar::UpdateToolBarBtn(qint64 key)
{
    for (ZELCustomPushButton* button : {m_pSave, m_pRefresh}) {
        if (button)
            button->setEnabled(key != -1);
    }
}

void ORXFeatureToolBar::UpdateLangueVisible(qint64, bool visible)
{
    m_pLanguage->setVisible(visible);
}

void ORXFeatureToolBar::changeEvent(QEvent* event)
{
    ZELCustomToolBar::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        RefreshWidgetInfo();
}
