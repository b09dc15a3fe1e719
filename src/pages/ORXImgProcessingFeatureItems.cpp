// SPDX-License-Identifier: Apache-2.0
// The items of ORXImgProcessingFeature that are its own: look-up table, matrix, palettes.
#include "model/CTreeCustomCCMItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "pages/ImgProcessingTable.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXRWCCMValue.h"
#include "pages/QLUTDrawWidget.h"
#include "tree/ORXFeatureTree.h"

#include <array>

using namespace ImgProcessing;

namespace {

constexpr std::array<const char*, 9> kLUTItems = {
    kLUTLineType,    kLUTGamma,        kLUTContrast,  kLUTLum,  kLUTLoadFromCamera,
    kLUTSetToCamera, kLUTLoadFromFile, kLUTSetToFile, kLUTClear};

} // namespace

// Look-up table -----------------------------------------------------------------------------------

// The table has made them; a camera without "LUTEnable" gets none.
void ORXImgProcessingFeature::createLUTItems(ORXPropertyTreeItem* root)
{
    if (cameraItem(kLUTEnable))
        return;
    for (const char* name : kLUTItems)
        delete pageItem(name, root);
}

void ORXImgProcessingFeature::connectLUTItems()
{
    onOwnWrite(kLUTLineType, [this](const QVariant& value) {
        m_pLut->SetDrawLineChanged(value.toInt());
        return true;
    });
    using Command = void (QLUTDrawWidget::*)();
    const QVector<QPair<const char*, Command>> commands = {
        {kLUTLoadFromCamera, &QLUTDrawWidget::LoadFromCamera},
        {kLUTSetToCamera, &QLUTDrawWidget::SetToCamera},
        {kLUTLoadFromFile, &QLUTDrawWidget::LoadFromFile},
        {kLUTSetToFile, &QLUTDrawWidget::SaveToFile},
        {kLUTClear, &QLUTDrawWidget::ClearDraw}};
    for (const auto& command : commands) {
        // Later: a file dialog must not run inside the editor's commit.
        onOwnWrite(command.first, [this, run = command.second](const QVariant&) {
            QMetaObject::invokeMethod(m_pLut, run, Qt::QueuedConnection);
            return true;
        });
    }
    connect(m_pLut, &QLUTDrawWidget::SigUpdateFeatureTree, this,
            &ORXImgProcessingFeature::scheduleRefresh);
}

void ORXImgProcessingFeature::updateLUTItems()
{
    const ORXPropertyTreeItem* enable = cameraItem(kLUTEnable);
    if (!enable)
        return;
    const bool on = enable->value()->value().toBool();
    m_pLut->setEnabled(on);
    // A running transfer is of the curve as it is.
    const bool readOnly = !on || m_pLut->isTransferring();
    for (const char* name : kLUTItems) {
        ORXPropertyTreeItem* item = pageItem(name);
        if (!item || item->readOnly() == readOnly)
            continue;
        item->setReadOnly(readOnly);
        item->notifyViewUpdate(cameraID(), -1, false);
    }
}

// Colour correction matrix ------------------------------------------------------------------------

// In the camera where it has the features, else in the file of the host's software where there is
// one; else not at all.
void ORXImgProcessingFeature::createMatrixItems(ORXPropertyTreeItem* root)
{
    ORXPropertyTreeItem* enable = pageItem(kCCMEnable, root);
    ORXPropertyTreeItem* matrix = pageItem(kCCM, root);
    auto* value = dynamic_cast<CTreeCustomCCMItemValue*>(matrix->value());
    const bool inCamera = cameraItem("ColorTransformationValueSelector") &&
                          cameraItem("ColorTransformationValue") &&
                          cameraItem("ColorTransformationEnable");
    if (!inCamera && !ORXRWCCMValue::exists(ORXRWCCMValue::cameraName())) {
        delete matrix;
        delete enable;
        return;
    }
    value->m_nState =
        inCamera ? CTreeCustomCCMItemValue::InCamera : CTreeCustomCCMItemValue::InSettingsFile;
    value->m_lCameraID = cameraID();
    value->m_pEnableItem = enable;
    matrix->setReadOnly(false);
    for (ORXPropertyTreeItem* item : {enable, matrix})
        item->setVisible(true, -1);
}

// Palettes ----------------------------------------------------------------------------------------

void ORXImgProcessingFeature::createPaletteItem(ORXPropertyTreeItem* root)
{
    ORXPropertyTreeItem* camera = cameraItem(kPalettesMode);
    if (!camera) {
        delete pageItem(kPalette, root);
        return;
    }
    observe(camera);
    onOwnWrite(kPalette, [this](const QVariant& value) {
        ORXFeatureTree* whole = tree();
        return whole && whole->setFeatureValue(featureTagName(FeatureTag::Enumeration),
                                               QString::fromLatin1(kPalettesMode), value);
    });
}

void ORXImgProcessingFeature::updatePalette()
{
    const ORXPropertyTreeItem* camera = cameraItem(kPalettesMode);
    ORXPropertyTreeItem* own = camera ? pageItem(kPalette) : nullptr;
    const auto* from =
        own ? dynamic_cast<const CTreeEnumationItemValue*>(camera->value()) : nullptr;
    if (!from)
        return;
    own->value()->copy(from, false);
    own->setReadOnly(camera->readOnly());
    own->setVisible(camera->visible(), cameraID());
    own->endUpdateItem(cameraID());
}
