// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>

// Pictures of files and resources, each loaded once while the application lives. GUI thread.
namespace ZELPictures {

// An empty icon for a picture that is not there (yet).
QIcon icon(const QString& path);

} // namespace ZELPictures
