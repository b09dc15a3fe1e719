// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXPropertyComboBox.h"

#include <QWheelEvent>

#include <new>

namespace {

constexpr int kFontSize = 13;

} // namespace

ORXPropertyComboBox::ORXPropertyComboBox(QWidget* parent, StyleSelector style)
    : ZELCustomComboBox(parent, style)
{
    if (!connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                 &ORXPropertyComboBox::OnCurrentIndexChanged))
        throw std::bad_alloc();
    cSetFontSize(kFontSize);
}

void ORXPropertyComboBox::SetNodeName(const QString& name)
{
    m_strNodeName = name;
}

void ORXPropertyComboBox::SetNoSigChangedFlage(bool silent)
{
    m_bNoSigChanged = silent;
}

void ORXPropertyComboBox::AddItem(const QString& text, int value)
{
    addItem(QIcon(), text, value);
}

void ORXPropertyComboBox::SetCurrentSel(const QVariant& value)
{
    for (int i = 0; i < count(); ++i) {
        if (itemData(i).toInt() == value.toInt()) {
            setCurrentIndex(i);
            return;
        }
    }
}

void ORXPropertyComboBox::OnCurrentIndexChanged(int index)
{
    if (!m_strNodeName.isEmpty() && !m_bNoSigChanged)
        emit SigPropertyChanged(m_strNodeName, itemData(index).toInt(), this);
}

void ORXPropertyComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}
