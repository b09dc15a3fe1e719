// SPDX-License-Identifier: Apache-2.0
#include "pages/MatrixItems.h"

#include "ccm/ColorMatrix.h"
#include "ccm/ORXRWCCMValue.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/CuratedPage.h"
#include "pages/ImgProcessingTable.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <algorithm>
#include <utility>

using namespace ImgProcessing;

namespace {

constexpr const char* kMatrixFeatures[] = {"ColorTransformationValueSelector",
                                           "ColorTransformationValue", "ColorTransformationEnable"};
constexpr char kCCMSwitch[] = "CCMEnable"; // not every camera has it

} // namespace

MatrixItems::MatrixItems(CuratedPage& page)
    : m_page(page)
{
    page.onOwnWrite(kCCMEnable, [this](const QVariant& on) {
        if (m_matrix)
            m_matrix->switchTo(on.toBool());
        return true;
    });
}

MatrixItems::~MatrixItems() = default;

void MatrixItems::create(ORXPropertyTreeItem* root)
{
    ORXPropertyTreeItem* enable = m_page.pageItem(kCCMEnable, root);
    ORXPropertyTreeItem* matrix = m_page.pageItem(kCCM, root);
    auto* value = dynamic_cast<CTreeCustomCCMItemValue*>(matrix->value());
    const bool inCamera =
        std::all_of(std::begin(kMatrixFeatures), std::end(kMatrixFeatures),
                    [this](const char* name) { return m_page.cameraItem(name) != nullptr; });
    value->m_nState =
        inCamera ? CTreeCustomCCMItemValue::InCamera : CTreeCustomCCMItemValue::InSettingsFile;
    value->m_lCameraID = m_page.cameraID();
    value->m_pEnableItem = enable;
    matrix->setReadOnly(false);
    if (!inCamera)
        return;
    for (ORXPropertyTreeItem* item : {enable, matrix})
        item->setVisible(true, -1);
    for (const char* name : kMatrixFeatures)
        m_page.observe(m_page.cameraItem(name));
    m_page.observe(m_page.cameraItem(kCCMSwitch));
}

void MatrixItems::attach(ORXPropertyTreeItem* root)
{
    ORXPropertyTreeItem* item = m_page.pageItem(kCCM, root);
    auto* value = item ? dynamic_cast<CTreeCustomCCMItemValue*>(item->value()) : nullptr;
    if (!value)
        return;
    m_matrix = std::make_unique<ColorMatrix>(m_page.cameraID(),
                                             value->m_nState == CTreeCustomCCMItemValue::InCamera,
                                             value->m_pEnableItem, nullptr);
    value->m_pMatrix = m_matrix.get();
}

void MatrixItems::detach()
{
    m_matrix.reset();
}

void MatrixItems::noteChange(const QString& nodeName)
{
    m_bChanged |= nodeName == QLatin1String(kCCMSwitch) ||
                  std::any_of(std::begin(kMatrixFeatures), std::end(kMatrixFeatures),
                              [&](const char* name) { return nodeName == QLatin1String(name); });
}

// Shows the matrix of the file or takes it out for good, once the camera's name was read.
void MatrixItems::settleMatrixOfFile(ORXPropertyTreeItem* matrix)
{
    if (matrix->visible() || !m_page.tree()->HadUpdatedOnce())
        return;
    const auto readText = [this](const char* name) {
        const ORXPropertyTreeItem* item = m_page.cameraItem(name);
        return item ? item->value()->displayValue() : QString();
    };
    const bool exists = ORXRWCCMValue::exists(ORXRWCCMValue::cameraName(
        readText(ORXRWCCMValue::kSerialNumber), readText(ORXRWCCMValue::kDeviceId)));
    ORXPropertyTreeItem* group = matrix->parent(m_page.pageType());
    if (!exists)
        m_matrix.reset();
    for (ORXPropertyTreeItem* item : {m_page.pageItem(kCCMEnable), matrix}) {
        if (exists) {
            item->setVisible(true, m_page.cameraID());
        } else {
            m_page.treeView()->treeModel()->removeItems(group, item);
            delete item;
        }
    }
    if (!exists)
        group->setVisible(false, m_page.cameraID());
}

void MatrixItems::update()
{
    ORXPropertyTreeItem* matrix = m_page.pageItem(kCCM);
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
                    [this](const char* name) { return m_page.cameraItem(name)->visible(); });
    for (const char* name : {kCCMEnable, kCCM})
        m_page.pageItem(name)->setVisible(shown, m_page.cameraID());
    if (std::exchange(m_bChanged, false))
        m_matrix->read();
}
