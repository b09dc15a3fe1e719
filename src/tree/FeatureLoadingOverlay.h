// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class IORXFeatureWidget;
class QString;

// The overlay on a page's window while the page's features are written or read. Never shown without
// a camera. Owned by its page; GUI thread.
class FeatureLoadingOverlay
{
public:
    explicit FeatureLoadingOverlay(const IORXFeatureWidget* page);

    void show(const QString& text) const;
    void hide() const;
    // With the words for writing or for reading. Reading shows for devices of type 8 only.
    void showFor(bool setting);
    void hideFor(bool setting) const;
    // The language has changed.
    void retranslate() const;

private:
    bool applies(bool setting) const;
    int index() const;
    QString text() const;

    const IORXFeatureWidget* m_pPage; // Not owned.
    bool m_bSetting = false;          // what it was shown for last
};

// Index of a camera's loading overlay.
int getLoadingIndex(int deviceType, qint64 cameraId);
