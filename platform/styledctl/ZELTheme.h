// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QObject>

// Tells when the theme changed. One instance per process, living on the GUI thread; look-ups go
// through ZELCustom.
class STYLEDCTL_EXPORT ZELTheme : public QObject
{
    Q_OBJECT
public:
    static ZELTheme* instance();

signals:
    // Emitted on the GUI thread after ZELCustom::addXmlPath() loaded a file.
    void cSigThemeChanged();

private:
    friend class ZELCustom;
    ZELTheme() = default;
};
