// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileCheck.h"

#include "changes/ExactValue.h"
#include "changes/FeatureFileOrder.h"

QVector<FeatureFile::Fault> FeatureFileCheck::repeatedLines(const FeatureFile& file,
                                                            const FeatureNodeMap& nodes)
{
    const FeatureFileOrder::Selectors selectors(nodes);
    QVector<FeatureFile::Fault> faults;
    QHash<QString, QString> stands;      // selectors, as the lines so far have set them
    QHash<QStringList, int> firstNumber; // by name and settings
    for (const FeatureFile::Line& line : file.lines) {
        if (selectors.isSelector(line.name)) {
            const FeatureNodePtr node = nodes.node(line.name);
            stands.insert(line.name, ExactValue::canonical(*node, line.value));
            continue;
        }
        QStringList place = {line.name};
        for (const QString& selector : selectors.of(line.name))
            place.append(stands.value(selector));
        const auto first = firstNumber.constFind(place);
        if (first == firstNumber.constEnd())
            firstNumber.insert(place, line.number);
        else
            faults.append({line.number, FeatureFile::FaultKind::Repeated, line.name, *first});
    }
    return faults;
}
