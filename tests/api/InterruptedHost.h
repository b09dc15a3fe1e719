// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/FakeHost.h"
#include "support/Literals.h"

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
struct InterruptedHost : FakeHost
{
    explicit InterruptedHost(const QByteArray& description)
    {
        serve(description);
        afterCall = [this](const QString& call) {
            const bool onGuiThread = QThread::currentThread() == qApp->thread();
            static const QHash<QString, Place> kPlaces = {{"set"_s, InSet},
                                                          {"invalidate"_s, InInvalidate},
                                                          {"action"_s, InAction},
                                                          {"get"_s, InGet},
                                                          {"mode"_s, InMode}};
            int place = kPlaces.value(call.section(QLatin1Char(' '), 0, 0));
            if (!onGuiThread && (place == InGet || place == InMode))
                place = ReadingThread;
            if (m_place.compare_exchange_strong(place, Idle))
                m_todo();
        };
    }

    // In the next call of that callback.
    void inNext(Place place, const std::function<void()>& todo)
    {
        m_todo = todo;
        m_place = place;
    }

private:
    std::atomic<int> m_place{Idle};
    std::function<void()> m_todo; // read only by whoever took m_place
};
