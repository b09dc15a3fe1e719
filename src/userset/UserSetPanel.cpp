// SPDX-License-Identifier: Apache-2.0
#include "userset/UserSetPanel.h"

#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomWidget.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QVariant>

namespace {

using UserSetTable::Action;

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
    {QT_TRANSLATE_NOOP("UserSetPanel", "Save"),
     QT_TRANSLATE_NOOP("UserSetPanel", "Save the settings in %1")},
    {QT_TRANSLATE_NOOP("UserSetPanel", "Load"),
     QT_TRANSLATE_NOOP("UserSetPanel", "Load the settings of %1")},
    {QT_TRANSLATE_NOOP("UserSetPanel", "Power-up"),
     QT_TRANSLATE_NOOP("UserSetPanel", "Load %1 whenever the camera starts")},
    {QT_TRANSLATE_NOOP("UserSetPanel", "Device Reset"),
     QT_TRANSLATE_NOOP("UserSetPanel", "Restart the camera")},
};

void keepPlace(QWidget* widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

} // namespace

ZELCustomLabel* UserSetPanel::makeLabel(const char* colorKey)
{
    auto* label = new ZELCustomLabel(this);
    label->cSetFontSize(kFontSize);
    label->cSetTextColor(QString::fromLatin1(colorKey));
    return label;
}

ZELCustomPushButton* UserSetPanel::makeButton(int id)
{
    const bool resets = UserSetTable::button(id)->action == Action::Reset;
    auto* button = new ZELCustomPushButton(this, resets ? ZELCustomPushButton::Style_Danger
                                                        : ZELCustomPushButton::Style_Default);
    button->setObjectName(QStringLiteral("UserSetButton%1").arg(id));
    button->setProperty(kIdProperty, id);
    if (!resets)
        keepPlace(button);
    m_buttons.append(button);
    return button;
}

UserSetPanel::UserSetPanel(QWidget* parent)
    : QWidget(parent)
{
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

    auto* layout = new QVBoxLayout(this);
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

    tieToFeatures(resetLine);
    orderByRows(*sets);
    retranslate();
}

// Which controls are shown while a feature is visible.
void UserSetPanel::tieToFeatures(QWidget* resetLine)
{
    for (const UserSetTable::Button& each : UserSetTable::buttons()) {
        ZELCustomPushButton* button = m_buttons.at(each.id);
        static const std::array<UserSetTable::Feature, 4> kFeatureOfAction = {
            UserSetTable::Save, UserSetTable::Load, UserSetTable::PowerUp, UserSetTable::Reset};
        const UserSetTable::Feature feature =
            kFeatureOfAction[static_cast<std::size_t>(each.action)];
        // A load that cannot be done now is disabled, not hidden.
        if (feature == UserSetTable::Load)
            m_loadButtons.append(button);
        else
            m_controls[feature].append(button);
    }
    m_controls[UserSetTable::Current] += {m_pCurrentCaption, m_pCurrent};
    m_controls[UserSetTable::PowerUp] += {m_pPowerUpCaption, m_pPowerUp};
    m_controls[UserSetTable::Reset] += {m_pResetNote, resetLine};
}

void UserSetPanel::orderByRows(const QGridLayout& sets)
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

QWidget* UserSetPanel::makeLine()
{
    auto* line = new ZELCustomWidget(this);
    line->cSetBackgroundColor(QStringLiteral("StyledCtlColor_Separator"));
    line->setFixedHeight(1);
    return line;
}

void UserSetPanel::setFeatureShown(UserSetTable::Feature feature, bool shown)
{
    for (QWidget* control : qAsConst(m_controls[feature]))
        control->setVisible(shown);
}

void UserSetPanel::setLoadEnabled(bool enabled)
{
    for (ZELCustomPushButton* button : qAsConst(m_loadButtons))
        button->setEnabled(enabled);
}

void UserSetPanel::showSetNames(int current, int powerUp)
{
    m_pCurrent->setText(UserSetTable::translated(UserSetTable::setName(current)));
    m_pPowerUp->setText(UserSetTable::translated(UserSetTable::setName(powerUp)));
}

void UserSetPanel::setBusy(bool busy)
{
    if (busy)
        m_pFocusBefore = window()->focusWidget();
    setEnabled(!busy);
    if (!busy && m_pFocusBefore && m_pFocusBefore->isEnabled())
        m_pFocusBefore->setFocus(Qt::OtherFocusReason);
}

void UserSetPanel::retranslate()
{
    m_pCurrentCaption->setText(tr("Current settings:"));
    m_pPowerUpCaption->setText(tr("Loaded at power-up:"));
    m_pResetNote->setText(tr("Restart the camera"));
    for (int set = 0; set < m_setLabels.size(); ++set)
        m_setLabels.at(set)->setText(UserSetTable::translated(UserSetTable::setName(set)));
    for (const UserSetTable::Button& each : UserSetTable::buttons()) {
        const ActionText& texts = kActionTexts[static_cast<std::size_t>(each.action)];
        QString toolTip = tr(texts.toolTip);
        if (each.action != Action::Reset)
            toolTip = toolTip.arg(UserSetTable::translated(UserSetTable::setName(each.setValue)));
        ZELCustomPushButton* button = m_buttons.at(each.id);
        button->setText(tr(texts.text));
        button->setToolTip(toolTip);
        button->setAccessibleName(toolTip);
    }
}
