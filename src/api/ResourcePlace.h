// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

// Where pictures, styles and translations are: the directory that holds "FeatureTreeResource".
// Needs a QCoreApplication; any thread.
namespace ResourcePlace {

// The directory of the host's executable if the folder lies there, as hosts put it; else that of
// this library, since an interpreter that loads it has nothing beside itself; else the share folder
// that was installed with the library. The executable's where there is none.
QString directory();

} // namespace ResourcePlace
