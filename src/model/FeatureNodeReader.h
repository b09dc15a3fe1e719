// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNode.h"

#include <QSet>

class QDomElement;

// Takes the records of nodes out of the DOM of one description. A text that occurs again, as names
// and keywords do, is kept once, which spares most of the memory and of the time.
class FeatureNodeReader
{
public:
    FeatureNodePtr read(const QDomElement& element);

private:
    QString kept(const QString& text);
    FeatureEnumEntry readEntry(const QDomElement& element);
    QStringList invalidatorsBefore(const QDomElement& element);
    void readChild(const QDomElement& child, FeatureNode& node);

    QSet<QString> m_texts;
};
