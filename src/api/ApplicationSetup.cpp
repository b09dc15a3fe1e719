// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"

#include "api/ResourcePlace.h"
#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustom.h"

#include <QApplication>
#include <QResource>
#include <QStyleFactory>

namespace ApplicationSetup {

namespace {

bool s_InitApp = false;

const char* const kResourcePacks[] = {
    "/FeatureTreeResource/Client_Default.rcc",
    "/FeatureTreeResource/StyledCtl_Default.rcc",
    "/FeatureTreeResource/ToolBarBtn_Default.rcc",
};

} // namespace

void runOnce()
{
    if (s_InitApp)
        return;
    s_InitApp = true;
    const QString directory = ResourcePlace::directory();
    OBDeviceControl::SetDllPath(directory);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    // A missing pack only leaves its pictures absent.
    for (const char* pack : kResourcePacks)
        QResource::registerResource(directory + QString::fromUtf8(pack));
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath() +
                                     QStringLiteral("/plugins"));
    ZELCustom::addXmlPath(QStringLiteral(":/ORX/QSS/CustomStyleSheet_ORX.xml"));
}

} // namespace ApplicationSetup
