// SPDX-License-Identifier: Apache-2.0
// What ORXCCMWidget writes: cells, the switch of the matrix; and what it tells the user.
#include "device/OBDeviceControl.h"
#include "device/ReentrancyScope.h"
#include "pages/ORXCCMUpdateThread.h"
#include "pages/ORXCCMValueWidget.h"
#include "pages/ORXCCMWidget.h"
#include "pages/ORXCCMWidgetPrivateData.h"
#include "pages/PageSupport.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/ORXFeatureTree.h"
#include "tree/QPropertyLineEdit.h"

#include <QDebug>
#include <QPointer>
#include <QVariant>

namespace {

const QLatin1String kTransformation("ColorTransformationEnable");
const QLatin1String kSelector("ColorTransformationValueSelector");
const QLatin1String kValue("ColorTransformationValue");
const QLatin1String kMatrix("CCMEnable");

// What was told of a settings file last; empty once it was read without a fault.
QString s_lastFileReport;

// As for every other feature that cannot be written.
void reportWrite(qint64 cameraId, const QString& feature, const QString& value, int error)
{
    if (ORXFeatureTree* tree = PageSupport::treeOf(cameraId))
        tree->showWriteFailure(feature, value, error);
}

} // namespace

// Editing a cell ----------------------------------------------------------------------------------

void ORXCCMWidget::onEditedCCMValue()
{
    auto* edit = qobject_cast<QPropertyLineEdit*>(sender());
    if (!edit)
        return;
    const int index = edit->property(ORXCCMValueWidget::kIndexProperty).toInt();
    ORXCCMValueWidget* cell = d->m_cells[static_cast<std::size_t>(index)];
    QVariant value;
    if (!edit->SaveProperty(value)) {
        edit->Rollback();
        if (d->m_bReadAgain)
            updateData();
        return;
    }
    if (d->m_bDeviceMode) {
        const QPointer<ORXCCMWidget> self(this);
        const bool written = writeCell(index, value.toFloat());
        if (!self)
            return;
        if (written)
            d->m_values[static_cast<std::size_t>(index)] = static_cast<double>(value.toFloat());
    }
    cell->showValue(d->m_values[static_cast<std::size_t>(index)]);
    rereadInTree(kSelector);
    if (d->m_bReadAgain)
        updateData();
}

bool ORXCCMWidget::writeCell(int index, float value)
{
    // The host may release the library from inside its callback.
    const ReentrancyScope scope;
    const qint64 cameraId = d->m_lCameraID;
    int error = 0;
    QString feature = kSelector;
    QString text = QString::number(index);
    bool written =
        OBDeviceControl::SetEnumNodeValue(feature, static_cast<unsigned int>(index), &error);
    if (written) {
        feature = kValue;
        text = QString::number(static_cast<double>(value));
        written = OBDeviceControl::SetFloatNodeValue(feature, value, &error);
    }
    if (!written)
        reportWrite(cameraId, feature, text, error);
    return written;
}

// Switching the matrix ----------------------------------------------------------------------------

void ORXCCMWidget::enableCCMValueChanged(bool on)
{
    // The thread would switch the transformation back afterwards: it has to end first.
    if (d->m_bReading) {
        d->m_wantedEnable = on;
        d->m_pThread->requestStop();
        return;
    }
    const QPointer<ORXCCMWidget> self(this);
    setCellsEnabled(on);
    const bool switched = d->m_bDeviceMode ? enableInCamera(on) : enableInFile(on);
    if (!self)
        return;
    rereadInTree(kTransformation);
    rereadInTree(kMatrix);
    if (!switched) {
        setCellsEnabled(!on);
        setEnableItem(!on);
    }
    // The coefficients of a file are read only when it is on; what a refusal has left is read, too.
    if (self && (!switched || !d->m_bDeviceMode))
        updateData();
}

bool ORXCCMWidget::enableInFile(bool on)
{
    const QString known = d->m_pThread->result().settingsName;
    const QString name = known.isEmpty() ? ORXRWCCMValue::cameraName() : known;
    if (d->m_settings.createSetting(name) && d->m_settings.writeEnable(on)) {
        d->m_pThread->setEnabledFlag(on);
        return true;
    }
    reportFile(d->m_settings.fileName(), d->m_settings.fault(), false);
    return false;
}

// The matrix of the user and the standard transformation exclude each other.
bool ORXCCMWidget::enableInCamera(bool on)
{
    const ReentrancyScope scope;
    const qint64 cameraId = d->m_lCameraID;
    int error = 0;
    QString feature = kTransformation;
    bool value = !on;
    bool written = OBDeviceControl::SetBoolNodeValue(feature, value, &error);
    // Where the camera has no switch of its own, the transformation decides alone.
    const ORXFeatureTree* tree = PageSupport::treeOf(cameraId);
    if (written && tree && tree->propertyItemByName(kMatrix)) {
        feature = kMatrix;
        value = on;
        written = OBDeviceControl::SetBoolNodeValue(feature, value, &error);
    }
    if (!written)
        reportWrite(cameraId, feature, QString::number(int(value)), error);
    return written;
}

// When the file is read, which happens whenever the cell comes into sight, once for each fault.
void ORXCCMWidget::reportFile(const QString& file, const QString& fault, bool once)
{
    const QString report = file + QStringLiteral(": ") + fault;
    if (once && s_lastFileReport == report)
        return;
    s_lastFileReport = report;
    qCritical("Color correction settings %s", qUtf8Printable(report));
    if (ORXFeatureTree* tree = PageSupport::treeOf(d->m_lCameraID))
        tree->ShowMessage(tree, tr("The color correction settings cannot be used."),
                          tr("The file is left as it is:") + QStringLiteral("\r\n") + file,
                          QString(), ZELCustomMessageBox::Hint_Warning);
}

void ORXCCMWidget::forgetFileReport()
{
    s_lastFileReport.clear();
}
