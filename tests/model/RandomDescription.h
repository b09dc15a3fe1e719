// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/DescriptionBuilder.h"
#include "support/Literals.h"

#include <QMap>
#include <QSet>
#include <QVector>

#include <iterator>
#include <random>

// A small description with references at random, and what follows from them when each is followed
// as it stands: slow and plain.
class RandomDescription
{
public:
    explicit RandomDescription(unsigned seed)
    {
        std::mt19937 random(seed);
        const auto upTo = [&](unsigned count) { return static_cast<int>(random() % count); };
        for (int i = 0; i < kNodes; ++i)
            m_nodes.insert(nameOf(i), {});
        for (int i = 0; i < kNodes; ++i) {
            for (int count = upTo(3); count > 0; --count)
                m_nodes[nameOf(i)].append({QLatin1String(kTags[upTo(std::size(kTags))]),
                                           nameOf(upTo(kNodes + 1))}); // one name is unknown
        }
    }

    QStringList features() const
    {
        QStringList names;
        for (int i = 0; i < kNodes; i += 2)
            names.append(nameOf(i));
        return names;
    }
    QString elements() const
    {
        QString all;
        for (int i = 0; i < kNodes; ++i) {
            QString inner;
            for (const Reference& each : m_nodes.value(nameOf(i)))
                inner += DescriptionBuilder::child(each.tag, each.text);
            const QString tag = i % 2 == 0 ? "Integer"_s : "MaskedIntReg"_s;
            all += DescriptionBuilder::node(tag, nameOf(i), inner);
        }
        return all;
    }
    // Without what the items of a tree add.
    QStringList staleAfter(const QString& name) const
    {
        QSet<QString> stale{name};
        const QSet<QString> own = reached(name).variables;
        for (const QString& feature : features()) {
            const Reached all = reached(feature);
            if (all.invalidators.contains(name) || all.variables.intersects(own))
                stale.insert(feature);
        }
        return stale.values();
    }

private:
    static constexpr int kNodes = 24;
    static constexpr const char* kTags[] = {"pValue", "pVariable", "pInvalidator", "pMin",
                                            "pMax",   "pIsLocked", "pFeature"};
    struct Reference
    {
        QString tag;
        QString text;
    };
    struct Reached
    {
        QSet<QString> invalidators;
        QSet<QString> variables;
    };

    static QString nameOf(int index) { return "N%1"_s.arg(index); }

    Reached reached(const QString& feature) const
    {
        Reached all;
        for (const Reference& each : m_nodes.value(feature)) {
            QSet<QString> visited;
            if (each.tag == QLatin1String("pVariable"))
                addVariable(each.text, all);
            else if (each.tag != QLatin1String("pInvalidator") && leads(each))
                follow(each.text, visited, all);
        }
        return all;
    }
    void follow(const QString& name, QSet<QString>& visited, Reached& all) const
    {
        if (visited.contains(name))
            return;
        visited.insert(name);
        for (const Reference& each : m_nodes.value(name)) {
            if (each.tag == QLatin1String("pVariable"))
                addVariable(each.text, all);
            if (each.tag == QLatin1String("pValue") || each.tag == QLatin1String("pInvalidator"))
                all.invalidators.insert(each.text);
            if (leads(each))
                follow(each.text, visited, all);
        }
    }
    static bool leads(const Reference& reference)
    {
        return reference.tag != QLatin1String("pInvalidator") &&
               reference.tag != QLatin1String("pFeature");
    }
    static void addVariable(const QString& name, Reached& all)
    {
        all.variables.insert(name);
        all.invalidators.insert(name);
    }

    QMap<QString, QVector<Reference>> m_nodes;
};
