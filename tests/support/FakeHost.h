// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"

#include <QHash>
#include <QStringList>

#include <atomic>
#include <functional>
#include <mutex>

// A host without a camera: features in memory, every call recorded. Safe to call from several
// threads. A feature that was never set is not implemented and cannot be read.
class FakeHost
{
public:
    struct Feature
    {
        int type = OB_FT_TYPE_INTEGER;
        int mode = OB_FT_ACCESS_READ_WRITE;
        qint64 integer = 0; // also boolean and enumeration
        qint64 minimum = 0;
        qint64 maximum = 1000000;
        qint64 increment = 1;
        float number = 0.0F;
        float numberMinimum = 0.0F;
        float numberMaximum = 100.0F;
        QByteArray text;
        qint64 maximumLength = 64;
    };

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

    void set(const QString& name, const Feature& feature);
    // Sets every feature of a description to a value of its kind, and every other node to 1.
    void serve(const QByteArray& description);
    Feature feature(const QString& name) const;
    // A code that get and set calls of the name return; 0 ends it.
    void fail(const QString& name, int code);
    // A code that get-mode calls of the name return; 0 ends it.
    void failMode(const QString& name, int code);
    // Every call takes this long.
    void setLatencyMs(int milliseconds) { m_latencyMs = milliseconds; }
    // Called before each get, on the calling thread, without a lock.
    std::function<void(const QString& name)> beforeGet;

    // Calls so far, as "get Width", "set Width 640", "mode Width", "invalidate", "action 1".
    QStringList calls() const;
    int count(const QString& call) const;
    QStringList writes() const; // the "set" calls
    void clearCalls();
    qint64 callCount() const { return m_callCount; }

    // The callbacks themselves; `user` is the FakeHost.
    static int getFeature(int type, char* name, void* value, void* user);
    static int setFeature(int type, char* name, char* value, void* user);
    static int getMode(char* name, int* mode, void* user);
    static int invalidate(void* user);
    static int action(int action, void* user);

private:
    static Feature ofType(int type, qint64 integer = 0);
    void record(const QString& call);
    int readInto(const Feature& feature, int type, void* value) const;
    void writeFrom(Feature& feature, const QByteArray& value) const;

    mutable std::mutex m_mutex;
    QHash<QString, Feature> m_features;
    QHash<QString, int> m_failures;
    QHash<QString, int> m_modeFailures;
    QStringList m_calls;
    std::atomic<int> m_latencyMs{0};
    std::atomic<qint64> m_callCount{0};
};
