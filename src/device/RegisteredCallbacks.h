// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"

#include <QString>

#include <atomic>

// The callbacks that the host registered, and the only place that calls them. Names and values go
// to the host in the local encoding; the codes are the host's, or DeviceError's where it was not
// called or threw. From inside a call on the GUI thread the host may release the library: what
// would destroy widgets is put off.
//
// | operation  | thread | lock                                                    |
// |------------|--------|---------------------------------------------------------|
// | set        | GUI    | none                                                    |
// | the others | any    | none; the host's callbacks must allow concurrent calls  |
class RegisteredCallbacks
{
public:
    RegisteredCallbacks() = delete;

    // Any of them may be null.
    static void set(OB_FT_GetFeatureFunc getFeature, OB_FT_SetFeatureFunc setFeature,
                    OB_FT_GetModeFunc getMode, OB_FT_InvalidateFunc invalidate,
                    OB_FT_ActionFunc action, void* user);
    // A worker that was told to stop makes no call of the host, and a released library makes none;
    // the operations below leave the question to their caller.
    static bool isRefused();

    static bool canGetFeature() { return s_pGetFeatureFunc != nullptr; }
    static bool canGetMode() { return s_pGetModeFunc != nullptr; }
    static int getFeature(int type, const QString& name, void* buffer);
    static int setFeature(int type, const QString& name, const QString& value);
    static int getMode(const QString& name, int* mode);
    static void invalidate();
    // `code` is an OB_FT_ACTION_ code.
    static void act(int code);

private:
    static std::atomic<OB_FT_GetFeatureFunc> s_pGetFeatureFunc;
    static std::atomic<OB_FT_SetFeatureFunc> s_pSetFeatureFunc;
    static std::atomic<OB_FT_GetModeFunc> s_pGetModeFunc;
    static std::atomic<OB_FT_InvalidateFunc> s_pInvalidateFunc;
    static std::atomic<OB_FT_ActionFunc> s_pActionFunc;
    static std::atomic<void*> s_pUser; // Not owned.
};
