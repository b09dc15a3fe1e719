// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

// The get and get-mode calls that hosts of the tests received on the GUI thread, where each would
// freeze the window for as long as the camera takes. Bases of tests of the window fail a test
// function that caused one (GuardedTest::failsOnGuiThreadReads).
//
// | operation                  | thread | lock   |
// |----------------------------|--------|--------|
// | note                       | any    | inside |
// | take, the scopes           | GUI    | inside |
namespace GuiThreadReads {

// For hosts: a call has come. `kind` is "get" or "mode".
void note(const char* kind, const QString& name);

// Calls since the last take(), as "get Width on the GUI thread".
QStringList take();

// While one lives, reads on the GUI thread are right.
class Scope
{
public:
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

protected:
    explicit Scope(int& depth)
        : m_depth(depth)
    {
        ++m_depth;
    }
    ~Scope() { --m_depth; }

private:
    int& m_depth;
};

// The host's callbacks are being installed: "ChunkModeActive" may be asked for.
struct InstallingCallbacks : Scope
{
    InstallingCallbacks();
};

// The test itself calls an operation whose contract is to read in this thread.
struct ReadingHere : Scope
{
    ReadingHere();
};

} // namespace GuiThreadReads
