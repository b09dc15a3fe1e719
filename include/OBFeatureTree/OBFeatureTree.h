/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The one public header of libOBFeatureTree: a window in which the user of a machine-vision host
 * browses and edits the features of a connected camera.
 *
 * The host owns the camera connection. It hands over the camera's feature description (XML), a
 * device record and callbacks, and drives the window with the ten functions below. The header is
 * plain C and compiles as C and as C++.
 *
 * Threads: call all ten functions from the thread that runs the host's QApplication, also from
 * inside a callback on that thread; a call from another thread is logged and has no effect. The
 * callbacks are called from that thread and from threads of the library (reading, look-up table,
 * colour matrix, check boxes, automatic software trigger), reads and writes alike, also at the same
 * time.
 *
 * Order of calls: OB_FT_Init, OB_FT_SetDeviceInfo, OB_FT_SetCallBackFunc, OB_FT_SetWidgetSize,
 * OB_FT_SetWidgetPosition, OB_FT_Start, OB_FT_UpdateFeatures (any number of times), OB_FT_Close,
 * OB_FT_Release.
 */
#ifndef OBFEATURETREE_OBFEATURETREE_H
#define OBFEATURETREE_OBFEATURETREE_H

#include <stdint.h>

#if defined(__GNUC__)
#define OB_FT_API __attribute__((visibility("default")))
#else
#define OB_FT_API
#endif

