// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureWriter.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"

#include <QDebug>
#include <QVariant>

#include <array>

namespace {

const QLatin1String kAcquisitionStart("AcquisitionStart");
const QLatin1String kDeviceReset("DeviceReset");

QString errorText(int error)
{
    return QStringLiteral("\r\n") + ORXInterface::IntCode2DisplayCode(error);
}

} // namespace

FeatureWriter::FeatureWriter(ORXFeatureTree* tree)
    : m_pTree(tree)
{
}

FeatureWriter::Handler FeatureWriter::handlerOf(FeatureTag tag)
{
    using W = FeatureWriter;
    // In the order of FeatureTag.
    static const std::array<Handler, kFeatureTagCount> kHandlers = {
        nullptr,               // Category
        &W::handleBoolean,     // Boolean
        &W::handleCommand,     // Command
        &W::handleInteger,     // Integer
        &W::handleInteger,     // IntReg
        &W::handleEnumeration, // Enumeration
        &W::handleFloat,       // Float
        &W::handleFloat,       // Converter
        &W::handleString,      // StringReg
        &W::handleString,      // String
        nullptr,               // Draw
        nullptr,               // Watermark
        nullptr,               // Event
        nullptr,               // CCM
        nullptr,               // PalettesMode
        nullptr,               // FlatFieldCorrection
        nullptr,               // Other
    };
    return kHandlers[static_cast<std::size_t>(tag)];
}

bool FeatureWriter::hasHandler(FeatureTag tag)
{
    return handlerOf(tag) != nullptr;
}

bool FeatureWriter::write(const QString& tag, const QString& name, const QVariant& value)
{
    const Handler handler = handlerOf(featureTag(tag));
    return handler && (this->*handler)(name, value);
}

bool FeatureWriter::handleInteger(const QString& name, const QVariant& value)
{
    return m_pTree->OnIntegerNodeValueChanged(name, value.toLongLong());
}

bool FeatureWriter::handleFloat(const QString& name, const QVariant& value)
{
    return m_pTree->OnFloatNodeValueChanged(name, static_cast<float>(value.toDouble()));
}

bool FeatureWriter::handleEnumeration(const QString& name, const QVariant& value)
{
    return m_pTree->OnEnumerationNodeValueChanged(name, value.toInt());
}

bool FeatureWriter::handleBoolean(const QString& name, const QVariant& value)
{
    return m_pTree->OnBooleanNodeValueChanged(name, value.toInt());
}

bool FeatureWriter::handleString(const QString& name, const QVariant& value)
{
    return m_pTree->OnStringRegNodeValueChanged(name, value.toString());
}

bool FeatureWriter::handleCommand(const QString& name, const QVariant&)
{
    return m_pTree->OnCommandNodeBtnClicked(name);
}

bool FeatureWriter::writeInteger(const QString& name, qint64 value)
{
    if (name.isEmpty())
        return false;
    m_strLastWritten = name;
    int error = -1;
    const bool written = OBDeviceControl::SetIntegerNodeValue(name, value, &error);
    return finish(written, name, QString::number(value), error);
}

bool FeatureWriter::writeFloat(const QString& name, float value)
{
    if (name.isEmpty())
        return false;
    m_strLastWritten = name;
    int error = -1;
    const bool written = OBDeviceControl::SetFloatNodeValue(name, value, &error);
    return finish(written, name, QString::number(static_cast<double>(value)), error);
}

bool FeatureWriter::writeEnumeration(const QString& name, int value)
{
    m_strLastWritten = name;
    if (name.isEmpty())
        return false;
    int error = -1;
    const auto entry = static_cast<unsigned int>(value);
    const bool written = OBDeviceControl::SetEnumNodeValue(name, entry, &error);
    return finish(written, name, QString::number(entry), error);
}

bool FeatureWriter::writeBoolean(const QString& name, int value)
{
    if (name.isEmpty())
        return false;
    m_strLastWritten = name;
    int error = -1;
    const bool written = OBDeviceControl::SetBoolNodeValue(name, value != 0, &error);
    return finish(written, name, QString::number(value), error);
}

bool FeatureWriter::writeString(const QString& name, const QString& value)
{
    if (name.isEmpty())
        return false;
    m_strLastWritten = name;
    int error = -1;
    const bool written = OBDeviceControl::SetStringNodeValue(name, value, &error);
    QString shown = value;
    if (!written) {
        shown.replace(QLatin1Char('>'), QLatin1String("&gt;"));
        shown.replace(QLatin1Char('<'), QLatin1String("&lt;"));
    }
    return finish(written, name, shown, error);
}

bool FeatureWriter::finish(bool written, const QString& name, const QString& shownValue, int error)
{
    if (written) {
        qInfo().noquote() << QStringLiteral("NodeName:%1, NodeValue:%2, [CameraID:%3]")
                                 .arg(name, shownValue, QString::number(m_pTree->cameraID()));
        m_pTree->startInvalidationTimer();
        return true;
    }
    m_pTree->showWriteFailure(name, shownValue, error);
    return false;
}

bool FeatureWriter::executeCommand(const QString& name)
{
    if (m_bSkipAcquisitionStart && name == kAcquisitionStart) {
        m_bSkipAcquisitionStart = false;
        return false;
    }
    m_strLastWritten = name;
    if (name.isEmpty())
        return false;
    int error = -1;
    if (!OBDeviceControl::SetCommandNodeValue(name, &error)) {
        const QString text = ORXFeatureTree::tr("Node '%1': Failed to execute Node. %2")
                                 .arg(name, QString::number(error));
        qCritical().noquote() << text + errorText(error);
    }
    qInfo().noquote() << QStringLiteral("NodeName:%1, [CameraID:%2]")
                             .arg(name, QString::number(m_pTree->cameraID()));
    if (name == kDeviceReset)
        return afterDeviceReset();
    if (name == QLatin1String("TempControlLoad") || name == QLatin1String("UserSetLoad")) {
        if (!m_pTree->GetOstSettingData())
            qCritical("%s", "GetOstSettingData failed");
        emit m_pTree->SigFeatureChangeOsd();
    }
    m_pTree->startInvalidationTimer();
    return true;
}

bool FeatureWriter::afterDeviceReset()
{
    m_pTree->stopTimersForReset();
    m_pTree->ClearTreeViewInfo();
    m_pTree->setIsCanEdit(false);
    m_pTree->showTranslated([] {
        return ORXFeatureTree::Message{
            ORXFeatureTree::tr("The camera is about to reboot. Reconnect the\ncamera later."),
            QString(), ZELCustomMessageBox::Hint_Information};
    });
    const IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    if (!finder || !finder->hasFeatureTree(m_pTree->cameraID()))
        return false;
    m_pTree->ShowLoadingDlg(false, QString());
    return true;
}
