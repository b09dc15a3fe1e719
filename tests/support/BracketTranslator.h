// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/Literals.h"

#include <QTranslator>

// Makes "[context|text]" of every text, so that a text can be seen to have gone through it.
class BracketTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return "[%1|%2]"_s.arg(QLatin1String(context), QLatin1String(text));
    }
    bool isEmpty() const override { return false; }
};
