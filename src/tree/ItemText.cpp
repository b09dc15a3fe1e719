// SPDX-License-Identifier: Apache-2.0
#include "tree/ItemText.h"

#include "basetools/ORXInterface.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/ItemValueFactory.h"
#include "model/ORXPropertyTreeItem.h"

#include <QStringList>

#include <memory>

namespace {

bool isChinese()
{
    return ORXInterface::language() == QLatin1String("CH");
}

void collectLines(const ORXPropertyTreeItem& item, QStringList& lines)
{
    if (!item.visible() || !item.groupVisible() || !item.value())
        return;
    if (item.itemType() == ORXPropertyTreeItem::FeatureItem ||
        item.itemType() == ORXPropertyTreeItem::FavoriteItem) {
        const QString unit = item.value()->unit();
        QString line =
            QStringLiteral("%1 = %2").arg(item.value()->nodeName(0), ItemText::shownValue(item));
        lines.append(unit.isEmpty() ? line : line + QLatin1Char(' ') + unit);
    }
    const QVector<ORXPropertyTreeItem*> children = item.children();
    for (const ORXPropertyTreeItem* child : children)
        collectLines(*child, lines);
}

} // namespace

QString ItemText::name(const ORXPropertyTreeItem& item)
{
    if (!item.value())
        return {};
    return isChinese() ? item.value()->translateName() : item.value()->displayName();
}

QString ItemText::value(const ORXPropertyTreeItem& item, const QVariant& value)
{
    if (!item.value() || !value.isValid())
        return {};
    // The current range says nothing about an older value.
    if (const auto* integer = dynamic_cast<const CTreeIntergerItemValue*>(item.value())) {
        if (integer->type() == CTreeIntergerItemValue::PureNumber)
            return value.toString();
    }
    const std::unique_ptr<CTreeItemValue> shown = makeItemValue(item.tag());
    shown->copy(item.value(), true);
    shown->setValue(value);
    const QString text = shown->displayValue();
    const auto* entries = dynamic_cast<const CTreeEnumationItemValue*>(shown.get());
    if (!entries)
        return text;
    if (text.isEmpty())
        return value.toString();
    const QString translated = entries->displayListCN().value(entries->displayList().indexOf(text));
    return isChinese() && !translated.isEmpty() ? translated : text;
}

QString ItemText::shownValue(const ORXPropertyTreeItem& item)
{
    return item.value() && item.wasRead() ? value(item, item.value()->value()) : QString();
}

QString ItemText::lines(const ORXPropertyTreeItem& item)
{
    QStringList lines;
    collectLines(item, lines);
    return lines.join(QLatin1Char('\n'));
}
