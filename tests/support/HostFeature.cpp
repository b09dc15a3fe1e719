// SPDX-License-Identifier: Apache-2.0
#include "support/HostFeature.h"

#include <algorithm>
#include <cstring>

HostFeature HostFeature::withMode(int accessMode) const
{
    HostFeature feature = *this;
    feature.mode = accessMode;
    return feature;
}

int HostFeature::readInto(int askedType, void* record) const
{
    switch (askedType) {
    case OB_FT_TYPE_INTEGER: {
        auto* value = static_cast<_ZDCC_INTVALUE_EX_T*>(record);
        value->value = integer;
        value->minimum = minimum;
        value->maximum = maximum;
        value->increment = increment;
        return 0;
    }
    case OB_FT_TYPE_BOOLEAN:
        *static_cast<unsigned char*>(record) = integer != 0 ? 1 : 0;
        return 0;
    case OB_FT_TYPE_FLOAT: {
        auto* value = static_cast<_ZDCC_FLOATVALUE_T*>(record);
        value->value = number;
        value->minimum = numberMinimum;
        value->maximum = numberMaximum;
        return 0;
    }
    case OB_FT_TYPE_ENUMERATION:
        static_cast<_ZDCC_ENUMVALUE_T*>(record)->value = static_cast<uint32_t>(integer);
        return 0;
    case OB_FT_TYPE_STRING: {
        auto* value = static_cast<_ZDCC_STRINGVALUE_T*>(record);
        const auto bytes = std::min(sizeof(value->value), static_cast<std::size_t>(text.size()));
        std::memcpy(value->value, text.constData(), bytes);
        value->maximumLength = maximumLength;
        return 0;
    }
    default:
        return -2;
    }
}

void HostFeature::write(const QByteArray& value)
{
    if (type == OB_FT_TYPE_FLOAT)
        number = value.toFloat();
    else if (type == OB_FT_TYPE_STRING)
        text = value;
    else
        integer = value.toLongLong();
}
