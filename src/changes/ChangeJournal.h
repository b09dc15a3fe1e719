// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/ValueChange.h"

#include <QAbstractTableModel>

#include <deque>
#include <functional>

class ORXPropertyTreeItem;

// What changed since the window opened, the latest first: the last kMaxLines changes. A feature
// that is polled keeps one line, which counts. Texts are made when they are shown. GUI thread.
class ChangeJournal : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Time, Feature, Before, Now, Cause, ColumnCount };
    static constexpr int kMaxLines = 1000;

    // The item of a feature; null when there is none any more.
    using ItemOf = std::function<const ORXPropertyTreeItem*(const QString& name)>;
    ChangeJournal(const ItemOf& itemOf, QObject* parent);

    void append(const QVector<ValueChange>& changes);
    void clear();
    const ValueChange& change(int row) const { return at(row).change; }
    // The texts have changed their language.
    void retranslate();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Line
    {
        ValueChange change; // `before` is that of the first one counted
        int count = 1;
    };
    const Line& at(int row) const { return m_lines[m_lines.size() - 1 - std::size_t(row)]; }
    int rowOfLine(std::size_t line) const { return int(m_lines.size() - 1 - line); }
    QString nameOf(const QString& feature) const;
    QString causeText(const Line& line) const;
    QString text(const Line& line, int column) const;

    const ItemOf m_itemOf;
    std::deque<Line> m_lines;          // the oldest first
    QHash<QString, qint64> m_restless; // restless feature -> number of its line
    qint64 m_dropped = 0;              // number of the first line
};
