// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"
#include "device/DeviceError.h"
#include "device/FavoritesFile.h"
#include "device/FeatureTexts.h"
#include "device/TranslationTable.h"
#include "device/XmlDocument.h"

#include <QColor>
#include <QString>

#include <atomic>

class DescriptionParse;

// Feature type codes, as the host's callbacks know them.
enum class FeatureType {
    Integer = OB_FT_TYPE_INTEGER,
    Boolean = OB_FT_TYPE_BOOLEAN,
    Command = OB_FT_TYPE_COMMAND,
    Float = OB_FT_TYPE_FLOAT,
    String = OB_FT_TYPE_STRING,
    Enumeration = OB_FT_TYPE_ENUMERATION
};

// The one place where the library reaches the camera, through the callbacks that the host
// registered. Static members only: one device per process at a time, kept for the process's life.
//
// | operation                                  | thread | lock                                |
// |--------------------------------------------|--------|-------------------------------------|
// | reads, writes, GetNodeAccessMode           | any    | none; the host's callbacks must     |
// |                                            |        | allow concurrent calls              |
// | Get...Trans                                | any    | the tables' own, inside             |
// | Init, SetCallBackFunc, EndCalls,           | GUI    | none                                |
// | SetDeviceInfo,                             |        |                                     |
// | user level, favourites, paths, description |        |                                     |
//
// In every operation `err` may be null; it receives 0 or the error code. A read or write returns
// true exactly when the code is 0. Failed reads are silent, failed writes are logged as critical.
// The host may release the library from inside any of its callbacks: on the GUI thread, what would
// destroy widgets waits until the library's own code has left the stack.
class OBDeviceControl
{
public:
    OBDeviceControl() = delete;

    // Replaces the description and the translations and reloads the favourites. A null text keeps
    // what was there; one that does not parse is logged as critical.
    static void Init(const char* deviceXml, const char* translateXml);
    // The same with a description whose parsing has begun.
    static void Init(DescriptionParse& description, const char* translateXml);
    // Installs the callbacks, any of which may be null, and asks the device for chunk support.
    static void SetCallBackFunc(OB_FT_GetFeatureFunc getFeature, OB_FT_SetFeatureFunc setFeature,
                                OB_FT_GetModeFunc getMode, OB_FT_InvalidateFunc invalidate,
                                OB_FT_ActionFunc action, void* user);
    // The library is released: until the next SetCallBackFunc no callback is called, whoever asks.
    static void EndCalls();

    // Fills `buffer`, the zeroed record of the type. With `checkReadable` the access mode is asked
    // first, and a feature that is not readable ends with DeviceError::kNotReadable.
    static bool GetValue(FeatureType type, const QString& name, void* buffer, int* err,
                         bool checkReadable);
    static bool GetIntegerNodeValue(const QString& name, _ZDCC_INTVALUE_EX_T* value,
                                    int* err = nullptr, bool checkReadable = false);
    static bool GetFloatNodeValue(const QString& name, _ZDCC_FLOATVALUE_T* value,
                                  int* err = nullptr, bool checkReadable = false);
    static bool GetEnumNodeValue(const QString& name, _ZDCC_ENUMVALUE_T* value, int* err = nullptr,
                                 bool checkReadable = false);
    static bool GetBoolNodeValue(const QString& name, bool* value, int* err = nullptr,
                                 bool checkReadable = false);
    // `maxLength` (bytes, terminator included) may be null. On failure nothing is changed.
    static bool GetStringNodeValue(const QString& name, QString& value, int* maxLength,
                                   int* err = nullptr, bool checkReadable = false);

