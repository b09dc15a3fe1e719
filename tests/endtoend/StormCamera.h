// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureDescriptionIndex.h"
#include "support/FakeHost.h"

#include <QHash>

#include <atomic>
#include <random>

class ORXPropertyTreeItem;

// A host in memory for the storm: slow by turns, with writes that change other features, features
// that change by themselves, features that come and go, and calls that fail.
//
// | operation             | thread | lock                            |
// |-----------------------|--------|---------------------------------|
// | host callbacks        | any    | FakeHost's own, atomics         |
// | everything else       | GUI    | none                            |
class StormCamera
{
public:
    explicit StormCamera(unsigned seed);

    static QByteArray description();
    FakeHost& host() { return m_host; }
    // Whom a write changes; from the tree that was built of the description.
    void follow(const FeatureDescriptionIndex& index);

    // Polled features change by themselves.
    void setMoving(bool moving) { m_moving = moving; }
    // Polled features come and go with every look; some calls fail.
    void setFaulty(bool faulty, std::mt19937& random);
    // What the item says is what the camera holds.
    bool agrees(ORXPropertyTreeItem* item) const;

private:
    void change(const QString& name);

    FakeHost m_host;
    QHash<QString, QStringList> m_followers;
    std::atomic<bool> m_moving{false};
    std::atomic<int> m_changes{0};
};
