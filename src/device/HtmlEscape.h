// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

// The text with markup characters as entities and line breaks as "<br>".
QString htmlEscaped(const QString& text);