    static bool SetValue(FeatureType type, const QString& name, const QString& value, int* err);
    static bool SetIntegerNodeValue(const QString& name, qint64 value, int* err = nullptr);
    // Sends 4 significant digits.
    static bool SetFloatNodeValue(const QString& name, float value, int* err = nullptr);
    static bool SetEnumNodeValue(const QString& name, unsigned int value, int* err = nullptr);
    static bool SetBoolNodeValue(const QString& name, bool value, int* err = nullptr);
    static bool SetStringNodeValue(const QString& name, const QString& value, int* err = nullptr);
    // Executes a command.
    static bool SetCommandNodeValue(const QString& name, int* err = nullptr);

    // An OB_FT_ACCESS_ code, or 0 when it cannot be had.
    static int GetNodeAccessMode(const QString& name, int* err = nullptr);
    // Write-only features count as readable, codes above 4 do not.
    static bool IsNodeReadable(const QString& name);
    // True for the access modes that IsNodeReadable accepts.
    static bool isReadableMode(int mode);

    // The host drops its cached values.
    static void InvalidateNodes();
    // Tells the host that the window was hidden.
    static void NotifyWindowsClose();

    // Copies type and name; null is ignored.
    static void SetDeviceInfo(const _OB_FT_DEVICEINFO_* info);
    static int GetDeviceType(); // 0 before any device record
    static QString GetDeviceName();
    static bool IsGenTLInterface();

    static XmlDocument* GetDeviceXml() { return &s_domFeaturesXml; }
    static bool IsSupportChunk() { return s_bSupportChunk; }

    // 0 "Guru", 1 "Beginner".
    static int GetUserLevel() { return s_nUserLevr; }
    static void SetUserLevel(int level) { s_nUserLevr = level; }

    static void SetDllPath(const QString& path) { s_strDllPath = path; }
    static QString GetDllPath() { return s_strDllPath; }

    // Second-language texts; empty where there is none. The host's table comes first.
    static QString GetDisplayNameTrans(const QString& name)
    {
        return FeatureTexts::displayName(name, FeatureTexts::HostFirst);
    }
    static QString GetDescriptionTrans(const QString& name)
    {
        return FeatureTexts::description(name, FeatureTexts::HostFirst);
    }
    static QString GetEnumerationTrans(const QString& feature, const QString& entry)
    {
        return FeatureTexts::entry(feature, entry, FeatureTexts::HostFirst);
    }
    // The same, in the library's own table only.
    static QString getPropDisplayNameTrans(const QString& name)
    {
        return FeatureTexts::displayName(name, FeatureTexts::OwnOnly);
    }
    static QString getPropDescriptionTrans(const QString& name)
    {
        return FeatureTexts::description(name, FeatureTexts::OwnOnly);
    }
    static QString getPropEnumerationTrans(const QString& feature, const QString& entry)
    {
        return FeatureTexts::entry(feature, entry, FeatureTexts::OwnOnly);
    }
    // Fills the library's own table from its file (UTF-8), unless it is filled.
    static void parsePropertyTransXml();
    static void parseOneFeature(pugi::xml_node feature, TranslationTable::Items& table)
    {
        TranslationTable::addFeature(feature, table);
    }

    // The favourites in the user's order; changed in place by the trees.
    static QList<FavoriteFeature>* GetFavoritesFeatureMap() { return &s_mapFavoritesFeature; }
    static void LoadFavoritesXml() { s_mapFavoritesFeature = FavoritesFile::load(); }
    static void SaveFavoritesXml() { FavoritesFile::save(s_mapFavoritesFeature); }

    // A coloured HTML span of plain text. A marker such as "%1" in the text is lost to the style
    // substitution, which callers rely on for nothing.
    static QString stringToHtmlFilter(const QString& text, const QColor& colour, bool bold);

private:
    static _OB_FT_DEVICEINFO_* s_pDeviceInfo; // Kept for the life of the process.
    static XmlDocument s_domFeaturesXml;
    static QList<FavoriteFeature> s_mapFavoritesFeature;
    static QString s_strDllPath;
    static std::atomic<int> s_nUserLevr;
    static std::atomic<bool> s_bSupportChunk;
};
