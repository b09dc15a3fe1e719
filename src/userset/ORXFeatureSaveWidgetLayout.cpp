// SPDX-License-Identifier: Apache-2.0
// The controls of ORXFeatureSaveWidget, and their texts.
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomWidget.h"
#include "userset/ORXFeatureSaveWidget.h"
#include "userset/UserSetTable.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QVariant>

namespace {

using UserSetTable::Action;

constexpr QSize kSize{370, 438};
constexpr int kMargin = 20;
constexpr int kSpacing = 8;
constexpr int kSectionSpacing = 16;
constexpr int kFontSize = 13;
constexpr int kColumns = 3; // of buttons

const char kOrange[] = "ZEL_DB_COLOR_ORXFeatureSaveWidgetColor_Label_Font_Orange";
const char kGray[] = "ZEL_DB_COLOR_ORXFeatureSaveWidgetColor_Label_Font_Gray";
const char kBlack[] = "ZEL_DB_COLOR_ORXFeatureSaveWidgetColor_Label_Font_Black";

struct ActionText
{
    const char* text;
    const char* toolTip; // %1: the set; also what a screen reader says
};

// In the order of UserSetTable::Action.
const ActionText kActionTexts[] = {
    {QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Save"),
     QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Save the settings in %1")},
    {QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Load"),
     QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Load the settings of %1")},
    {QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Power-up"),
     QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Load %1 whenever the camera starts")},
    {QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Device Reset"),
     QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Restart the camera")},
};

void keepPlace(QWidget* widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

} // namespace

ZELCustomLabel* ORXFeatureSaveWidget::makeLabel(const char* colorKey)
{
    auto* label = new ZELCustomLabel(m_pBody);
    label->cSetFontSize(kFontSize);
    label->cSetTextColor(QString::fromLatin1(colorKey));
    return label;
}

ZELCustomPushButton* ORXFeatureSaveWidget::makeButton(int id)
{
    const bool resets = UserSetTable::button(id)->action == Action::Reset;
    auto* button = new ZELCustomPushButton(m_pBody, resets ? ZELCustomPushButton::Style_Danger
                                                           : ZELCustomPushButton::Style_Default);
    button->setObjectName(QStringLiteral("UserSetButton%1").arg(id));
    button->setProperty(kIdProperty, id);
    if (!resets)
        keepPlace(button);
    connect(button, &QPushButton::clicked, this, &ORXFeatureSaveWidget::onBtnClicked);
    m_buttons.append(button);
    return button;
}

void ORXFeatureSaveWidget::initUI()
{
    m_pBody = new QWidget(cContentWidget());
    m_pCurrentCaption = makeLabel(kGray);
    m_pCurrent = makeLabel(kOrange);
    m_pCurrent->setObjectName(QStringLiteral("UserSetCurrentName"));
    m_pPowerUpCaption = makeLabel(kGray);
    m_pPowerUp = makeLabel(kOrange);
    m_pPowerUp->setObjectName(QStringLiteral("UserSetPowerUpName"));
    for (int set = 0; set < UserSetTable::kSets; ++set)
        m_setLabels.append(makeLabel(kBlack));
    m_pResetNote = makeLabel(kGray);
    for (const UserSetTable::Button& each : UserSetTable::buttons())
        makeButton(each.id);

    auto* names = new QGridLayout;
    names->setHorizontalSpacing(kSpacing);
    names->setVerticalSpacing(kSpacing);
    names->setColumnStretch(1, 1);
    names->addWidget(m_pCurrentCaption, 0, 0);
    names->addWidget(m_pCurrent, 0, 1);
    names->addWidget(m_pPowerUpCaption, 1, 0);
    names->addWidget(m_pPowerUp, 1, 1);

    auto* sets = new QGridLayout;
    sets->setHorizontalSpacing(kSpacing);
    sets->setVerticalSpacing(kSpacing);
    for (int set = 0; set < UserSetTable::kSets; ++set)
        sets->addWidget(m_setLabels.at(set), set, 0);
    for (const UserSetTable::Button& each : UserSetTable::buttons()) {
        if (each.action != Action::Reset)
            sets->addWidget(m_buttons.at(each.id), each.setValue, 1 + int(each.action));
    }
    for (int column = 0; column <= kColumns; ++column)
        sets->setColumnStretch(column, 1);

    auto* reset = new QHBoxLayout;
    reset->addWidget(m_pResetNote, 1);
    reset->addWidget(m_buttons.last());

    auto* layout = new QVBoxLayout(m_pBody);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSectionSpacing);
    layout->addLayout(names);
    layout->addStretch(1);
    layout->addWidget(makeLine());
    layout->addStretch(1);
    layout->addLayout(sets);
    layout->addStretch(1);
    QWidget* resetLine = makeLine();
    layout->addWidget(resetLine);
    layout->addStretch(1);
    layout->addLayout(reset);
    cContentLayout()->addWidget(m_pBody);

    tieToFeatures(resetLine);
    orderByRows(*sets);
    cEnableDefaultShadow(true);
    setFixedSize(kSize);
    retranslate();
}

// Which controls are shown while a feature is visible.
void ORXFeatureSaveWidget::tieToFeatures(QWidget* resetLine)
{
    for (const UserSetTable::Button& each : UserSetTable::buttons()) {
        ZELCustomPushButton* button = m_buttons.at(each.id);
        static const std::array<Feature, 4> kFeatureOfAction = {Save, Load, PowerUp, Reset};
        const Feature feature = kFeatureOfAction[static_cast<std::size_t>(each.action)];
        // A load that cannot be done now is disabled, not hidden.
        if (feature == Load)
            m_loadButtons.append(button);
        else
            m_controls[feature].append(button);
    }
    m_controls[Current] += {m_pCurrentCaption, m_pCurrent};
    m_controls[PowerUp] += {m_pPowerUpCaption, m_pPowerUp};
    m_controls[Reset] += {m_pResetNote, resetLine};
}

void ORXFeatureSaveWidget::orderByRows(const QGridLayout& sets)
{
    // The keyboard goes row by row, as the eye does.
    QWidget* before = nullptr;
    for (int set = 0; set < UserSetTable::kSets; ++set) {
        for (int column = 1; column <= kColumns; ++column) {
            QLayoutItem* cell = sets.itemAtPosition(set, column);
            if (!cell)
                continue;
            if (before)
                setTabOrder(before, cell->widget());
            before = cell->widget();
        }
    }
    setTabOrder(before, m_buttons.last());
}

QWidget* ORXFeatureSaveWidget::makeLine()
{
    auto* line = new ZELCustomWidget(m_pBody);
    line->cSetBackgroundColor(QStringLiteral("StyledCtlColor_Separator"));
    line->setFixedHeight(1);
    return line;
}

// Nothing of them is shown when the camera lacks a feature.
void ORXFeatureSaveWidget::releaseControls()
{
    delete m_pBody;
    m_pBody = nullptr;
    m_pCurrentCaption = m_pCurrent = m_pPowerUpCaption = m_pPowerUp = m_pResetNote = nullptr;
    m_setLabels.clear();
    m_buttons.clear();
    m_loadButtons.clear();
    m_controls.fill({});
}

void ORXFeatureSaveWidget::retranslate()
{
    cSetTitleText(tr("User Set Control"));
    if (!m_pBody)
        return;
    m_pCurrentCaption->setText(tr("Current settings:"));
    m_pPowerUpCaption->setText(tr("Loaded at power-up:"));
    m_pResetNote->setText(tr("Restart the camera"));
    for (int set = 0; set < m_setLabels.size(); ++set)
        m_setLabels.at(set)->setText(tr(UserSetTable::setName(set)));
    for (const UserSetTable::Button& each : UserSetTable::buttons()) {
        const ActionText& texts = kActionTexts[static_cast<std::size_t>(each.action)];
        QString toolTip = tr(texts.toolTip);
        if (each.action != Action::Reset)
            toolTip = toolTip.arg(tr(UserSetTable::setName(each.setValue)));
        ZELCustomPushButton* button = m_buttons.at(each.id);
        button->setText(tr(texts.text));
        button->setToolTip(toolTip);
        button->setAccessibleName(toolTip);
    }
    showSetNames();
}

void ORXFeatureSaveWidget::changeEvent(QEvent* event)
{
    ZELCustomMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
