// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeItemValue.h"

#include "device/OBDeviceControl.h"

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
    const QString name = translated(m_strTranslateName, &OBDeviceControl::GetDisplayNameTrans);
    return name.isEmpty() ? locked(m_strDisplayName) : name;
}

// Looked up without the lock: who asks first waits for the tables.
QString CTreeItemValue::translated(const QString& own, QString (*lookUp)(const QString&)) const
{
    QString name;
    {
        const ItemStateLock lock;
        if (!own.isEmpty() || !m_bTranslatedByTables)
            return own;
        name = m_strNodeName;
    }
    return lookUp(name);
}

void CTreeItemValue::setTranslatedByTables()
{
    const ItemStateLock lock;
    m_bTranslatedByTables = true;
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
    m_bTranslatedByTables = from->m_bTranslatedByTables;
    m_readOnlyCause = from->m_readOnlyCause;
    m_strNodeName = from->m_strNodeName;
    m_strDescription = from->m_strDescription;
    m_strTranslatedDescription = from->m_strTranslatedDescription;
    m_strUnit = from->m_strUnit;
    m_strDisplayName = from->m_strDisplayName;
    m_strTranslateName = from->m_strTranslateName;
    m_strToolTip = from->m_strToolTip;
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
    return translated(m_strTranslatedDescription, &OBDeviceControl::GetDescriptionTrans);
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
FeatureDocInputs CTreeItemValue::docInputs() const
{
    const ItemStateLock lock;
    return m_docInputs;
}
void CTreeItemValue::setDocInputs(const FeatureDocInputs& inputs)
{
    const ItemStateLock lock;
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
