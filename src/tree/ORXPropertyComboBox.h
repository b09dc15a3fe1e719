// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomComboBox.h"

#include <QString>
#include <QVariant>

// Combo box that reports the name of a node and the integer of the chosen entry. GUI thread.
class ORXPropertyComboBox : public ZELCustomComboBox
{
    Q_OBJECT
public:
    // Throws std::bad_alloc when its own connection cannot be made.
    ORXPropertyComboBox(QWidget* parent, StyleSelector style);

    // Without a name nothing is reported.
    void SetNodeName(const QString& name);
    // True keeps changes of the selection silent.
    void SetNoSigChangedFlage(bool silent);
    void AddItem(const QString& text, int value);
    // Selects the first entry of the value; leaves the selection when there is none.
    void SetCurrentSel(const QVariant& value);

signals:
    void SigPropertyChanged(const QString& nodeName, int value, ORXPropertyComboBox* self);

protected:
    void wheelEvent(QWheelEvent* event) override; // never changes the selection

private slots:
    void OnCurrentIndexChanged(int index);

private:
    QString m_strNodeName;
    bool m_bNoSigChanged = false;
};
