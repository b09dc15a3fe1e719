// SPDX-License-Identifier: Apache-2.0
#include "reading/PassAdmission.h"

namespace PassAdmission {

namespace {

// How a request meets the pass before it.
enum class Meeting { Refuse, Join, RunAfter, Abandon };

// Polling gives way to everything else and is superfluous while something runs that ends; a pass
// over lockable features starts again when acquisition changes once more. Whatever else comes waits
// for its turn.
Meeting meeting(_FEATURES_UPDATE_TYPE_ current, _FEATURES_UPDATE_TYPE_ wanted)
{
    using M = Meeting;
    constexpr int kTypes = 4;
    static const M kTable[kTypes][kTypes] = {
        // wanted: all, invalidated, lockable, polling
        {M::Join, M::RunAfter, M::RunAfter, M::Refuse},      // all
        {M::RunAfter, M::Join, M::RunAfter, M::RunAfter},    // invalidated
        {M::RunAfter, M::RunAfter, M::Abandon, M::RunAfter}, // lockable
        {M::Abandon, M::Abandon, M::Abandon, M::Refuse},     // polling
    };
    if (current < 0 || current >= kTypes || wanted < 0 || wanted >= kTypes)
        return M::Abandon;
    return kTable[current][wanted];
}

// What a pass over the whole tree leaves to be done for one that is wanted now: everything when it
// refreshes less, else what it has begun already. Nothing is left when it has not begun anything.
bool restAfter(const ReadingPass& running, const ReadingPass& wanted, QSet<QString>& rest)
{
    if (!running.only.isEmpty() || !running.covers(wanted.flags)) {
        rest.clear();
        return true;
    }
    rest = running.begun;
    return !rest.isEmpty();
}

// The same pass is not made twice: one that waits takes over what is asked for.
bool joinWaiting(const ReadingPass& wanted, std::deque<ReadingPass>& waiting,
                 const ReadingPass* running)
{
    for (ReadingPass& pass : waiting) {
        if (pass.type != wanted.type)
            continue;
        pass.flags |= wanted.flags;
        // One that was to cover what the running pass has passed covers what that has passed now.
        const bool follows = running && running->type == FEATURES_UPDATE_ALL;
        if (!pass.only.isEmpty() && !(follows && restAfter(*running, pass, pass.only)))
            pass.only.clear();
        return true;
    }
    return false;
}

Answer meetWaiting(const ReadingPass& wanted, std::deque<ReadingPass>& waiting)
{
    switch (meeting(waiting.back().type, wanted.type)) {
    case Meeting::Refuse:
        return Answer::Refused;
    case Meeting::Abandon:
        // Polling ends only when it is abandoned: begun now, it would run before this for ever.
        waiting.pop_back();
        break;
    case Meeting::Join:
    case Meeting::RunAfter:
        break;
    }
    waiting.push_back(wanted);
    return Answer::Accepted;
}

Answer meetRunning(const ReadingPass& wanted, std::deque<ReadingPass>& waiting,
                   const ReadingPass& running)
{
    ReadingPass pass = wanted;
    Answer answer = Answer::Accepted;
    switch (meeting(running.type, wanted.type)) {
    case Meeting::Refuse:
        return Answer::Refused;
    case Meeting::Join:
        if (wanted.type == FEATURES_UPDATE_INVALIDATED && running.takesNames)
            return Answer::Accepted;
        if (wanted.type == FEATURES_UPDATE_ALL && !restAfter(running, wanted, pass.only))
            return Answer::Refused;
        break;
    case Meeting::Abandon:
        answer = Answer::Replaces;
        break;
    case Meeting::RunAfter:
        break;
    }
    waiting.push_back(pass);
    return answer;
}

} // namespace

Answer admit(const ReadingPass& wanted, std::deque<ReadingPass>& waiting,
             const ReadingPass* running)
{
    if (joinWaiting(wanted, waiting, running))
        return Answer::Accepted;
    if (!waiting.empty())
        return meetWaiting(wanted, waiting);
    if (running)
        return meetRunning(wanted, waiting, *running);
    waiting.push_back(wanted);
    return Answer::Accepted;
}

} // namespace PassAdmission
