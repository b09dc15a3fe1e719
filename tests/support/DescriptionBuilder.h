// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

// Writes small feature descriptions for tests from the inner elements alone, and large ones for
// measurements.
namespace DescriptionBuilder {

// A whole description of the given elements.
QByteArray wrap(const QString& elements);
// A category element that lists features or categories.
QString category(const QString& name, const QStringList& features);
// An element with a name and inner elements.
QString node(const QString& tag, const QString& name, const QString& inner = QString());
// A child element with text.
QString child(const QString& tag, const QString& text);

// What a generated description holds.
struct Size
{
    int features = 700;
    int categories = 80;
    int entries = 2200;
    int nodes = 3000; // all named nodes, registers included
    int invalidators = 9000;
    int polled = 130;
    int lockable = 200;

    // The same proportions for another number of features.
    static Size ofFeatures(int features);
};
QByteArray generate(const Size& size);
// Of 60 features in 6 categories.
QByteArray generateSmall();
// Names of the features of a generated description.
QStringList featureNames(const Size& size);

// Elements in short, each a tag, a name and children of plain text: "Integer Width pIsLocked=Lock;
// IntSwissKnife Lock pVariable=Mode,Gain" (a child for each of the two).
QString elements(const char* text);

} // namespace DescriptionBuilder
