// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"

#include <QCoreApplication>
#include <QString>

class ORXFeatureTree;
class QVariant;

// Writes values and executes commands for a tree, one handler for each tag, and reports the outcome
// to the log and the user. Owned by its tree; GUI thread. Every handler returns true on success.
class FeatureWriter
{
public:
    explicit FeatureWriter(ORXFeatureTree* tree);

    // Dispatches by tag; false for tags without a handler.
    bool write(const QString& tag, const QString& name, const QVariant& value);
    static bool hasHandler(FeatureTag tag);

    bool writeInteger(const QString& name, qint64 value);
    bool writeFloat(const QString& name, float value);
    bool writeEnumeration(const QString& name, int value);
    bool writeBoolean(const QString& name, int value);
    bool writeString(const QString& name, const QString& value);
    // Also true when the camera refuses the command; that is only logged.
    bool executeCommand(const QString& name);

    // The name that the invalidation pass reads again.
    QString lastWrittenFeature() const { return m_strLastWritten; }
    // The next "AcquisitionStart" is swallowed: the user asked for a stop.
    void skipNextAcquisitionStart() { m_bSkipAcquisitionStart = true; }

private:
    using Handler = bool (FeatureWriter::*)(const QString& name, const QVariant& value);
    static Handler handlerOf(FeatureTag tag);

    bool handleInteger(const QString& name, const QVariant& value);
    bool handleFloat(const QString& name, const QVariant& value);
    bool handleEnumeration(const QString& name, const QVariant& value);
    bool handleBoolean(const QString& name, const QVariant& value);
    bool handleString(const QString& name, const QVariant& value);
    bool handleCommand(const QString& name, const QVariant& value);

    bool finish(bool written, const QString& name, const QString& shownValue, int error);
    bool afterDeviceReset();

    ORXFeatureTree* m_pTree; // Not owned.
    QString m_strLastWritten;
    bool m_bSkipAcquisitionStart = false;
};
