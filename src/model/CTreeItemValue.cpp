// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeItemValue.h"

namespace {

template <typename Value>
Value locked(const Value& text)
{
    const ItemStateLock lock;
    return text;
}

void assign(QString& target, const QString& text)
{
    const ItemStateLock lock;
    if (target != text)
        target = text;
}

} // namespace

QString CTreeItemValue::displayValue() const
{
    return {};
}

QString CTreeItemValue::nodeName(int) const
{
    return locked(m_strNodeName);
}

void CTreeItemValue::setNodeName(const QString& name)
{
    assign(m_strNodeName, name);
}

QString CTreeItemValue::toolTip(int) const
{
    return locked(m_strToolTip);
}

QVariant CTreeItemValue::value() const
{
    return {};
}

void CTreeItemValue::setValue(const QVariant&) {}

QString CTreeItemValue::displayName() const
{
    const ItemStateLock lock;
    return m_strDisplayName.isEmpty() ? m_strTranslateName : m_strDisplayName;
}

QString CTreeItemValue::translateName() const
{
    const ItemStateLock lock;
    return m_strTranslateName.isEmpty() ? m_strDisplayName : m_strTranslateName;
}

QString CTreeItemValue::createCurrentStauts(bool readOnly) const
{
    return readOnlyStatus(readOnly);
}

QString CTreeItemValue::readOnlyStatus(bool readOnly)
{
    return readOnly ? QStringLiteral("ReadOnly:true;") : QStringLiteral("ReadOnly:false;");
}

void CTreeItemValue::copy(const CTreeItemValue* from, bool all)
{
    if (!from || !all)
        return;
    const ItemStateLock lock;
    m_bEnabled = from->m_bEnabled;
    m_bUsesGlobalFont = from->m_bUsesGlobalFont;
    m_readOnlyCause = from->m_readOnlyCause;
    m_strNodeName = from->m_strNodeName;
    m_strDescription = from->m_strDescription;
    m_strTranslatedDescription = from->m_strTranslatedDescription;
    m_strUnit = from->m_strUnit;
    m_docText = from->m_docText;
    m_strDisplayName = from->m_strDisplayName;
    m_strTranslateName = from->m_strTranslateName;
    m_strToolTip = from->m_strToolTip;
    m_docTextCN = from->m_docTextCN;
    m_docInputs = from->m_docInputs;
}

void CTreeItemValue::setDisplayName(const QString& name)
{
    assign(m_strDisplayName, name);
}
void CTreeItemValue::setTranslateName(const QString& name)
{
    assign(m_strTranslateName, name);
}
void CTreeItemValue::setToolTip(const QString& text)
{
    assign(m_strToolTip, text);
}

QString CTreeItemValue::description() const
{
    return locked(m_strDescription);
}
void CTreeItemValue::setDescription(const QString& text)
{
    assign(m_strDescription, text);
}
QString CTreeItemValue::translatedDescription() const
{
    return locked(m_strTranslatedDescription);
}
void CTreeItemValue::setTranslatedDescription(const QString& text)
{
    assign(m_strTranslatedDescription, text);
}
QString CTreeItemValue::unit() const
{
    return locked(m_strUnit);
}
void CTreeItemValue::setUnit(const QString& unit)
{
    assign(m_strUnit, unit);
}
QString CTreeItemValue::docText() const
{
    return locked(m_docText).whole();
}
QString CTreeItemValue::docTextCN() const
{
    return locked(m_docTextCN).whole();
}
FeatureDocInputs CTreeItemValue::docInputs() const
{
    const ItemStateLock lock;
    return m_docInputs;
}
void CTreeItemValue::setDoc(const PhrasedText& html, const PhrasedText& htmlCN,
                            const FeatureDocInputs& inputs)
{
    const ItemStateLock lock;
    m_docText = html;
    m_docTextCN = htmlCN;
    m_docInputs = inputs;
}

bool CTreeItemValue::enabled() const
{
    const ItemStateLock lock;
    return m_bEnabled;
}

void CTreeItemValue::setEnabled(bool enabled)
{
    const ItemStateLock lock;
    m_bEnabled = enabled;
}

bool CTreeItemValue::usesGlobalFont() const
{
    const ItemStateLock lock;
    return m_bUsesGlobalFont;
}

void CTreeItemValue::setUsesGlobalFont(bool uses)
{
    const ItemStateLock lock;
    m_bUsesGlobalFont = uses;
}

CTreeItemValue::LastRead CTreeItemValue::lastRead() const
{
    const ItemStateLock lock;
    return m_lastRead;
}

void CTreeItemValue::setLastRead(LastRead result)
{
    const ItemStateLock lock;
    m_lastRead = result;
}

ReadOnlyCause CTreeItemValue::readOnlyCause() const
{
    const ItemStateLock lock;
    return m_readOnlyCause;
}

void CTreeItemValue::setReadOnlyCause(ReadOnlyCause cause)
{
    const ItemStateLock lock;
    m_readOnlyCause = cause;
}

QString CTreeItemValue::currentStatus() const
{
    return locked(m_strCurrentStatus);
}

QString CTreeItemValue::exchangeStatus(const QString& status)
{
    const ItemStateLock lock;
    QString previous = m_strCurrentStatus;
    m_strCurrentStatus = status;
    return previous;
}

void CTreeItemValue::updateEditorInfo(bool disabled)
{
    const ItemStateLock lock;
    m_strCurrentStatus = createCurrentStauts(disabled);
}

void CTreeItemValue::updateEditorInfo(const QString& statusBeforeFilling)
{
    assign(m_strCurrentStatus, statusBeforeFilling);
}
