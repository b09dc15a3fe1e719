// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomSpinBox64.h"

#include "styledctl/private/ZELSpinEdit.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

using Limits = std::numeric_limits<qlonglong>;

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isSign(QChar c)
{
    return c == QLatin1Char('-') || c == QLatin1Char('+');
}

// Decimal digits with an optional sign, and nothing else.
bool isNumber(const QString& trimmed)
{
    const int first = !trimmed.isEmpty() && isSign(trimmed.at(0)) ? 1 : 0;
    return trimmed.size() > first && std::all_of(trimmed.cbegin() + first, trimmed.cend(), isDigit);
}

// None for what is no number, or one beyond 64 bits.
std::optional<qlonglong> parse(const QString& text)
{
    const QString trimmed = text.trimmed();
    bool fits = false;
    const qlonglong value = trimmed.toLongLong(&fits);
    if (!fits || !isNumber(trimmed))
        return std::nullopt;
    return value;
}

qlonglong addSaturated(qlonglong value, qlonglong step, int count)
{
    qlonglong distance = 0;
    qlonglong result = 0;
    if (__builtin_mul_overflow(step, qlonglong(count), &distance) ||
        __builtin_add_overflow(value, distance, &result))
        return count > 0 ? Limits::max() : Limits::min();
    return result;
}

} // namespace

ZELCustomSpinBox64::ZELCustomSpinBox64(QWidget* parent, StyleSelector style)
    : QAbstractSpinBox(parent)
    , ZELCustomLook(this, style)
{
    ZELSpinEdit::prepare(this, lineEdit());
    showValue();
}

void ZELCustomSpinBox64::setRange(qlonglong minimum, qlonglong maximum)
{
    m_minimum = minimum;
    m_maximum = qMax(minimum, maximum);
    updateGeometry();
    // Typed text is judged by the new range when it is committed, not dropped here.
    if (m_value < m_minimum || m_value > m_maximum)
        setValue(m_value);
    else
        update();
}

void ZELCustomSpinBox64::setSingleStep(qlonglong step)
{
    m_step = qMax<qlonglong>(1, step);
}

void ZELCustomSpinBox64::setBehindText(qlonglong minimum, qlonglong maximum, qlonglong value)
{
    m_minimum = minimum;
    m_maximum = qMax(minimum, maximum);
    m_value = qBound(m_minimum, value, m_maximum);
    updateGeometry();
    update();
}

void ZELCustomSpinBox64::setValue(qlonglong value)
{
    const qlonglong bounded = qBound(m_minimum, value, m_maximum);
    const bool changed = bounded != m_value;
    m_value = bounded;
    showValue();
    if (changed)
        emit valueChanged(m_value);
}

void ZELCustomSpinBox64::showValue()
{
    const QString text = QString::number(m_value);
    QLineEdit* edit = lineEdit();
    // Setting an equal text would still move the cursor.
    if (edit->text() != text) {
        // The user is about to type over it: what he types must not be added to the new text.
        const bool typesOver = edit->hasFocus() && edit->selectedText() == edit->text();
        edit->setText(text);
        if (typesOver)
            edit->selectAll();
        else
            edit->setCursorPosition(0);
    }
    edit->setModified(false);
    update();
}

bool ZELCustomSpinBox64::hasPendingEdit() const
{
    return lineEdit()->isModified() || lineEdit()->text() != QString::number(m_value);
}

qlonglong ZELCustomSpinBox64::typedValue() const
{
    return qBound(m_minimum, parse(lineEdit()->text()).value_or(m_value), m_maximum);
}

void ZELCustomSpinBox64::commitText()
{
    if (hasPendingEdit())
        setValue(typedValue());
}

void ZELCustomSpinBox64::stepBy(int steps)
{
    setValue(addSaturated(typedValue(), m_step, steps));
    lineEdit()->selectAll();
}

QAbstractSpinBox::StepEnabled ZELCustomSpinBox64::stepEnabled() const
{
    StepEnabled result = StepNone;
    if (isReadOnly())
        return result;
    const qlonglong shown = typedValue();
    if (shown < m_maximum)
        result |= StepUpEnabled;
    if (shown > m_minimum)
        result |= StepDownEnabled;
    return result;
}

QValidator::State ZELCustomSpinBox64::validate(QString& input, int& pos) const
{
    Q_UNUSED(pos)
    const QString trimmed = input.trimmed();
    if (trimmed.isEmpty() || (trimmed.size() == 1 && isSign(trimmed.at(0))))
        return QValidator::Intermediate;
    if (!isNumber(trimmed))
        return QValidator::Invalid;
    // One that is too long is taken back in the end, not while it is typed.
    return parse(trimmed) ? QValidator::Acceptable : QValidator::Intermediate;
}

void ZELCustomSpinBox64::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commitText();
        break;
    case Qt::Key_Escape:
        if (hasPendingEdit()) {
            showValue();
            lineEdit()->selectAll();
            return;
        }
        break;
    default:
        break;
    }
    QAbstractSpinBox::keyPressEvent(event);
}

void ZELCustomSpinBox64::focusOutEvent(QFocusEvent* event)
{
    // The context menu of the text takes the focus only for a moment.
    if (event->reason() != Qt::PopupFocusReason)
        commitText();
    // The start of a long number says how large it is.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        lineEdit()->setCursorPosition(0);
    QAbstractSpinBox::focusOutEvent(event);
}

void ZELCustomSpinBox64::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

QSize ZELCustomSpinBox64::hintFor(const QString& longest) const
{
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance(longest) + 2, fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

QSize ZELCustomSpinBox64::sizeHint() const
{
    const QString low = QString::number(m_minimum);
    const QString high = QString::number(m_maximum);
    return hintFor(low.size() > high.size() ? low : high);
}

QSize ZELCustomSpinBox64::minimumSizeHint() const
{
    return hintFor(QStringLiteral("000000"));
}
