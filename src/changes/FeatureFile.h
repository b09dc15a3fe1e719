// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

// A text file of feature values: UTF-8, one "Name<TAB>Value" a line, "#" begins a comment line. In
// values a backslash, a tab and the line breaks are written "\\", "\t", "\n" and "\r". A line of a
// selector says where the selector stands for the lines behind it. Knows no camera.
struct FeatureFile
{
    Q_DECLARE_TR_FUNCTIONS(FeatureFile)
public:
    struct Line
    {
        int number = 0; // in the file, from 1
        QString name;
        QString value;
    };
    enum class FaultKind {
        NotUtf8,
        NoTab,
        NoName,
        SecondTab,
        BadEscape, // a backslash that nothing known follows
        Repeated,  // a second value for the same place; see FeatureFileCheck
        TooLarge   // of the whole file, line 0
    };
    struct Fault
    {
        int number = 0;
        FaultKind kind = FaultKind::NotUtf8;
        QString name;  // of Repeated
        int first = 0; // of Repeated: the line with the other value

        QString text() const; // one sentence in the interface language, with the line's number
    };

    static constexpr int kMaxBytes = 16 * 1024 * 1024;

    // The camera that the file was saved from; may be empty.
    QString model;
    QVector<Line> lines;
    QVector<Fault> faults;

    void append(const QString& name, const QString& value);

    // Nothing of a faulty file is to be used.
    static FeatureFile parse(const QByteArray& bytes);
    // `remarks` become comments behind the head.
    QByteArray toBytes(const QStringList& remarks) const;
};
