// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QString>

class QStyle;

// Front door of the theme: colours, gradients, numbered style sheets and fonts by key. The values
// come from a theme compiled into this library; theme files given to addXmlPath() add to it and
// override it. Static functions only.
//
// Threads: the look-ups may be called from any thread. addXmlPath(), style() and everything that
// touches widgets belong to the GUI thread.
class STYLEDCTL_EXPORT ZELCustom
{
public:
    ZELCustom() = delete;

    // Numbers of styleSheet(). Each sheet is written for one kind of widget and may be joined with
    // others; unknown numbers give the empty text and one info line in the log.
    enum SheetNumber {
        Sheet_Base = 1,      // plain text widgets: QLabel, QTextEdit, QGroupBox
        Sheet_Menu = 2,      // QMenu
        Sheet_ToolTip = 3,   // QToolTip
        Sheet_ScrollBar = 4, // QScrollBar, both orientations
        Sheet_Tab = 5,       // QTabBar and QTabWidget
        Sheet_Splitter = 6,  // QSplitter
        Sheet_TextPanel = 7, // read-only QTextEdit that shows descriptions
        Sheet_List = 8,      // QListView
        Sheet_Table = 9,     // QTableView with alternating rows
        Sheet_Tree = 10      // QTreeView with property rows
    };

    // Style sheet text with all theme colours filled in.
    static QString styleSheet(int number);
    // Replaces every "@key@" in `text` by the colour or gradient of that key, in style-sheet form.
    static QString resolveSheet(const QString& text);

    // Colour of a theme key; the prefix "ZEL_DB_COLOR_" is optional. A gradient key gives the
    // gradient's first colour. An unknown key gives a colour chosen by the words in the key
    // (background, border, text) and one info line in the log per key.
    static QColor getDataBaseColor(const QString& key);
    // As above; gradient keys give a vertical gradient in object coordinates.
    static QBrush getDataBaseBrush(const QString& key);
    // True when a theme defines the key, with or without prefix.
    static bool hasDataBaseColor(const QString& key);

    // Variants of globalFontFamily(): the interface's text (0 and 1; one family for both, able to
    // show Chinese) and numbers of fixed width (2).
    enum FontVariant { Font_Interface = 0, Font_Language = 1, Font_Fixed = 2 };
    // First installed family of the variant's list, else the application's default family. Never
    // empty while a QGuiApplication exists. Looked up once per process.
    static QString globalFontFamily(int variant = Font_Language);
    // Gives a font the family of a variant.
    static void setFamily(QFont* font, int variant = Font_Language);
    // Interface font at a size in device-independent pixels.
    static QFont font(int pixelSize, int weight = QFont::Normal);

    // Loads a theme file (a path or a resource path). Later files override earlier ones key by
    // key. A file that is missing or malformed is logged as a warning and changes nothing: false.
    static bool addXmlPath(const QString& path);

    // The style that draws every control of this library. Shared, lives as long as the process.
    static QStyle* style();
};
