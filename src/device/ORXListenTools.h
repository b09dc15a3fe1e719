// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <array>
#include <vector>

class IORXListen;

// Codes of the notifications that pass through ORXListenTools, with their payloads.
namespace ListenCode {
constexpr int kBeforeTreeRemoved = 3;  // qint64*: key of the camera whose tree goes
constexpr int kFavoritesChanged = 6;   // qint64*: key of the tree that changed them
constexpr int kFeatureChanged = 7;     // NamedFeature*: one feature is to be read again
constexpr int kDrawModeChanged = 8;    // DrawModeChange* of the image processing page
constexpr int kFirstReadEnded = 18;    // qint64*: key of the camera whose tree was read
constexpr int kFeatureChangedOsd = 19; // null
constexpr int kCommitPendingEdit = 28; // null: the focused editor commits its text
} // namespace ListenCode

// Payload of ListenCode::kDrawModeChanged.
struct DrawModeChange
{
    quint8 zero;
    quint8 on;
    qint32 page; // ORXPropertyTreeItem::ParentType of the sender
    qint32 mode;
    qint64 cameraId;
    void* sender; // the page; not owned
};

// Payload of ListenCode::kFeatureChanged.
struct NamedFeature
{
    qint64 lCameraID;
    const char* pName; // local 8-bit text, NUL-terminated
};

// Process-wide synchronous publish-and-subscribe registry for widgets. GUI thread only: worker
// threads reach it through queued signals. Holds listeners without owning them.
class ORXListenTools
{
public:
    // Listeners of a lower level are called first.
    enum PriorityLevel { PriorityHigh = 0, PriorityNormal = 1, PriorityLow = 2 };

    static ORXListenTools* instance();
    // Destroys the registry; the next instance() is empty.
    static void release();

    // A listener stands once at each level at the most; levels other than 0 to 2 are ignored.
    void addListener(IORXListen* listener, PriorityLevel level);
    // Removes one entry: the first one of the lowest level that holds the listener.
    void removeListener(IORXListen* listener);

    // Calls every listener before it returns. Listeners may add or remove listeners meanwhile: an
    // added one is called in the same pass, a removal may make the pass skip one.
    void notifyListeners(int code, void* data);
    void notifySpecifiedListener(IORXListen* listener, int code, void* data);

private:
    static ORXListenTools* m_pInstance;                  // Owned.
    std::array<std::vector<IORXListen*>, 3> m_listeners; // Not owned.
};
