// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileTable.h"

#include <algorithm>

FeatureFileTable::FeatureFileTable(QObject* parent)
    : QAbstractTableModel(parent)
{
}

void FeatureFileTable::setRows(const QVector<FeatureFileRow>& rows, bool choose)
{
    beginResetModel();
    m_faults.clear();
    m_rows = rows;
    m_shown.clear();
    for (int i = 0; i < m_rows.size(); ++i) {
        FeatureFileRow& row = m_rows[i];
        if (choose)
            row.chosen = row.state == FeatureFileRow::State::Different;
        if (row.state != FeatureFileRow::State::Same)
            m_shown.append(i);
    }
    endResetModel();
    emit SigChosenChanged();
}

void FeatureFileTable::setFaults(const QVector<FeatureFile::Fault>& faults)
{
    beginResetModel();
    m_rows.clear();
    m_shown.clear();
    m_faults = faults;
    endResetModel();
    emit SigChosenChanged();
}

int FeatureFileTable::chosenCount() const
{
    return int(std::count_if(m_rows.begin(), m_rows.end(), [](const FeatureFileRow& row) {
        return row.chosen && row.canBeApplied();
    }));
}

void FeatureFileTable::chooseAll(bool chosen)
{
    if (m_shown.isEmpty())
        return;
    for (FeatureFileRow& row : m_rows)
        row.chosen = chosen && row.canBeApplied();
    emit dataChanged(index(0, Feature), index(rowCount() - 1, Feature), {Qt::CheckStateRole});
    emit SigChosenChanged();
}

void FeatureFileTable::setEditable(bool editable)
{
    m_bEditable = editable;
}

void FeatureFileTable::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int FeatureFileTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size() + m_faults.size());
}

int FeatureFileTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const FeatureFileRow& FeatureFileTable::shown(const QModelIndex& index) const
{
    return m_rows.at(m_shown.at(index.row()));
}

Qt::ItemFlags FeatureFileTable::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && m_faults.isEmpty() && index.column() == Feature && m_bEditable &&
        shown(index).canBeApplied())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QString FeatureFileTable::text(const FeatureFileRow& row, int column) const
{
    switch (column) {
    case Feature:
        return row.nameWithSelectors();
    case InCamera:
        return row.inCamera;
    case InFile:
        return row.inFile;
    default:
        return row.stateText();
    }
}

QVariant FeatureFileTable::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    if (!m_faults.isEmpty()) {
        const FeatureFile::Fault& fault = m_faults.at(index.row());
        return isText && index.column() == Feature ? QVariant(fault.text()) : QVariant();
    }
    const FeatureFileRow& row = shown(index);
    if (isText)
        return text(row, index.column());
    if (role == Qt::CheckStateRole && index.column() == Feature && row.canBeApplied())
        return row.chosen ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool FeatureFileTable::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
        return false;
    m_rows[m_shown.at(index.row())].chosen = value.toInt() == Qt::Checked;
    emit dataChanged(index, index, {role});
    emit SigChosenChanged();
    return true;
}

QVariant FeatureFileTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Feature:
        return tr("Feature");
    case InCamera:
        return tr("Camera");
    case InFile:
        return tr("File");
    default:
        return tr("Result");
    }
}
