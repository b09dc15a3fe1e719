// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

#include <QMap>
#include <QStringList>

// Value of an "Enumeration" feature: the current entry's number and the usable entries.
class CTreeEnumationItemValue : public CTreeItemValue
{
public:
    QString displayValue() const override; // empty when no entry has the current number
    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString createCurrentStauts(bool readOnly) const override;
    void copy(const CTreeItemValue* from, bool all) override;

    qint64 number() const;
    void setNumber(qint64 value);

    // Display texts in the description's order, each once, and their translations by position.
    QStringList displayList() const;
    QStringList displayListCN() const;
    // Entry number to display text, and entry name to display text.
    QMap<qint64, QString> valueMap() const;
    QMap<QString, QString> nameMap() const;
    void replaceEnumList(const QStringList& displayList, const QStringList& displayListCN,
                         const QMap<qint64, QString>& valueMap,
                         const QMap<QString, QString>& nameMap);

private:
    qint64 m_nValue = -1;
    QMap<qint64, QString> m_valueMap;
    QMap<QString, QString> m_nameMap;
    QStringList m_displayList;
    QStringList m_displayListCN;
};
