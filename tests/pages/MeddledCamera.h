// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"
#include "support/Guarded.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>

// Stands before another camera, notes what arrives, and lets a test meddle with it while the window
// is open. Safe from any thread.
class MeddledCamera : public Camera, Guarded
{
public:
    // `lacking`: features that the description does not list. `camera` is not owned.
    explicit MeddledCamera(Camera& camera, const QStringList& lacking = {});

    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override { return camera().deviceRecord(); }
    int read(int type, const std::string& name, void* record) override;
    int write(int type, const std::string& name, const std::string& text) override;
    int accessMode(const std::string& name, int* mode) override;
    int invalidate() override { return camera().invalidate(); }
    bool isConnected() const override { return !m_unplugged && camera().isConnected(); }
    int reconnect() override { return camera().reconnect(); }

    enum Calls { Reads = 1, Writes = 2, ReadsAndWrites = Reads | Writes, Modes = 4 };

    // Called before each read or write, on the calling thread. Set them while nothing calls.
    std::function<void(const QString& name)> beforeRead;
    std::function<void(const QString& name)> beforeWrite;

    // Stands before this one from now on, which is not owned and keeps to the same description.
    void standBefore(Camera& camera) { m_camera = &camera; }
    // Calls of the name answer with the code from now on; 0 ends it.
    void fail(const char* name, int code, Calls calls = ReadsAndWrites)
    {
        locked([&] { m_failures[name] = {code, calls}; });
    }
    // Nothing is answered any more.
    void unplug() { m_unplugged = true; }
    // The feature's access mode says that it is not there.
    void hide(const char* name, bool hidden)
    {
        setMode(name, hidden ? OB_FT_ACCESS_NOT_IMPLEMENTED : kOwnMode);
    }
    // The feature's access mode says that it can only be read.
    void lock(const char* name, bool isLocked)
    {
        setMode(name, isLocked ? OB_FT_ACCESS_READ_ONLY : kOwnMode);
    }
    // The integer feature says that its values go in steps of this.
    void setIncrement(const char* name, qint64 increment)
    {
        locked([&] { m_increments[name] = increment; });
    }
    // Calls of the name wait until the gate opens.
    void closeGate(const char* name, Calls calls = Writes);
    // The next such call waits; "get Width", or "set Width", which is one with any value.
    void hold(const QString& call)
    {
        locked([&] { m_toHold.append(call); });
    }
    // How many calls wait now.
    int held() const { return copied(m_held); }
    bool isHolding() const { return held() > 0; }
    void release(const QString& call);
    // Releases all, too.
    void openGate();

    // What arrived, in order: "get Width", "set Width=640", "mode Width".
    QStringList calls() const { return copied(m_calls); }
    // Of these the writes: "Name" or "Name=text".
    QStringList writes() const;
    int writesOf(const char* name) const;
    // The most writes of the name that ran at the same time.
    int mostAtOnce(const char* name) const;
    void forget();

private:
    struct Failure
    {
        int code;
        Calls calls;
    };
    static constexpr int kOwnMode = -1;
    void setMode(const char* name, int mode)
    {
        locked([&] { m_modes[name] = mode; });
    }
    // A call has come, which may have to wait; with the mutex locked. Its code, or 0.
    int pass(std::unique_lock<std::mutex>& lock, Calls kind, const std::string& name,
             const QString& call);

    Camera& camera() const { return *m_camera; }

    std::atomic<Camera*> m_camera; // Not owned.
    std::string m_xml;
    std::condition_variable m_opened;
    std::map<std::string, Failure> m_failures;
    std::map<std::string, int> m_modes;
    std::map<std::string, qint64> m_increments;
    std::string m_gated;
    Calls m_gatedCalls = Writes;
    int m_held = 0;
    std::atomic<bool> m_unplugged{false};
    QStringList m_toHold;
    QStringList m_holding;
    QStringList m_calls;
    std::map<std::string, int> m_running;
    std::map<std::string, int> m_most;
};
