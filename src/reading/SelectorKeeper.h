// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>

// The number of the entry that an enumeration of the camera stands at; none when it cannot be read.
std::optional<quint32> readEntryNumber(const QString& enumeration);

// Moves a selector of the camera and puts it back where it was, whatever happens meanwhile: also
// after a failure or a stop. A local of a worker, which holds the tree's feature mutex.
class SelectorKeeper
{
public:
    // Asks where the selector stands.
    explicit SelectorKeeper(const QString& selector);
    ~SelectorKeeper();
    SelectorKeeper(const SelectorKeeper&) = delete;
    SelectorKeeper& operator=(const SelectorKeeper&) = delete;

    // Whether the selector could be read; one that could not is never put back.
    bool isKnown() const { return m_before.has_value(); }
    // False when the camera refuses, with its code in `error` (may be null).
    bool select(quint32 entry, int* error);

private:
    const QString m_selector;
    const std::optional<quint32> m_before;
    std::optional<quint32> m_now;
};
