// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"

#include <QCoreApplication>

namespace {

struct KnownCode
{
    quint32 code;
    const char* meaning;
};

const KnownCode kKnownCodes[] = {
    {0x80000000, QT_TRANSLATE_NOOP("ORXInterface", "the host registered no callback")},
    {0x80000106, QT_TRANSLATE_NOOP("ORXInterface", "the feature is not readable")},
};

} // namespace

QString ORXInterface::IntCode2DisplayCode(int code)
{
    const quint32 bits = quint32(code);
    QString number =
        QStringLiteral("0x") + QStringLiteral("%1").arg(bits, 8, 16, QLatin1Char('0')).toUpper();
    for (const KnownCode& known : kKnownCodes) {
        if (known.code == bits) {
            return QStringLiteral("%1 (%2)").arg(
                number, QCoreApplication::translate("ORXInterface", known.meaning));
        }
    }
    return number;
}
