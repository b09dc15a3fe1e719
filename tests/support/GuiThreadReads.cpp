// SPDX-License-Identifier: Apache-2.0
#include "support/GuiThreadReads.h"

#include <QCoreApplication>
#include <QThread>

#include <mutex>

namespace {

std::mutex s_mutex;
QStringList s_reads; // guarded by s_mutex
// GUI thread only.
int s_installing = 0;
int s_readingHere = 0;

bool isAllowed(const QString& name)
{
    return s_readingHere > 0 || (s_installing > 0 && name == QLatin1String("ChunkModeActive"));
}

} // namespace

void GuiThreadReads::note(const char* kind, const QString& name)
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (!application || QThread::currentThread() != application->thread() || isAllowed(name))
        return;
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_reads.append(QStringLiteral("%1 %2 on the GUI thread").arg(QLatin1String(kind), name));
}

QStringList GuiThreadReads::take()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    QStringList reads;
    reads.swap(s_reads);
    return reads;
}

GuiThreadReads::InstallingCallbacks::InstallingCallbacks()
    : Scope(s_installing)
{
}

GuiThreadReads::ReadingHere::ReadingHere()
    : Scope(s_readingHere)
{
}
