// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/private/ZELThemeData.h"

#include <QSet>

#include <atomic>
#include <shared_mutex>

// The process's theme: the compiled-in theme and everything loaded on top. Look-ups are safe from
// any thread; load() is called on the GUI thread only.
class ZELThemeStore
{
public:
    static ZELThemeStore& instance();

    // False: nothing changed; the reason is in the log.
    bool load(const QString& path);

    QColor color(const QString& key) const;
    QBrush brush(const QString& key) const;
    bool contains(const QString& key) const;
    QString sheet(int number) const;
    QString resolveSheet(const QString& text) const;

    // Grows by one with each file loaded; tells caches that they are stale.
    int generation() const { return m_generation; }

private:
    ZELThemeStore();
    QColor fallback(const QString& normalKey) const;

    mutable std::shared_mutex m_mutex; // Guards m_data and m_reported.
    ZELThemeData m_data;
    mutable QSet<QString> m_reported; // Unknown keys and numbers already in the log.
    std::atomic<int> m_generation{0};
};
