// SPDX-License-Identifier: Apache-2.0
#include "ccm/ORXCCMValueWidget.h"

#include "styledctl/ZELCustomLabel.h"
#include "tree/QPropertyLineEdit.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVariant>

namespace {

constexpr int kColumns = 3;
constexpr int kDecimals = 4;
constexpr int kMargin = 4;
constexpr int kNameFontPx = 11;
constexpr int kEditWidth = 72; // "-1.0000" with the frame of the line edit

// The entry of "ColorTransformationValueSelector" that the cell stands for.
QString entryName(int index)
{
    return QStringLiteral("Gain%1%2").arg(index / kColumns).arg(index % kColumns);
}

} // namespace

ORXCCMValueWidget::ORXCCMValueWidget(QWidget* parent, int index)
    : QWidget(parent)
    , m_nIndex(index)
    , m_pName(new ZELCustomLabel(entryName(index), this, ZELCustomLabel::Style_Muted))
    , m_pEdit(new QPropertyLineEdit(this, ZELCustomLineEdit::Style_Cell))
{
    m_pEdit->setProperty(kIndexProperty, index);
    m_pEdit->setObjectName(QStringLiteral("CCMValue%1").arg(index));
    m_pEdit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    m_pName->cSetFontSize(kNameFontPx);
    layout->addWidget(m_pName);
    layout->addWidget(m_pEdit, 1);
    setFocusProxy(m_pEdit);
    retranslate();
}

void ORXCCMValueWidget::showValue(double value)
{
    m_pEdit->SetText(QString::number(value, 'f', kDecimals), QPropertyLineEdit::Float);
}

void ORXCCMValueWidget::setRange(float minimum, float maximum)
{
    m_bRanged = true;
    m_pEdit->SetRange(maximum, minimum);
    retranslate();
}

void ORXCCMValueWidget::setReadOnly(bool readOnly)
{
    m_pEdit->setReadOnly(readOnly);
    retranslate();
}

void ORXCCMValueWidget::retranslate()
{
    const QString place =
        tr("Row %1, column %2").arg(m_nIndex / kColumns + 1).arg(m_nIndex % kColumns + 1) +
        QStringLiteral(" (%1)").arg(entryName(m_nIndex));
    m_pEdit->setAccessibleName(place);
    QString more;
    if (m_pEdit->isReadOnly()) {
        more = tr("Set by the host program");
    } else if (m_bRanged) {
        m_pEdit->resetToolTip(); // the range
        more = m_pEdit->toolTip();
    }
    m_pEdit->setToolTip(more.isEmpty() ? place : place + QLatin1Char('\n') + more);
}

void ORXCCMValueWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_pName->setVisible(width() >= m_pName->sizeHint().width() + kEditWidth + 3 * kMargin);
}

void ORXCCMValueWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // After the line edit, which puts its own tool tip back.
    if (event->type() == QEvent::LanguageChange)
        QMetaObject::invokeMethod(this, &ORXCCMValueWidget::retranslate, Qt::QueuedConnection);
}
