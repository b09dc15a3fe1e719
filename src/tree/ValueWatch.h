// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/IORXFeatureNotify.h"
#include "tree/ValueChange.h"

#include <QHash>
#include <QObject>
#include <QVector>

#include <functional>
#include <mutex>
#include <optional>

// Finds out which values of a tree's items change, and why: for the marks in the rows, the journal
// and the trend. Reads nothing from the host. The first value that is read of a feature is no
// change. A value that is read again and has not changed is not told at all: it stands until a
// change says otherwise. Owned by the tree.
//
// | operation                         | thread                     | lock                        |
// |-----------------------------------|----------------------------|-----------------------------|
// | itemValueChanged                  | GUI or reading             | its own, below item state   |
// | steadyMs, setClock                | any                        | its own, inside             |
// | everything else                   | GUI                        | its own for moments, inside |
class ValueWatch : public QObject, public IORXFeatureNotify
{
    Q_OBJECT
public:
    explicit ValueWatch(QObject* parent = nullptr);
    ~ValueWatch() override;

    // Watches the items from now on, in the place of those before. They must live until the next
    // call or the end of the watch. Whether one is polled is asked at its first change.
    using IsPolled = std::function<bool(const QString& name)>;
    void watch(const QVector<ORXPropertyTreeItem*>& items, const IsPolled& isPolled = {});

    // The user has written the feature; what changes next of these is its doing.
    void noteWritten(const QString& name, const QStringList& invalidated);
    // What the writes so far have invalidated was read.
    void noteRereadEnded();
    void noteExecuted(const QString& command);

    // A value as it was read last, and since when it has stood; invalid until it was read.
    struct Held
    {
        QVariant value;
        qint64 sinceMs = 0; // by steadyMs()
    };
    Held held(ORXPropertyTreeItem* item) const;

    // Milliseconds on a clock that nobody sets back; only differences mean something.
    qint64 steadyMs() const;
    // Another source for them, which is asked on every thread that reads.
    using Clock = std::function<qint64()>;
    void setClock(const Clock& clock);

    void itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                          bool needRecreateEditor) override;

signals:
    // What changed since the last time, in the order of the reads.
    void SigChanged(const QVector<ValueChange>& changes);
    // Values were read that nobody has looked at yet. Emitted on the thread that reads.
    void SigRead(QPrivateSignal);

private:
    struct Read
    {
        ORXPropertyTreeItem* item; // Not owned; one of m_known.
        QVariant value;
        qint64 steadyMs;
    };
    struct Known
    {
        QString name;
        std::optional<bool> isPolled;
        Held held;
    };
    void forget();
    void takeReads();
    bool isPolled(Known& known) const;

    mutable std::mutex m_mutex;
    Clock m_clock;                              // guarded by m_mutex
    QVector<Read> m_reads;                      // guarded by m_mutex
    QHash<ORXPropertyTreeItem*, Known> m_known; // GUI thread only
    QHash<QString, QString> m_causes;           // invalidated feature -> written one
    IsPolled m_isPolled;
};
