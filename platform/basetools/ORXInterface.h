// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "basetools/BaseToolsGlobal.h"

#include <QByteArray>
#include <QString>

#include <functional>

class QWidget;

// Utilities shared by the library and its host: interface language, per-user directories, text,
// number and address conversion, error texts and file dialogs. Static functions only, no instance.
//
// Threads: every function may be called from any thread, except the file dialogs and their hook,
// which belong to the GUI thread. Nothing here throws.
class BASETOOLS_EXPORT ORXInterface
{
public:
    ORXInterface() = delete;

    // --- Interface language -------------------------------------------------------------------

    // "CH" or "ENG"; "ENG" at start. The argument is not used.
    static QString language(int unused = 0);
    // "CH" selects Chinese, every other text English.
    static void setLanguage(const QString& language);

    // --- Directories --------------------------------------------------------------------------
    // Absolute paths without a trailing slash. The directory exists when the call returns, unless
    // it cannot be created. Both follow QStandardPaths::setTestModeEnabled().

    // For files that the user wants to keep.
    static QString userDataPath();
    // For files that may be lost; private to the user, yet normally survives a restart.
    static QString systemTemp();

    // --- Local 8-bit text ---------------------------------------------------------------------

    // Text up to the first NUL, at most `maxBytes` bytes; null or maxBytes <= 0 gives the empty
    // text. Valid UTF-8 is read as such whatever the locale (a character cut at the end is
    // dropped), anything else in the local encoding.
    static QString fromLocalText(const char* text, int maxBytes);
    // In the local encoding; in UTF-8 when that cannot hold the text.
    static QByteArray toLocalText(const QString& text);

    // --- Numbers and text ---------------------------------------------------------------------

    // Decimal with optional sign, or hexadecimal after "0x"/"0X"; blanks around it are ignored.
    // Hexadecimal covers all 64 bits (0xFFFFFFFFFFFFFFFF is -1), and so does a decimal number
    // above the signed range. 0 when the text is no number or needs more than 64 bits.
    static qint64 string2Int(const QString& text);
    // Longest beginning of `text` whose UTF-8 form has at most `maxBytes` bytes; a character is
    // kept whole or left out.
    static QString cutString(const QString& text, int maxBytes);
    // "0x" and the 64-bit value in upper-case hexadecimal without leading zeros: -1 is
    // "0xFFFFFFFFFFFFFFFF", 0 is "0x0".
    static QString int2HexText(qint64 value);

    // --- Network addresses --------------------------------------------------------------------
    // IPv4 addresses are host-order integers: 192.168.0.1 is 0xC0A80001.

    static QString intIP2strIP(quint32 address);
    // 0 when CheckIpAble() refuses the text.
    static quint32 strIP2IntIP(const QString& text);
    // Four decimal octets 0 to 255 of one to three digits with dots between, nothing else.
    static bool CheckIpAble(const QString& text);
    // An address whose one bits stand contiguously at the left. 0.0.0.0 (no network part) is
    // refused; 255.255.255.255 (a single host) is accepted.
    static bool CheckSubnetMask(const QString& text);

    // Low 48 bits as "AA:BB:CC:DD:EE:FF".
    static QString intMac2strMac(quint64 address);
    // 0 when CheckMac() refuses the text.
    static quint64 strMac2IntMac(const QString& text);
    // Six pairs of hexadecimal digits of either case, separated by ':' throughout or by '-'
    // throughout.
    static bool CheckMac(const QString& text);

    // --- Error codes --------------------------------------------------------------------------

    // Eight hexadecimal digits ("0x80000106"), followed by a short translated meaning in brackets
    // for the codes that are known here.
    static QString IntCode2DisplayCode(int code);

    // --- File dialogs (GUI thread) ------------------------------------------------------------

    enum FileDialogKind { SaveFile, OpenFile };
    using FileDialogHook =
        std::function<QString(FileDialogKind kind, const QString& title, const QString& filter)>;

    // Modal; the chosen path, empty when cancelled. `filter` is in Qt's form ("txt Files (*.txt)").
    // `defaultSuffix` ("txt") is appended to a name without a suffix. The dialog opens in the
    // folder that was used last in this process, at first in the user's documents folder.
    static QString getSaveFileName(QWidget* parent, const QString& title, const QString& filter,
                                   const QString& defaultSuffix);
    static QString getOpenFileName(QWidget* parent, const QString& title, const QString& filter);
    // Answers the two functions above in place of a dialog, for automated runs; an empty function
    // brings the dialogs back. The default suffix is applied to the hook's answer too.
    static void setFileDialogHook(FileDialogHook hook);
};
