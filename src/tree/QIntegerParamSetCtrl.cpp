// SPDX-License-Identifier: Apache-2.0
#include "tree/QIntegerParamSetCtrl.h"

#include "styledctl/ZELCustomSlider.h"
#include "styledctl/ZELCustomSpinBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QHBoxLayout>
#include <QVariant>

#include <new>

namespace {

constexpr int kEntryWidth = 60;
constexpr int kSpacing = 10;

} // namespace

QIntegerParamSetCtrl::QIntegerParamSetCtrl(QWidget* parent)
    : QWidget(parent)
{
    if (!InitWidget()) {
        Release();
        throw std::bad_alloc();
    }
}

QIntegerParamSetCtrl::~QIntegerParamSetCtrl()
{
    Release();
}

bool QIntegerParamSetCtrl::InitWidget()
{
    m_pSpinBox = new ZELCustomSpinBox;
    m_pSpinBox->setFixedWidth(kEntryWidth);
    m_pSlider = new ZELCustomSlider(Qt::Horizontal, this);
    m_pLineEdit = new QPropertyLineEdit(this, ZELCustomLineEdit::Style_Panel);
    m_pLineEdit->setFixedWidth(kEntryWidth);
    m_pLineEdit->setText(QStringLiteral("0"));
    m_pLayout = new QHBoxLayout(this);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(kSpacing);
    m_pLayout->addWidget(m_pSlider);
    m_pLayout->addWidget(m_pLineEdit);

    using Self = QIntegerParamSetCtrl;
    return connect(m_pSpinBox, QOverload<int>::of(&QSpinBox::valueChanged), m_pSlider,
                   &QSlider::setValue) &&
           connect(m_pSpinBox, &QSpinBox::editingFinished, this, &Self::OnSliderReleased) &&
           connect(m_pSpinBox, &ZELCustomSpinBox::SigSaveParam, this, &Self::OnSliderReleased) &&
           connect(m_pSlider, &QSlider::valueChanged, this, &Self::OnValueChanged) &&
           connect(m_pSlider, &QSlider::sliderReleased, this, &Self::OnSliderReleased) &&
           connect(m_pSlider, &ZELCustomSlider::SigSaveParam, this, &Self::OnSliderReleased) &&
           connect(m_pLineEdit, &QLineEdit::editingFinished, this, &Self::OnIntegerPropertyChanged);
}

void QIntegerParamSetCtrl::Release()
{
    delete m_pLayout;
    delete m_pLineEdit;
    delete m_pSlider;
    delete m_pSpinBox;
    m_pLayout = nullptr;
    m_pLineEdit = nullptr;
    m_pSlider = nullptr;
    m_pSpinBox = nullptr;
}

void QIntegerParamSetCtrl::SetRange(int minimum, int maximum)
{
    if (!m_pSpinBox || !m_pSlider || !m_pLineEdit)
        return;
    m_nMinValue = minimum;
    m_nMaxValue = maximum;
    m_pSlider->setRange(minimum, maximum);
    m_pSpinBox->setRange(minimum, maximum);
    const QString range = tr("Range:%1 to %2").arg(minimum).arg(maximum);
    m_pSlider->setToolTip(range);
    m_pSpinBox->setToolTip(range);
    m_pLineEdit->SetRange(static_cast<qint64>(maximum), static_cast<qint64>(minimum));
}

void QIntegerParamSetCtrl::SetValue(int value)
{
    if (!m_pSlider || !m_pLineEdit)
        return;
    m_pSlider->setValue(value);
    m_pLineEdit->SetText(QString::number(value), QPropertyLineEdit::Decimal);
    m_nValue = value;
}

int QIntegerParamSetCtrl::GetValue() const
{
    return m_pSlider ? m_pSlider->value() : 0;
}

void QIntegerParamSetCtrl::SetInc(int increment)
{
    m_nInc = increment;
    if (!m_pSpinBox || !m_pSlider)
        return;
    m_pSlider->setTickInterval(increment);
    m_pSlider->setSingleStep(increment);
    m_pSlider->setPageStep(increment);
    m_pSpinBox->setSingleStep(increment);
}

void QIntegerParamSetCtrl::OnValueChanged(int value)
{
    m_pLineEdit->SetText(QString::number(value), QPropertyLineEdit::Decimal);
}

void QIntegerParamSetCtrl::OnSliderReleased()
{
    if (!m_pSlider || m_pSlider->value() == m_nValue)
        return;
    qint64 value = m_pSlider->value();
    if (m_nInc > 1)
        value -= (value - m_nMinValue) % m_nInc;
    m_nValue = static_cast<int>(value);
    m_pSlider->setValue(m_nValue);
    emit SigValueChanged(m_nValue);
}

void QIntegerParamSetCtrl::OnIntegerPropertyChanged()
{
    QVariant value;
    if (!m_pLineEdit->SaveProperty(value))
        return;
    m_pSlider->setValue(value.toInt());
    OnSliderReleased();
}
