// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureDocInputs.h"
#include "model/ItemStateLock.h"
#include "model/ReadOnlyCause.h"

#include <QString>
#include <QVariant>

#include <memory>

// The value of an item: names and texts here, the typed value in the subclasses. Owned by its item.
//
// Every operation takes the item state lock for its own length, so that a reading thread may fill a
// value while the GUI thread shows it. Values are made and destroyed on the GUI thread only.
class CTreeItemValue
{
public:
    CTreeItemValue() = default;
    virtual ~CTreeItemValue() = default;
    CTreeItemValue(const CTreeItemValue&) = delete;
    CTreeItemValue& operator=(const CTreeItemValue&) = delete;

    // Text of the value column.
    virtual QString displayValue() const;
    // The feature's name, the key everywhere. `column` matters only to values of two features.
    virtual QString nodeName(int column = 0) const;
    virtual void setNodeName(const QString& name);
    virtual QString toolTip(int column = 0) const;
    virtual QVariant value() const;
    virtual void setValue(const QVariant& value);
    // English name, or the translated one when there is none.
    virtual QString displayName() const;
    // Translated name, or the English one when there is none.
    virtual QString translateName() const;
    // A text that changes exactly when something that views show changes.
    virtual QString createCurrentStauts(bool readOnly) const;
    // Takes over the typed value of a value of the same class, and with `all` the texts, too.
    virtual void copy(const CTreeItemValue* from, bool all);

    // From now on a translated name and explanation that was not set is that of the translation
    // tables for the node name.
    void setTranslatedByTables();

    void setDisplayName(const QString& name);
    void setTranslateName(const QString& name);
    void setToolTip(const QString& text);

    // The device's own description and its translation, plain text.
    QString description() const;
    void setDescription(const QString& text);
    QString translatedDescription() const;
    void setTranslatedDescription(const QString& text);
    // Unit of a number, as the description has it; empty without.
    QString unit() const;
    void setUnit(const QString& unit);
    // What the description panel says beside the texts and numbers here; see FeatureDocHtml.
    FeatureDocInputs docInputs() const;
    void setDocInputs(const FeatureDocInputs& inputs);

    // False keeps the item's editor disabled whatever its read-only state.
    bool enabled() const;
    void setEnabled(bool enabled);
    // True gives the editor the styled library's font.
    bool usesGlobalFont() const;
    void setUsesGlobalFont(bool uses);

    // What the camera last answered when a pass read the value; what is stored is older after a
    // failure, and made up before the first answer.
    enum class LastRead { None, Done, Failed };
    LastRead lastRead() const;
    void setLastRead(LastRead result);

    // Why the last pass found the feature read-only; see ORXPropertyTreeItem::setReadOnly().
    ReadOnlyCause readOnlyCause() const;
    void setReadOnlyCause(ReadOnlyCause cause);

    // The status text that views were last told of.
    QString currentStatus() const;
    // Stores a status text; returns the one it replaces.
    QString exchangeStatus(const QString& status);
    // Rebuilds the status text from what an editor shows now; `disabled` is the editor's state.
    void updateEditorInfo(bool disabled);
    // The same with a status that was taken before the editor was filled, so that a change between
    // taking and storing is still seen as one.
    void updateEditorInfo(const QString& statusBeforeFilling);

protected:
    // "ReadOnly:true;" or "ReadOnly:false;"
    static QString readOnlyStatus(bool readOnly);

private:
    QString translated(const QString& own, QString (*lookUp)(const QString& feature)) const;

    bool m_bEnabled = true;
    bool m_bUsesGlobalFont = true;
    bool m_bTranslatedByTables = false;
    LastRead m_lastRead = LastRead::None;
    ReadOnlyCause m_readOnlyCause = ReadOnlyCause::None;
    QString m_strNodeName;
    QString m_strDescription;
    QString m_strTranslatedDescription;
    QString m_strUnit;
    QString m_strDisplayName;
    QString m_strTranslateName;
    QString m_strToolTip;
    FeatureDocInputs m_docInputs;
    QString m_strCurrentStatus;
};
