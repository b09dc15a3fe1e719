// SPDX-License-Identifier: Apache-2.0
// Compiled once when OBFT_PRECOMPILED_HEADERS is on; see OBFTPrecompiled.cmake. No file includes
// it.
#pragma once

#include <QEvent>
#include <QHash>
#include <QLabel>
#include <QMutex>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QTreeView>
#include <QVariant>
#include <QVector>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>
