// SPDX-License-Identifier: Apache-2.0
#include "tree/QPropertyLineEdit.h"

#include "basetools/ORXInterface.h"
#include "device/ORXListenTools.h"

#include <QEvent>
#include <QFocusEvent>
#include <QRegularExpression>
#include <QVariant>

#include <cmath>

namespace {

// A float stays this far inside its range, so that rounding on the way to the camera does not
// leave it.
constexpr float kFloatMargin = 1e-6F;
constexpr int kDefaultStringLength = 512;

} // namespace

QPropertyLineEdit::QPropertyLineEdit(QWidget* parent, StyleSelector style)
    : ZELCustomLineEdit(parent, style)
{
    ORXListenTools::instance()->addListener(this, ORXListenTools::PriorityNormal);
}

QPropertyLineEdit::~QPropertyLineEdit()
{
    ORXListenTools::instance()->removeListener(this);
}

void QPropertyLineEdit::SetText(const QString& text, int kind)
{
    m_nKind = kind;
    m_strLastText = text;
    // Setting an equal text would lose the cursor and the selection.
    if (this->text() != text)
        showText(text);
    setModified(false);
}

// The start of a long text says more than its end, where the cursor comes to stand.
void QPropertyLineEdit::showText(const QString& text)
{
    setText(text);
    setCursorPosition(0);
}

void QPropertyLineEdit::SetRollbackText(const QString& text, int kind)
{
    m_nKind = kind;
    m_strLastText = text;
}

void QPropertyLineEdit::SetRange(float maximum, float minimum)
{
    m_nKind = Float;
    m_fMaxValue = maximum;
    m_fMinValue = minimum;
    resetToolTip();
}

void QPropertyLineEdit::SetRange(qint64 maximum, qint64 minimum)
{
    m_nKind = Decimal;
    m_nMaxValue = maximum;
    m_nMinValue = minimum;
    resetToolTip();
}

void QPropertyLineEdit::SetStringLength(int length)
{
    m_nKind = Text;
    m_nStringLength = length > 0 ? length : kDefaultStringLength;
    resetToolTip();
}

void QPropertyLineEdit::Rollback()
{
    showText(m_strLastText);
    setModified(false);
}

bool QPropertyLineEdit::hasPendingEdit() const
{
    return isModified();
}

bool QPropertyLineEdit::SaveProperty(QVariant& value)
{
    using Save = bool (QPropertyLineEdit::*)(QVariant&);
    // In the order of ValueKind; addresses of network cards are only shown.
    static const Save kSave[] = {
        &QPropertyLineEdit::saveText,    &QPropertyLineEdit::saveFloat,
        &QPropertyLineEdit::saveDecimal, &QPropertyLineEdit::saveHexadecimal,
        &QPropertyLineEdit::saveAddress, &QPropertyLineEdit::saveSubnetMask,
    };
    constexpr int kKinds = sizeof(kSave) / sizeof(kSave[0]);
    if (text() == m_strLastText) {
        value = m_strLastText;
        setModified(false);
        return false;
    }
    if (m_nKind < 0 || m_nKind >= kKinds)
        return false;
    const Save save = kSave[m_nKind];
    if (!(this->*save)(value))
        return false;
    m_strLastText = text();
    setModified(false);
    return true;
}

void QPropertyLineEdit::restoreIfEmpty()
{
    if (text().isEmpty())
        showText(m_strLastText);
}

bool QPropertyLineEdit::saveText(QVariant& value)
{
    const QString cut = ORXInterface::cutString(text(), m_nStringLength - 1);
    if (cut != text())
        showText(cut);
    value = cut;
    return true;
}

bool QPropertyLineEdit::saveFloat(QVariant& value)
{
    restoreIfEmpty();
    bool ok = false;
    // In the C locale and without group separators: "1,500" is no number rather than 1500.
    float number = text().trimmed().toFloat(&ok);
    if (!ok || !std::isfinite(number))
        return false;
    if (number > m_fMaxValue - kFloatMargin)
        number = m_fMaxValue - kFloatMargin;
    if (number < m_fMinValue + kFloatMargin)
        number = m_fMinValue + kFloatMargin;
    value = number;
    return true;
}

bool QPropertyLineEdit::saveDecimal(QVariant& value)
{
    restoreIfEmpty();
    // A text that is no number counts as 0 and is then brought into the range; one of digits alone
    // is a number that no integer holds, and is not guessed at.
    const QString entered = text().trimmed();
    bool ok = false;
    qint64 number = entered.toLongLong(&ok);
    static const QRegularExpression kDigits(QStringLiteral("^[-+]?[0-9]+$"));
    if (!ok && kDigits.match(entered).hasMatch())
        return false;
    number = qMin(number, m_nMaxValue);
    number = qMax(number, m_nMinValue);
    showText(QString::number(number));
    value = number;
    return true;
}

bool QPropertyLineEdit::saveHexadecimal(QVariant& value)
{
    const QString entered = text().trimmed();
    bool ok = false;
    qint64 number = entered.toLongLong(&ok, 10);
    if (!ok)
        number = static_cast<qint64>(entered.toULongLong(&ok, 16));
    if (!ok)
        return false;
    value = number;
    return true;
}

bool QPropertyLineEdit::saveAddress(QVariant& value)
{
    restoreIfEmpty();
    return saveIfAddress(ORXInterface::CheckIpAble(text()), value);
}

bool QPropertyLineEdit::saveSubnetMask(QVariant& value)
{
    restoreIfEmpty();
    return saveIfAddress(ORXInterface::CheckSubnetMask(text()), value);
}

bool QPropertyLineEdit::saveIfAddress(bool valid, QVariant& value)
{
    if (!valid) {
        Rollback();
        return false;
    }
    value = static_cast<qint64>(ORXInterface::strIP2IntIP(text()));
    return true;
}

void QPropertyLineEdit::resetToolTip()
{
    switch (m_nKind) {
    case Float:
        setToolTip(tr("Range: %1 to %2")
                       .arg(QString::number(static_cast<double>(m_fMinValue), 'f'),
                            QString::number(static_cast<double>(m_fMaxValue), 'f')));
        break;
    case Decimal:
        setToolTip(tr("Range: %1 to %2").arg(m_nMinValue).arg(m_nMaxValue));
        break;
    case Text:
        setToolTip(m_strLastText);
        break;
    default:
        break;
    }
}

void QPropertyLineEdit::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        resetToolTip();
    ZELCustomLineEdit::changeEvent(event);
}

void QPropertyLineEdit::focusOutEvent(QFocusEvent* event)
{
    // The user may come back to where he was from a menu or another window.
    const bool leaves =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (leaves)
        setCursorPosition(0);
    ZELCustomLineEdit::focusOutEvent(event);
}

int QPropertyLineEdit::notify(int code, void*)
{
    if (code == ListenCode::kCommitPendingEdit && hasFocus())
        emit editingFinished();
    return 0;
}
