// SPDX-License-Identifier: Apache-2.0
#pragma once

class CTreeItemValue;
class QString;
class QVariant;

// How edited values compare with stored ones and are stored, by the tag of their item. Any thread.
namespace ItemValueRules {

// Whether an edit would change nothing. False for what is not of the tag's value class.
bool isSame(const QString& tagName, const CTreeItemValue* value, const QVariant& edited);
// `nodeName` matters only to values of two features.
void store(const QString& tagName, CTreeItemValue* value, const QString& nodeName,
           const QVariant& edited);

} // namespace ItemValueRules
