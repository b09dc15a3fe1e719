// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureValueReader.h"

#include "device/OBDeviceControl.h"
#include "device/StopRequest.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/FeatureDecider.h"

#include <array>

FeatureValueReader::FeatureValueReader(FeatureDecider& decider)
    : m_decider(decider)
{
}

FeatureValueReader::Reader FeatureValueReader::readerOf(FeatureTag tag)
{
    using Self = FeatureValueReader;
    // In the order of FeatureTag.
    static const std::array<Reader, kFeatureTagCount> kReaders = {
        nullptr,                // Category
        &Self::readBoolean,     // Boolean
        nullptr,                // Command
        &Self::readInteger,     // Integer
        &Self::readInteger,     // IntReg
        &Self::readEnumeration, // Enumeration
        &Self::readFloat,       // Float
        &Self::readFloat,       // Converter
        &Self::readString,      // StringReg
        &Self::readString,      // String
        nullptr,                // Draw
        nullptr,                // Watermark
        nullptr,                // Event
        nullptr,                // CCM
        nullptr,                // PalettesMode
        nullptr,                // FlatFieldCorrection
        nullptr,                // Other
    };
    return kReaders[static_cast<std::size_t>(tag)];
}

bool FeatureValueReader::hasReader(FeatureTag tag)
{
    return readerOf(tag) != nullptr;
}

void FeatureValueReader::UpdateGenICamItemValue(const FeatureNode& node, ORXPropertyTreeItem* item,
                                                qint64 cameraId)
{
    const Reader reader = readerOf(item->tag());
    const bool read = !reader || (this->*reader)(node, item);
    if (StopRequest::isHere()) // what a stop cut short is no failure of the camera's
        return;
    item->value()->setLastRead(read ? CTreeItemValue::LastRead::Done
                                    : CTreeItemValue::LastRead::Failed);
    if (!read)
        return;
    const QLatin1String chunkFeature(OBDeviceControl::IsSupportChunk() ? "ChunkEnable"
                                                                       : "FrameSpecInfo");
    if (node.name == chunkFeature)
        item->notifiViewSpecialUpdate(NotifyViewSpecial::ChunkSelectionChanged, cameraId);
}

bool FeatureValueReader::readBoolean(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    auto* value = dynamic_cast<CTreeBooleanItemValue*>(item->value());
    bool checked = false;
    if (!value || !OBDeviceControl::GetBoolNodeValue(node.name, &checked))
        return false;
    value->setChecked(checked);
    return true;
}

bool FeatureValueReader::readInteger(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    auto* value = dynamic_cast<CTreeIntergerItemValue*>(item->value());
    _ZDCC_INTVALUE_EX_T record = {};
    if (!value || !OBDeviceControl::GetIntegerNodeValue(node.name, &record))
        return false;
    CTreeIntergerItemValue::Numbers numbers;
    numbers.m_nValue = record.value;
    numbers.m_nMinValue = record.minimum;
    numbers.m_nMaxValue = record.maximum;
    numbers.m_nIncrement = record.increment;
    // Hosts report an empty range as a maximum one below the minimum; it becomes harmless. The
    // addition wraps on purpose.
    if (static_cast<quint64>(record.maximum) + 1 == static_cast<quint64>(record.minimum)) {
        numbers.m_nMinValue = record.value;
        numbers.m_nMaxValue = record.value;
    }
    value->setNumbers(numbers);
    return true;
}

bool FeatureValueReader::readFloat(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    auto* value = dynamic_cast<CTreeFloatItemValue*>(item->value());
    _ZDCC_FLOATVALUE_T record = {};
    if (!value || !OBDeviceControl::GetFloatNodeValue(node.name, &record))
        return false;
    value->setNumbers({record.value, record.minimum, record.maximum});
    return true;
}

bool FeatureValueReader::readString(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    auto* value = dynamic_cast<CTreeStringItemValue*>(item->value());
    QString text;
    int maxLength = 0;
    if (!value || !OBDeviceControl::GetStringNodeValue(node.name, text, &maxLength))
        return false;
    value->setText(text, maxLength);
    return true;
}

