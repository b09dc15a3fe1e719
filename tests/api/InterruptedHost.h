// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"
#include "support/FakeHost.h"
#include "support/GuiThreadReads.h"

#include <QApplication>
#include <QThread>

#include <atomic>
#include <functional>

// Places from which a host can call the library.
enum Place {
    Idle,
    WhileReading,
    InSet,
    InInvalidate,
    InAction,
    InGet,  // of the question that OB_FT_SetCallBackFunc asks
    InMode, // the same
    NestedLoop,
    MessageBox,
    FileDialog,
    ContextMenu,
    ComboList,
    Drag,
    ReadingThread, // refused
    OtherThread    // refused
};

// A host whose callbacks do something more, once.
struct InterruptedHost
{
    explicit InterruptedHost(const QByteArray& description) { fake.serve(description); }

    int install()
    {
        const GuiThreadReads::InstallingCallbacks installing;
        return OB_FT_SetCallBackFunc(
            [](int type, char* name, void* value, void* user) {
                const int code = FakeHost::getFeature(type, name, value, fakeOf(user));
                return enter(user, onGuiThread() ? InGet : ReadingThread, code);
            },
            [](int type, char* name, char* value, void* user) {
                return enter(user, InSet, FakeHost::setFeature(type, name, value, fakeOf(user)));
            },
            [](char* name, int* mode, void* user) {
                const int code = FakeHost::getMode(name, mode, fakeOf(user));
                return onGuiThread() ? enter(user, InMode, code) : code;
            },
            [](void* user) {
                return enter(user, InInvalidate, FakeHost::invalidate(fakeOf(user)));
            },
            [](int action, void* user) {
                return enter(user, InAction, FakeHost::action(action, fakeOf(user)));
            },
            this);
    }

    // In the next call of that callback.
    void inNext(Place place, const std::function<void()>& todo)
    {
        m_todo = todo;
        m_place = place;
    }

    FakeHost fake;

private:
    static FakeHost* fakeOf(void* user) { return &static_cast<InterruptedHost*>(user)->fake; }
    static bool onGuiThread() { return QThread::currentThread() == qApp->thread(); }
    static int enter(void* user, Place place, int code)
    {
        auto* host = static_cast<InterruptedHost*>(user);
        int expected = place;
        if (host->m_place.compare_exchange_strong(expected, -1))
            host->m_todo();
        return code;
    }

    std::atomic<int> m_place{-1};
    std::function<void()> m_todo; // read only by whoever took m_place
};
