// SPDX-License-Identifier: Apache-2.0
#include "tree/ReadOnlyReason.h"

#include "basetools/ORXInterface.h"
#include "device/HtmlEscape.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ItemText.h"
#include "tree/editors/EditorKind.h"
#include "tree/editors/EditorKinds.h"

#include <QUrl>

namespace {

constexpr int kMostDeciders = 8;
constexpr int kLongestName = 80;
constexpr int kLongestValue = 40;

QString cut(const QString& text, int length)
{
    const QString line = text.simplified();
    return line.size() > length ? line.left(length - 1) + QChar(0x2026) : line;
}

bool isKnown(const ORXPropertyTreeItem& item)
{
    return item.wasRead() && item.value()->lastRead() == CTreeItemValue::LastRead::Done;
}

bool isZero(const ORXPropertyTreeItem& item)
{
    return item.value()->value().toDouble() == 0.0;
}

QString separator()
{
    return ORXInterface::language() == QLatin1String("CH") ? QStringLiteral("、")
                                                           : QStringLiteral(", ");
}

QString nameOf(const ORXPropertyTreeItem& item)
{
    return cut(ItemText::name(item), kLongestName);
}

QString valueOf(const ORXPropertyTreeItem& item)
{
    const QString value = cut(ItemText::shownValue(item), kLongestValue);
    return value.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(value);
}

} // namespace

ReadOnlyReason::ReadOnlyReason(const ItemOf& itemOf)
    : m_itemOf(itemOf)
    , m_deciders(FeatureNodeMap())
{
}

bool ReadOnlyReason::isTold(const ORXPropertyTreeItem& item)
{
    const EditorKind* kind = EditorKinds::of(item.tag());
    return kind && kind->followsReadOnly() && item.value() && item.wasRead() && item.readOnly() &&
           item.value()->readOnlyCause() != ReadOnlyCause::None;
}

FeatureDeciders::Row ReadOnlyReason::rowOf(const QString& name) const
{
    using Row = FeatureDeciders::Row;
    const ORXPropertyTreeItem* item = m_itemOf(name);
    // Without a tag it is listed, but not described.
    if (!item || !item->value() || !EditorKinds::of(item->tag()))
        return Row::None;
    return item->visible() ? Row::Shown : Row::Hidden;
}

QVector<ReadOnlyReason::Named> ReadOnlyReason::named(const ORXPropertyTreeItem& item) const
{
    QVector<Named> result;
    if (!isTold(item))
        return result;
    const QString name = item.value()->nodeName(0);
    const ReadOnlyCause cause = item.value()->readOnlyCause();
    if (cause == ReadOnlyCause::AccessMode && !m_deciders.canEverBeWritten(name))
        return result;
    const auto deciders =
        m_deciders.of(name, cause, [this](const QString& each) { return rowOf(each); });
    for (const FeatureDeciders::Decider& each : deciders) {
        const ORXPropertyTreeItem* decider = m_itemOf(each.name);
        bool showsValue = isKnown(*decider);
        const bool allows = showsValue && each.isValueItself &&
                            isZero(*decider) == (cause != ReadOnlyCause::NotAvailable);
        // The camera only said that it refuses: who allows is not the reason.
        if (allows && cause == ReadOnlyCause::AccessMode)
            continue;
        // What the pass was answered is newer than this value.
        showsValue = showsValue && !allows;
        result.append({decider, showsValue});
    }
    return result;
}

QString ReadOnlyReason::sentence(const ORXPropertyTreeItem& item, Write write) const
{
    if (!isTold(item))
        return {};
    const QVector<Named> deciders = named(item);
    if (deciders.isEmpty())
        return tr("Read-only on this camera.");
    QStringList parts;
    for (const Named& each : deciders.mid(0, kMostDeciders))
        parts.append(write(each));
    if (deciders.size() > kMostDeciders)
        parts.append(QString(QChar(0x2026)));
    const QString list = parts.join(separator());
    return item.value()->readOnlyCause() == ReadOnlyCause::NotAvailable
               ? tr("Not available because of %1").arg(list)
               : tr("Locked by %1").arg(list);
}

QString ReadOnlyReason::text(const ORXPropertyTreeItem& item) const
{
    return sentence(item, [](const Named& decider) {
        return nameOf(*decider.item) + (decider.showsValue ? valueOf(*decider.item) : QString());
    });
}

QString ReadOnlyReason::html(const ORXPropertyTreeItem& item) const
{
    return sentence(item, [](const Named& decider) {
        QString name = htmlEscaped(nameOf(*decider.item));
        if (decider.item->visible())
            name = QStringLiteral("<a href=\"%1\">%2</a>")
                       .arg(QString::fromLatin1(
                                QUrl::toPercentEncoding(decider.item->value()->nodeName(0))),
                            name);
        return name + (decider.showsValue ? htmlEscaped(valueOf(*decider.item)) : QString());
    });
}

QStringList ReadOnlyReason::decidersOf(const ORXPropertyTreeItem& item) const
{
    QStringList names;
    const QVector<Named> deciders = named(item);
    for (const Named& each : deciders)
        names.append(each.item->value()->nodeName(0));
    return names;
}

QString ReadOnlyReason::featureOf(const QString& href)
{
    return QUrl::fromPercentEncoding(href.toLatin1());
}
