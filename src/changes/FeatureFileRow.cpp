// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileRow.h"

#include <QStringList>

bool FeatureFileRow::canBeApplied() const
{
    switch (state) {
    case State::Same:
    case State::Written:
    case State::UnknownFeature:
    case State::NotAValue:
        return false;
    default:
        return line > 0;
    }
}

QString FeatureFileRow::stateText() const
{
    const auto withCode = [this](const QString& text) {
        return error == 0 ? text
                          : tr("%1 (code 0x%2)")
                                .arg(text, QString::number(static_cast<quint32>(error), 16));
    };
    switch (state) {
    case State::NotReached:
        return tr("Not reached");
    case State::Same:
        return QString();
    case State::Different:
        return tr("Different");
    case State::UnknownFeature:
        return tr("Not on this camera");
    case State::NotAValue:
        return tr("No value of this feature");
    case State::Unreadable:
        return withCode(tr("Cannot be read"));
    case State::NotWritable:
        return tr("Cannot be written now");
    case State::SelectorRefused:
        return withCode(tr("The selector cannot be set"));
    case State::Written:
        return tr("Written");
    case State::Adjusted:
        return tr("The camera has changed it");
    case State::Refused:
        return withCode(tr("Refused"));
    }
    return QString();
}

QString FeatureFileRow::nameWithSelectors() const
{
    QStringList settings;
    for (const SelectorSetting& setting : selectors)
        settings.append(QStringLiteral("%1 = %2").arg(setting.selector, setting.value));
    return settings.isEmpty()
               ? name
               : QStringLiteral("%1 (%2)").arg(name, settings.join(QStringLiteral(", ")));
}
