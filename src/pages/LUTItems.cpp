// SPDX-License-Identifier: Apache-2.0
#include "pages/LUTItems.h"

#include "lut/QLUTDrawWidget.h"
#include "model/CTreeItemValue.h"
#include "pages/CuratedPage.h"
#include "pages/ImgProcessingTable.h"
#include "tree/ORXFeatureTree.h"

#include <array>

using namespace ImgProcessing;

namespace {

constexpr std::array<const char*, 9> kLUTItems = {
    kLUTLineType,    kLUTGamma,        kLUTContrast,  kLUTLum,  kLUTLoadFromCamera,
    kLUTSetToCamera, kLUTLoadFromFile, kLUTSetToFile, kLUTClear};

struct CommandItem
{
    const char* name;
    void (QLUTDrawWidget::*run)();
};
constexpr CommandItem kCommandItems[] = {{kLUTLoadFromCamera, &QLUTDrawWidget::LoadFromCamera},
                                         {kLUTSetToCamera, &QLUTDrawWidget::SetToCamera},
                                         {kLUTLoadFromFile, &QLUTDrawWidget::LoadFromFile},
                                         {kLUTSetToFile, &QLUTDrawWidget::SaveToFile},
                                         {kLUTClear, &QLUTDrawWidget::ClearDraw}};

struct NumberItem
{
    const char* name;
    void (*set)(QLUTDrawWidget& editor, float value);
};
constexpr NumberItem kNumberItems[] = {
    {kLUTGamma, [](QLUTDrawWidget& editor, float value) { editor.SetGammaValue(value); }},
    {kLUTContrast, [](QLUTDrawWidget& editor, float value) { editor.SetContrastValue(value); }},
    {kLUTLum, [](QLUTDrawWidget& editor, float value) { editor.SetLumValue(value); }}};

} // namespace

LUTItems::LUTItems(CuratedPage& page, QLUTDrawWidget& editor)
    : m_page(page)
    , m_editor(editor)
{
    page.onOwnWrite(kLUTLineType, [this](const QVariant& value) {
        m_editor.SetDrawLineChanged(value.toInt());
        return true;
    });
    for (const CommandItem& item : kCommandItems) {
        // Later: a file dialog must not run inside the editor's commit.
        page.onOwnWrite(item.name, [this, each = &item](const QVariant&) {
            QMetaObject::invokeMethod(&m_editor, each->run, Qt::QueuedConnection);
            return true;
        });
    }
    for (const NumberItem& item : kNumberItems) {
        page.onOwnWrite(item.name, [this, set = item.set](const QVariant& value) {
            set(m_editor, value.toFloat());
            return true;
        });
    }
}

void LUTItems::createLUTItems(ORXPropertyTreeItem* root)
{
    if (m_page.cameraItem(kLUTEnable))
        return;
    for (const char* name : kLUTItems)
        delete m_page.pageItem(name, root);
}

void LUTItems::update()
{
    const ORXPropertyTreeItem* enable = m_page.cameraItem(kLUTEnable);
    if (!enable)
        return;
    const bool on = enable->value()->value().toBool();
    m_editor.setEnabled(on);
    for (const char* name : kLUTItems) {
        ORXPropertyTreeItem* item = m_page.pageItem(name);
        if (!item || item->readOnly() == !on)
            continue;
        item->setReadOnly(!on);
        item->notifyViewUpdate(m_page.cameraID(), -1, false);
    }
}

// Selecting another table, or another point, in the middle of a transfer would mix the tables.
void LUTItems::lockTable(bool lock)
{
    static const QStringList names{QStringLiteral("LUTSelector"), QStringLiteral("LUTIndex"),
                                   QStringLiteral("LUTValue")};
    if (lock) {
        m_tableLock.lock(m_page.tree(), names);
    } else if (m_tableLock.isLocked()) {
        m_tableLock.unlock();
        for (const QString& name : names) {
            if (ORXFeatureTree* whole = m_page.tree())
                whole->rereadInvalidated(name);
        }
    }
}
