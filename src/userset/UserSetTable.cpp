// SPDX-License-Identifier: Apache-2.0
#include "userset/UserSetTable.h"

#include <QCoreApplication>

namespace UserSetTable {

namespace {

const char* const kSetNames[kSets] = {
    QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "Default"),
    QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "User Set 1"),
    QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "User Set 2"),
    QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "User Set 3"),
};

} // namespace

const std::array<NeededFeature, kFeatures>& features()
{
    static const std::array<NeededFeature, kFeatures> kNeeded = {{
        {"UserSetCurrent", true},
        {"UserSetSelector", true},
        {"UserSetLoad", true},
        {"UserSetSave", true},
        {"UserSetDefault", true},
        {"DeviceReset", true},
        {"UserSetLoadStatus", false},
    }};
    return kNeeded;
}

// The wording of the messages is fixed, the spelling of "suscceeded" included.
const std::array<Button, 12>& buttons()
{
    static const std::array<Button, 12> kButtons = {{
        {0, Action::Save, 1, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user set1 saved.")},
        {1, Action::Save, 2, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user set2 saved.")},
        {2, Action::Save, 3, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user set3 saved.")},
        {3, Action::Load, 0, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user default loaded.")},
        {4, Action::Load, 1, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user set1 loaded.")},
        {5, Action::Load, 2, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user set2 loaded.")},
        {6, Action::Load, 3, QT_TRANSLATE_NOOP("ORXFeatureSaveWidget", "user set3 loaded.")},
        {7, Action::PowerUp, 0,
         QT_TRANSLATE_NOOP("ORXFeatureSaveWidget",
                           "Configuration suscceeded. The camera will load the default UserSet "
                           "when it is rebooted.")},
        {8, Action::PowerUp, 1,
         QT_TRANSLATE_NOOP("ORXFeatureSaveWidget",
                           "Configuration suscceeded. The camera will load the UserSet1 when it is "
                           "rebooted.")},
        {9, Action::PowerUp, 2,
         QT_TRANSLATE_NOOP("ORXFeatureSaveWidget",
                           "Configuration suscceeded. The camera will load the UserSet2 when it is "
                           "rebooted.")},
        {10, Action::PowerUp, 3,
         QT_TRANSLATE_NOOP("ORXFeatureSaveWidget",
                           "Configuration suscceeded. The camera will load the UserSet3 when it is "
                           "rebooted.")},
        {11, Action::Reset, 0, ""},
    }};
    return kButtons;
}

const Button* button(int id)
{
    for (const Button& each : buttons()) {
        if (each.id == id)
            return &each;
    }
    return nullptr;
}

const char* setName(int setValue)
{
    return setValue >= 0 && setValue < kSets ? kSetNames[setValue] : "";
}

QString translated(const char* text)
{
    return QCoreApplication::translate("ORXFeatureSaveWidget", text);
}

} // namespace UserSetTable
