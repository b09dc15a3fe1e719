// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/OBDeviceControl.h"
#include "model/CTreeIntergerItemValue.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

// Base of tests of one reading thread: its passes over the items of a description that a host in
// memory serves.
class PassTest : public GuardedTest, public IFeatureReadingOwner
{
public:
    FeatureMutex* GetFeatureMutex() override { return &m_mutex; }
    void EmitPollingFeatureChanged(const QString& name) override
    {
        if (name == QLatin1String("Polled"))
            ++m_polled;
    }

protected:
    using Flags = QGetFeaturesThread::UpdateFlags;

    explicit PassTest(const QByteArray& xml)
        : m_xml(xml)
    {
    }
    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        m_host->serve(m_xml);
        m_host->install();
        m_host->clearCalls();
        m_polled = m_ended = 0;
        m_thread = std::make_unique<QGetFeaturesThread>(this, nullptr);
        connect(
            m_thread.get(), &QGetFeaturesThread::sigThreadEnd, this, [this] { ++m_ended; },
            Qt::DirectConnection);
        load(m_xml);
    }
    void finish() override
    {
        m_host->pace().openAllGates();
        m_thread.reset();
        m_description.reset();
        FakeHost::uninstall();
        OBDeviceControl::SetUserLevel(1);
    }

    void load(const QByteArray& xml, bool pollingEmits = false)
    {
        m_description = std::make_unique<LoadedDescription>(xml);
        m_thread->SetInitThreadInfo(
            1, pollingEmits, m_description->index.nodes(), m_description->builder.AllTreeItemsMap(),
            m_description->index.lockableFeatures(), m_description->index.polling());
    }
    ORXPropertyTreeItem* item(const QString& name) const
    {
        return m_description->item(name.toLatin1().constData());
    }
    void request(int flags, _FEATURES_UPDATE_TYPE_ type = FEATURES_UPDATE_ALL,
                 const QStringList& names = {})
    {
        m_thread->SetThreadInfo(type, names, Flags(flags));
        m_thread->startPass();
    }
    // Asks for a pass and holds it at the feature, or lets it go on to another one.
    void requestAndHold(const QString& name, int flags,
                        _FEATURES_UPDATE_TYPE_ type = FEATURES_UPDATE_ALL,
                        const QStringList& names = {})
    {
        m_host->pace().closeGate(name);
        request(flags, type, names);
        QTRY_COMPARE(m_host->pace().waitingAt(name), 1);
    }
    void goOnTo(const QString& held, const QString& next)
    {
        m_host->pace().closeGate(next);
        m_host->pace().openGate(held);
        QTRY_COMPARE(m_host->pace().waitingAt(next), 1);
    }
    void goOn() { m_host->pace().openAllGates(); }
    void end()
    {
        goOn();
        m_thread->waitUntilIdle();
    }
    int reads(const char* name) const { return m_host->count("get "_s + QLatin1String(name)); }

    const QByteArray m_xml;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<LoadedDescription> m_description;
    std::unique_ptr<QGetFeaturesThread> m_thread;
    FeatureMutex m_mutex;
    // Counted on the worker itself: a QSignalSpy would be written there and read here.
    std::atomic<int> m_ended{0};
    std::atomic<int> m_polled{0};
};
