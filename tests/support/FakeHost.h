// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/CallLog.h"
#include "support/HostFaults.h"
#include "support/HostFeature.h"
#include "support/HostPace.h"

#include <functional>

// A host without a camera: features in memory, every call recorded. Safe to call from several
// threads. A feature that was never set is not implemented and cannot be read. What it answers
// wrong is HostFaults, how long its calls take HostPace; the GUI thread's reads are told to
// GuiThreadReads.
class FakeHost : Guarded
{
public:
    using Feature = HostFeature;

    static Feature integerFeature(qint64 value, qint64 minimum = 0, qint64 maximum = 1000000,
                                  qint64 increment = 1);
    static Feature booleanFeature(bool value) { return ofType(OB_FT_TYPE_BOOLEAN, value ? 1 : 0); }
    static Feature floatFeature(float value, float minimum = 0.0F, float maximum = 100.0F);
    static Feature enumFeature(qint64 value) { return ofType(OB_FT_TYPE_ENUMERATION, value); }
    static Feature textFeature(const QByteArray& text);
    static Feature commandFeature() { return ofType(OB_FT_TYPE_COMMAND); }

    // Installs this host's callbacks in the device layer, or takes all callbacks out.
    void install();
    static void uninstall();
    // The same through the exported function, which builds the pages, too.
    int installInWindow();

    void set(const QString& name, const Feature& feature)
    {
        locked([&] { m_features.insert(name, feature); });
    }
    // Sets every feature of a description to a value of its kind, and every other node to 1.
    void serve(const QByteArray& description);
    Feature feature(const QString& name) const
    {
        return locked([&] { return m_features.value(name); });
    }
    void fail(const QString& name, int code) { m_faults.fail(name, code); }
    void failMode(const QString& name, int code) { m_faults.failMode(name, code); }
    // Every call takes this long.
    void setLatencyMs(int milliseconds) { m_pace.setLatencyMs(milliseconds); }
    HostFaults& faults() { return m_faults; }
    HostPace& pace() { return m_pace; }
    const HostPace& pace() const { return m_pace; }
    // Called before each get, and after each set that was not refused, on the calling thread,
    // without a lock. Set them while nothing calls.
    std::function<void(const QString& name)> beforeGet;
    std::function<void(const QString& name)> afterSet;
    // The same after every call, with what calls() has of it.
    std::function<void(const QString& call)> afterCall;

    // Calls so far, as "get Width", "set Width 640", "mode Width", "invalidate", "action 1".
    QStringList calls() const { return m_log.calls(); }
    int count(const QString& call) const { return m_log.count(call); }
    QStringList writes() const; // the "set" calls
    void clearCalls() { m_log.clear(); }
    qint64 callCount() const { return m_log.total(); }

    // The callbacks themselves; `user` is the FakeHost.
    static int getFeature(int type, char* name, void* value, void* user);
    static int setFeature(int type, char* name, char* value, void* user);
    static int getMode(char* name, int* mode, void* user);
    static int invalidate(void* user);
    static int action(int action, void* user);

private:
    static Feature ofType(int type, qint64 integer = 0);
    struct Call;

    QHash<QString, Feature> m_features; // guarded by m_mutex
    HostFaults m_faults;
    HostPace m_pace;
    CallLog m_log;
};
