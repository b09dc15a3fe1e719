// SPDX-License-Identifier: Apache-2.0
#include "main/InterfaceLanguage.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"

#include <QCoreApplication>

bool InterfaceLanguage::apply()
{
    if (ORXInterface::language() != QLatin1String("CH")) {
        remove();
        return true;
    }
    if (m_bInstalled)
        return true;
    const QString file = OBDeviceControl::GetDllPath() +
                         QStringLiteral("/./FeatureTreeResource/FeatureTree_zh_CN.qm");
    if (!m_translator.load(file))
        return false;
    m_bInstalled = QCoreApplication::installTranslator(&m_translator);
    return true;
}

void InterfaceLanguage::remove()
{
    if (m_bInstalled)
        QCoreApplication::removeTranslator(&m_translator);
    m_bInstalled = false;
}
