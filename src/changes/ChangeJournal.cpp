// SPDX-License-Identifier: Apache-2.0
#include "changes/ChangeJournal.h"

#include "tree/ItemText.h"

#include <QDateTime>

#include <utility>

ChangeJournal::ChangeJournal(const ItemOf& itemOf, QObject* parent)
    : QAbstractTableModel(parent)
    , m_itemOf(itemOf)
{
}

void ChangeJournal::append(const QVector<ValueChange>& changes)
{
    QVector<Line> fresh;
    fresh.reserve(changes.size());
    for (const ValueChange& change : changes) {
        const auto known =
            change.restless ? m_restless.constFind(change.name) : m_restless.constEnd();
        if (known == m_restless.constEnd()) {
            if (change.restless)
                m_restless.insert(change.name, m_dropped + qint64(m_lines.size()) + fresh.size());
            fresh.append({change});
            continue;
        }
        const auto place = std::size_t(*known - m_dropped);
        const bool isFresh = place >= m_lines.size();
        Line& line = isFresh ? fresh[int(place - m_lines.size())] : m_lines[place];
        line.change.now = change.now;
        line.change.when = change.when;
        ++line.count;
        if (!isFresh)
            emit dataChanged(index(rowOfLine(place), 0), index(rowOfLine(place), ColumnCount - 1));
    }
    if (fresh.isEmpty())
        return;
    beginInsertRows({}, 0, int(fresh.size()) - 1);
    for (Line& line : fresh)
        m_lines.push_back(std::move(line));
    endInsertRows();
    const int surplus = rowCount() - kMaxLines;
    if (surplus <= 0)
        return;
    beginRemoveRows({}, kMaxLines, rowCount() - 1);
    for (int i = 0; i < surplus; ++i) {
        // Only what is restless has a line that counts on.
        if (!m_restless.isEmpty()) {
            const auto line = m_restless.find(m_lines.front().change.name);
            if (line != m_restless.end() && *line == m_dropped)
                m_restless.erase(line);
        }
        m_lines.pop_front();
        ++m_dropped;
    }
    endRemoveRows();
}

void ChangeJournal::clear()
{
    beginResetModel();
    m_lines.clear();
    m_restless.clear();
    m_dropped = 0;
    endResetModel();
}

void ChangeJournal::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (!m_lines.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int ChangeJournal::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

int ChangeJournal::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString ChangeJournal::nameOf(const QString& feature) const
{
    const ORXPropertyTreeItem* item = m_itemOf(feature);
    const QString name = item ? ItemText::name(*item) : QString();
    return name.isEmpty() ? feature : name;
}

QString ChangeJournal::causeText(const Line& line) const
{
    switch (line.change.cause) {
    case ValueChange::Cause::Camera:
        return line.count > 1 ? tr("camera, %1 times").arg(line.count) : tr("camera");
    case ValueChange::Cause::Edited:
        return tr("edited");
    case ValueChange::Cause::Follows:
        return tr("after %1").arg(nameOf(line.change.causedBy));
    case ValueChange::Cause::Executed:
        return tr("executed");
    }
    return {};
}

QString ChangeJournal::text(const Line& line, int column) const
{
    const ORXPropertyTreeItem* item = m_itemOf(line.change.name);
    switch (column) {
    case Time:
        return QDateTime::fromMSecsSinceEpoch(line.change.when)
            .toString(QStringLiteral("HH:mm:ss.zzz"));
    case Feature:
        return nameOf(line.change.name);
    case Before:
        return item ? ItemText::value(*item, line.change.before) : line.change.before.toString();
    case Now:
        return item ? ItemText::value(*item, line.change.now) : line.change.now.toString();
    default:
        return causeText(line);
    }
}

QVariant ChangeJournal::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return text(at(index.row()), index.column());
}

QVariant ChangeJournal::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Time:
        return tr("Time");
    case Feature:
        return tr("Feature");
    case Before:
        return tr("Before");
    case Now:
        return tr("Now");
    default:
        return tr("Cause");
    }
}
