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

// The packs of pictures beside the host, registered until the process ends: Qt does not free what
// is left to it. A missing pack only leaves its pictures absent.
class ResourcePacks
{
public:
    explicit ResourcePacks(const QString& directory)
    {
        for (const char* name : {"Client_Default", "StyledCtl_Default", "ToolBarBtn_Default"}) {
            m_paths.append(QStringLiteral("%1/FeatureTreeResource/%2.rcc")
                               .arg(directory, QString::fromLatin1(name)));
            QResource::registerResource(m_paths.last());
        }
    }
    ~ResourcePacks()
    {
        for (const QString& path : qAsConst(m_paths))
            QResource::unregisterResource(path);
    }
    Q_DISABLE_COPY(ResourcePacks)

private:
    QStringList m_paths;
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
    static const ResourcePacks packs(directory);
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath() +
                                     QStringLiteral("/plugins"));
    ZELCustom::addXmlPath(QStringLiteral(":/ORX/QSS/CustomStyleSheet_ORX.xml"));
}

} // namespace ApplicationSetup
