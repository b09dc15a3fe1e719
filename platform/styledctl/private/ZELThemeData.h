// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QBrush>
#include <QColor>
#include <QHash>
#include <QString>

#include <optional>

class QXmlStreamReader;

// Contents of one theme file, or of several merged ones. A plain value; keys are kept without the
// prefix "ZEL_DB_COLOR_". The form of the file:
//
//     <Theme>
//       <Color key="StyledCtlColor_Text" value="#E4E8EC"/>         also "#AARRGGBB"
//       <Color key="CommonColor_FeatureTree_Font" ref="StyledCtlColor_Text"/>
//       <Gradient key="..." from="#2B3138" to="#23282E"/>          from top to bottom
//       <StyleSheet number="4">QScrollBar { background: @StyledCtlColor_Surface@; }</StyleSheet>
//     </Theme>
//
// `ref` takes the value that the key has once all files are loaded, so overriding a basic colour
// overrides everything built on it.
class ZELThemeData
{
public:
    // Empty result: the text is no theme; `error` then says why, with a line number.
    static std::optional<ZELThemeData> parse(const QByteArray& text, QString* error);
    // "ZEL_DB_COLOR_X" and "X" are the same key.
    static QString normalKey(const QString& key);

    // Entries of `other` replace entries of the same key.
    void merge(const ZELThemeData& other);

    // First colour of a gradient; invalid when the key is not defined.
    QColor color(const QString& normalKey) const;
    QBrush brush(const QString& normalKey) const;
    bool contains(const QString& normalKey) const { return m_paints.contains(normalKey); }
    // Colours still as "@key@".
    QString sheet(int number) const { return m_sheets.value(number); }
    // The paint of a key in style-sheet form; empty when the key is not defined.
    QString sheetValue(const QString& normalKey) const;

private:
    struct Paint
    {
        QString ref;
        QColor from;
        QColor to; // Invalid: one colour.
    };
    // False when the element at which the reader stands cannot be used.
    bool takeElement(QXmlStreamReader& xml);
    // Follows references; null when the key, or the end of its references, is not defined.
    const Paint* resolve(const QString& normalKey) const;

    QHash<QString, Paint> m_paints;
    QHash<int, QString> m_sheets;
};
