// SPDX-License-Identifier: Apache-2.0
#include "pages/PaletteItem.h"

#include "model/CTreeEnumationItemValue.h"
#include "pages/CuratedPage.h"
#include "pages/ImgProcessingTable.h"
#include "tree/ORXFeatureTree.h"

using namespace ImgProcessing;

PaletteItem::PaletteItem(CuratedPage& page)
    : m_page(page)
{
    page.onOwnWrite(kPalette, [this](const QVariant& value) { return write(value); });
}

void PaletteItem::create(ORXPropertyTreeItem* root)
{
    if (ORXPropertyTreeItem* camera = m_page.cameraItem(kPalettesMode))
        m_page.observe(camera);
    else
        delete m_page.pageItem(kPalette, root);
}

bool PaletteItem::write(const QVariant& value)
{
    ORXPropertyTreeItem* item = m_page.cameraItem(kPalettesMode);
    if (!item || !m_page.tree()->setFeatureValue(featureTagName(FeatureTag::Enumeration),
                                                 QString::fromLatin1(kPalettesMode), value))
        return false;
    if (ORXPropertyTreeItem::isAlive(item)) {
        item->value()->setValue(value);
        item->endUpdateItem(m_page.cameraID());
    }
    return true;
}

void PaletteItem::update()
{
    const ORXPropertyTreeItem* camera = m_page.cameraItem(kPalettesMode);
    ORXPropertyTreeItem* own = camera ? m_page.pageItem(kPalette) : nullptr;
    const auto* from =
        own ? dynamic_cast<const CTreeEnumationItemValue*>(camera->value()) : nullptr;
    if (!from)
        return;
    own->value()->copy(from, false);
    own->setReadOnly(camera->readOnly());
    own->setVisible(camera->visible(), m_page.cameraID());
    own->endUpdateItem(m_page.cameraID());
}
