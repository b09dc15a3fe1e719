// SPDX-License-Identifier: Apache-2.0
// The items of ORXImgProcessingFeature that are its own: look-up table, matrix, palettes.
#include "ccm/ColorMatrix.h"
#include "ccm/ORXRWCCMValue.h"
#include "lut/QLUTDrawWidget.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/ImgProcessingTable.h"
#include "pages/ORXImgProcessingFeature.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace ImgProcessing;

namespace {

constexpr std::array<const char*, 9> kLUTItems = {
    kLUTLineType,    kLUTGamma,        kLUTContrast,  kLUTLum,  kLUTLoadFromCamera,
    kLUTSetToCamera, kLUTLoadFromFile, kLUTSetToFile, kLUTClear};

constexpr const char* kMatrixFeatures[] = {"ColorTransformationValueSelector",
                                           "ColorTransformationValue", "ColorTransformationEnable"};
constexpr char kCCMSwitch[] = "CCMEnable"; // not every camera has it

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
    for (const CommandItem& item : kCommandItems) {
        // Later: a file dialog must not run inside the editor's commit.
        onOwnWrite(item.name, [this, each = &item](const QVariant&) {
            QMetaObject::invokeMethod(m_pLut, each->run, Qt::QueuedConnection);
            return true;
        });
    }
    for (const NumberItem& item : kNumberItems) {
        onOwnWrite(item.name, [this, set = item.set](const QVariant& value) {
            set(*m_pLut, value.toFloat());
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
    for (const char* name : kLUTItems) {
        ORXPropertyTreeItem* item = pageItem(name);
        if (!item || item->readOnly() == !on)
            continue;
        item->setReadOnly(!on);
        item->notifyViewUpdate(cameraID(), -1, false);
    }
}

// Selecting another table, or another point, in the middle of a transfer would mix the tables.
void ORXImgProcessingFeature::lockTable(bool lock)
{
    static const QStringList names{QStringLiteral("LUTSelector"), QStringLiteral("LUTIndex"),
                                   QStringLiteral("LUTValue")};
    if (lock) {
        m_tableLock.lock(tree(), names);
    } else if (m_tableLock.isLocked()) {
        m_tableLock.unlock();
        for (const QString& name : names) {
            if (ORXFeatureTree* whole = tree())
                whole->rereadInvalidated(name);
        }
    }
    scheduleRefresh();
}

// Colour correction matrix ------------------------------------------------------------------------

// In the camera where it has the features, else in the file of the host's software where there is
// one; else not at all. Whether there is a file is known when the camera's name was read.
void ORXImgProcessingFeature::createMatrixItems(ORXPropertyTreeItem* root)
{
    ORXPropertyTreeItem* enable = pageItem(kCCMEnable, root);
    ORXPropertyTreeItem* matrix = pageItem(kCCM, root);
    auto* value = dynamic_cast<CTreeCustomCCMItemValue*>(matrix->value());
    const bool inCamera =
        std::all_of(std::begin(kMatrixFeatures), std::end(kMatrixFeatures),
                    [this](const char* name) { return cameraItem(name) != nullptr; });
    value->m_nState =
        inCamera ? CTreeCustomCCMItemValue::InCamera : CTreeCustomCCMItemValue::InSettingsFile;
    value->m_lCameraID = cameraID();
    value->m_pEnableItem = enable;
    matrix->setReadOnly(false);
    onOwnWrite(kCCMEnable, [this](const QVariant& on) {
        if (m_matrix)
            m_matrix->switchTo(on.toBool());
        return true;
    });
    if (!inCamera)
        return;
    for (ORXPropertyTreeItem* item : {enable, matrix})
        item->setVisible(true, -1);
    for (const char* name : kMatrixFeatures)
        observe(cameraItem(name));
    observe(cameraItem(kCCMSwitch));
}

// What reads and writes the matrix of the present camera, for the item that shows it.
void ORXImgProcessingFeature::attachMatrix(ORXPropertyTreeItem* root)
{
    ORXPropertyTreeItem* item = pageItem(kCCM, root);
    auto* value = item ? dynamic_cast<CTreeCustomCCMItemValue*>(item->value()) : nullptr;
    if (!value)
        return;
    m_matrix = std::make_unique<ColorMatrix>(cameraID(),
                                             value->m_nState == CTreeCustomCCMItemValue::InCamera,
                                             value->m_pEnableItem, nullptr);
    value->m_pMatrix = m_matrix.get();
}

// Whether a change of the camera's feature is one of the matrix.
bool ORXImgProcessingFeature::concernsMatrix(const QString& nodeName)
{
    return nodeName == QLatin1String(kCCMSwitch) ||
           std::any_of(std::begin(kMatrixFeatures), std::end(kMatrixFeatures),
                       [&](const char* name) { return nodeName == QLatin1String(name); });
}

// Shows the matrix of the file or takes it out for good, once the camera's name was read.
void ORXImgProcessingFeature::settleMatrixOfFile(ORXPropertyTreeItem* matrix)
{
    if (matrix->visible() || !tree()->HadUpdatedOnce())
        return;
    const auto readText = [this](const char* name) {
        const ORXPropertyTreeItem* item = cameraItem(name);
        return item ? item->value()->displayValue() : QString();
    };
    const bool exists = ORXRWCCMValue::exists(ORXRWCCMValue::cameraName(
        readText(ORXRWCCMValue::kSerialNumber), readText(ORXRWCCMValue::kDeviceId)));
    ORXPropertyTreeItem* group = matrix->parent(pageType());
    if (!exists)
        m_matrix.reset();
    for (ORXPropertyTreeItem* item : {pageItem(kCCMEnable), matrix}) {
        if (exists) {
            item->setVisible(true, cameraID());
        } else {
            treeView()->treeModel()->removeItems(group, item);
            delete item;
        }
    }
    if (!exists)
        group->setVisible(false, cameraID());
}

void ORXImgProcessingFeature::updateMatrix()
{
    ORXPropertyTreeItem* matrix = pageItem(kCCM);
    const auto* value =
        matrix ? dynamic_cast<const CTreeCustomCCMItemValue*>(matrix->value()) : nullptr;
    if (!value)
        return;
    if (value->m_nState == CTreeCustomCCMItemValue::InSettingsFile) {
        settleMatrixOfFile(matrix);
        return;
    }
    const bool shown =
        std::all_of(std::begin(kMatrixFeatures), std::end(kMatrixFeatures),
                    [this](const char* name) { return cameraItem(name)->visible(); });
    for (const char* name : {kCCMEnable, kCCM})
        pageItem(name)->setVisible(shown, cameraID());
    if (std::exchange(m_bMatrixChanged, false))
        m_matrix->read();
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
        ORXPropertyTreeItem* item = cameraItem(kPalettesMode);
        if (!item || !tree()->setFeatureValue(featureTagName(FeatureTag::Enumeration),
                                              QString::fromLatin1(kPalettesMode), value))
            return false;
        if (ORXPropertyTreeItem::isAlive(item)) {
            item->value()->setValue(value);
            item->endUpdateItem(cameraID());
        }
        return true;
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