bool FeatureValueReader::readEnumeration(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    auto* value = dynamic_cast<CTreeEnumationItemValue*>(item->value());
    _ZDCC_ENUMVALUE_T record = {};
    if (!value || !OBDeviceControl::GetEnumNodeValue(node.name, &record))
        return false;
    value->setNumber(record.value);
    EntryLists lists;
    for (const FeatureEnumEntry& entry : node.entries)
        addEnumerationEntry(entry, node.name, lists);
    // Entries that the camera was not asked about any more are not known to be unusable.
    if (StopRequest::isHere())
        return true;
    value->replaceEnumList(lists.display, lists.translated, lists.valueMap, lists.nameMap);
    return true;
}

void FeatureValueReader::addEnumerationEntry(const FeatureEnumEntry& entry,
                                             const QString& featureName, EntryLists& lists)
{
    if (!m_decider.IsFeatureImplemented(entry.pIsImplemented) ||
        !m_decider.IsFeatureAvailable(entry.pIsAvailable) ||
        m_decider.IsFeatureLocked(entry.pIsLocked))
        return;
    const QString display = entry.displayName.isEmpty() ? entry.name : entry.displayName;
    // The camera's number is a 32-bit word; a description may give it a sign.
    lists.valueMap.insert(static_cast<quint32>(entry.value), display);
    lists.nameMap.insert(entry.name, display);
    if (lists.display.contains(display))
        return;
    lists.display.append(display);
    const QString translated = OBDeviceControl::GetEnumerationTrans(featureName, entry.name);
    lists.translated.append(translated.isEmpty() ? display : translated);
}

// Direct read -------------------------------------------------------------------------------------

namespace {

using DirectRead = bool (*)(const QString& name, CTreeItemValue* value);

bool readBooleanOf(const QString& name, CTreeItemValue* value)
{
    bool checked = false;
    auto* typed = dynamic_cast<CTreeBooleanItemValue*>(value);
    if (!typed || !OBDeviceControl::GetBoolNodeValue(name, &checked, nullptr, true))
        return false;
    typed->setChecked(checked);
    return true;
}

bool readIntegerOf(const QString& name, CTreeItemValue* value)
{
    _ZDCC_INTVALUE_EX_T record = {};
    auto* typed = dynamic_cast<CTreeIntergerItemValue*>(value);
    if (!typed || !OBDeviceControl::GetIntegerNodeValue(name, &record, nullptr, true))
        return false;
    typed->setNumbers({record.value, record.minimum, record.maximum, record.increment});
    return true;
}

bool readEnumerationOf(const QString& name, CTreeItemValue* value)
{
    _ZDCC_ENUMVALUE_T record = {};
    auto* typed = dynamic_cast<CTreeEnumationItemValue*>(value);
    if (!typed || !OBDeviceControl::GetEnumNodeValue(name, &record, nullptr, true))
        return false;
    typed->setNumber(record.value);
    return true;
}

bool readFloatOf(const QString& name, CTreeItemValue* value)
{
    _ZDCC_FLOATVALUE_T record = {};
    auto* typed = dynamic_cast<CTreeFloatItemValue*>(value);
    if (!typed || !OBDeviceControl::GetFloatNodeValue(name, &record, nullptr, true))
        return false;
    typed->setNumbers({record.value, record.minimum, record.maximum});
    return true;
}

bool readStringOf(const QString& name, CTreeItemValue* value)
{
    QString text;
    auto* typed = dynamic_cast<CTreeStringItemValue*>(value);
    if (!typed || !OBDeviceControl::GetStringNodeValue(name, text, nullptr, nullptr, true))
        return false;
    typed->setText(text, typed->maxLength());
    return true;
}

// The first reader whose value class fits reads; values without one have nothing to read.
const DirectRead kDirectReads[] = {readBooleanOf, readIntegerOf, readEnumerationOf, readFloatOf,
                                   readStringOf};

} // namespace

bool FeatureValueReader::readDirectly(ORXPropertyTreeItem* item)
{
    const QString name = item->value()->nodeName(0);
    for (const DirectRead read : kDirectReads) {
        if (read(name, item->value()))
            return true;
    }
    return false;
}