#ifdef __cplusplus
class QWidget;
typedef QWidget OB_FT_WIDGET;
extern "C" {
#else
/** A Qt widget as C sees it; only handed through. */
typedef struct OB_FT_WIDGET_ OB_FT_WIDGET;
#endif

/** Feature kinds: the first argument of the get and set callbacks. */
enum {
    OB_FT_TYPE_INTEGER = 2,    /**< get: _ZDCC_INTVALUE_EX_T; set: decimal signed 64-bit text */
    OB_FT_TYPE_BOOLEAN = 3,    /**< get: one byte, 0 or 1; set: "1" or "0" */
    OB_FT_TYPE_COMMAND = 4,    /**< never read; set with the empty text executes the command */
    OB_FT_TYPE_FLOAT = 5,      /**< get: _ZDCC_FLOATVALUE_T; set: 4 significant digits, 'g' form */
    OB_FT_TYPE_STRING = 6,     /**< get: _ZDCC_STRINGVALUE_T; set: the text itself */
    OB_FT_TYPE_ENUMERATION = 9 /**< get: _ZDCC_ENUMVALUE_T; set: decimal unsigned 32-bit text */
};

/** Access modes: what the access-mode callback writes. */
enum {
    OB_FT_ACCESS_NOT_IMPLEMENTED = 0,
    OB_FT_ACCESS_NOT_AVAILABLE = 1,
    OB_FT_ACCESS_WRITE_ONLY = 2,
    OB_FT_ACCESS_READ_ONLY = 3,
    OB_FT_ACCESS_READ_WRITE = 4
};

/** Actions that the library asks of the host. */
enum {
    OB_FT_ACTION_WINDOW_HIDDEN = 1 /**< the feature window was hidden or closed */
};

/** An integer feature. An increment of 0 or less means no grid. */
typedef struct _ZDCC_INTVALUE_EX_T
{
    int64_t value;
    int64_t maximum;
    int64_t minimum;
    int64_t increment;
    uint32_t reserved[16];
} _ZDCC_INTVALUE_EX_T;

/** A float feature. */
typedef struct _ZDCC_FLOATVALUE_T
{
    float value;
    float maximum;
    float minimum;
    uint32_t reserved[4];
} _ZDCC_FLOATVALUE_T;

/** An enumeration feature; entries from supportedCount on are not read, 64 at the most. */
typedef struct _ZDCC_ENUMVALUE_T
{
    uint32_t value;
    uint32_t supportedCount;
    uint32_t supported[64];
    uint32_t reserved[4];
} _ZDCC_ENUMVALUE_T;

/** A string feature: text in the local 8-bit code page, at most 256 bytes with its NUL. */
typedef struct _ZDCC_STRINGVALUE_T
{
    char value[256];
    int64_t maximumLength; /**< bytes that the feature can hold, terminator included */
    uint32_t reserved[2];
} _ZDCC_STRINGVALUE_T;

/** The connected device. The library keeps a copy. */
typedef struct _OB_FT_DEVICEINFO_
{
    uint32_t deviceType;  /**< transport; 256 means a GenTL interface */
    char deviceName[128]; /**< local 8-bit code page, NUL-terminated within 127 characters */
    unsigned char reserved[16];
} _OB_FT_DEVICEINFO_;

/* Callbacks. Each returns 0 for success; any other value is an error code that the library shows
   as it is. Names and texts are in the local 8-bit code page and valid only during the call. */

/** Fills the record of the type (zeroed by the library) with a feature's value and range. */
typedef int (*OB_FT_GetFeatureFunc)(int type, char* name, void* value, void* user);
/** Writes a feature, or executes a command. Called on the GUI thread for what the user edits, on
    threads of the library for tables, matrix, check boxes and the automatic software trigger. */
typedef int (*OB_FT_SetFeatureFunc)(int type, char* name, char* value, void* user);
/** Writes the access mode of a feature to *mode. */
typedef int (*OB_FT_GetModeFunc)(char* name, int* mode, void* user);
/** Drops the values that the host has cached. */
typedef int (*OB_FT_InvalidateFunc)(void* user);
/** Tells the host of an OB_FT_ACTION_. Called on the GUI thread. */
typedef int (*OB_FT_ActionFunc)(int action, void* user);

/* Functions. Each returns 0, or -1 before OB_FT_Init and after OB_FT_Release. */

/**
 * Makes the window (hidden) and reads the description. The first call of a process also sets the
 * application's style and loads the resource packs from "FeatureTreeResource" beside the host's
 * executable, else beside the library, else from where it was installed. Needs a QApplication.
 * @param deviceXml feature description, UTF-8; NULL keeps the previous one. A text that does not
 *        parse is logged and leaves an empty window; so is one with a document type declaration.
 * @param translateXml the host's names and descriptions, UTF-8; they are added to those of earlier
 *        calls, later ones winning. NULL adds none.
 * @param parent parent of the hidden window until OB_FT_Start, not owned; may be NULL.
 * @return always 0.
 */
OB_FT_API int OB_FT_Init(const char* deviceXml, char* translateXml, OB_FT_WIDGET* parent);

/** Copies the device record; the window's title shows the device name. NULL is ignored. */
OB_FT_API int OB_FT_SetDeviceInfo(_OB_FT_DEVICEINFO_* info);

/** Installs the callbacks (any may be NULL) and builds the feature pages. `user` is not owned. */
OB_FT_API int OB_FT_SetCallBackFunc(OB_FT_GetFeatureFunc getFeature,
                                    OB_FT_SetFeatureFunc setFeature, OB_FT_GetModeFunc getMode,
                                    OB_FT_InvalidateFunc invalidate, OB_FT_ActionFunc action,
                                    void* user);

/** Fixes the size of the window, in pixels. */
OB_FT_API int OB_FT_SetWidgetSize(int width, int height);

/** Kept for hosts that call it; changes nothing. */
OB_FT_API int OB_FT_SetTitleVisible(int visible);

/** Moves the window, in screen pixels. */
OB_FT_API int OB_FT_SetWidgetPosition(int x, int y);

/**
 * Shows the window as a top-level window that stays on top, and starts reading.
 * @param unused not read.
 * @param language 1 Chinese, any other value English.
 */
OB_FT_API int OB_FT_Start(void* unused, int language);

/**
 * Closes (hides) the window; reading stops, the window keeps its state. Waits for callbacks that
 * are still running on threads of the library and for what puts the camera back; no callback is
 * called afterwards until OB_FT_Start.
 */
OB_FT_API int OB_FT_Close(void);

/** Reads all features again: call it when values changed behind the library's back. */
OB_FT_API int OB_FT_UpdateFeatures(void);

/**
 * Saves the favourites, closes the window (which the host is told, if it was visible) and destroys
 * it. Waits for a callback that is still running on a thread of the library; no callback is called
 * afterwards. Happens by itself when the QApplication is destroyed.
 */
OB_FT_API int OB_FT_Release(void);

#ifdef __cplusplus
}
#endif

#endif
