// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QVector>

// A selector and where it stands for something, as ExactValue has it.
struct SelectorSetting
{
    QString selector;
    QString value;

    friend bool operator==(const SelectorSetting& a, const SelectorSetting& b)
    {
        return a.selector == b.selector && a.value == b.value;
    }
};
