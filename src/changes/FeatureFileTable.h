// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/FeatureFile.h"
#include "changes/FeatureFileRow.h"

#include <QAbstractTableModel>

// What a FeatureFileDialog lists: values of a file beside the camera's, those that are the same
// left out, or what is wrong with the file. Rows that can be applied have a box. GUI thread.
class FeatureFileTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Feature, InCamera, InFile, Result, ColumnCount };

    explicit FeatureFileTable(QObject* parent);

    // What was compared is chosen, as far as it can be applied.
    void setRows(const QVector<FeatureFileRow>& rows, bool choose);
    void setFaults(const QVector<FeatureFile::Fault>& faults);
    // All, as they were set, with the choice of the user.
    const QVector<FeatureFileRow>& rows() const { return m_rows; }
    int chosenCount() const;
    void chooseAll(bool chosen);
    // While false no box can be changed.
    void setEditable(bool editable);
    void retranslate();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void SigChosenChanged();

private:
    const FeatureFileRow& shown(const QModelIndex& index) const;
    QString text(const FeatureFileRow& row, int column) const;

    QVector<FeatureFileRow> m_rows;
    QVector<int> m_shown; // places in m_rows
    QVector<FeatureFile::Fault> m_faults;
    bool m_bEditable = true;
};
