// SPDX-License-Identifier: Apache-2.0
#include "userset/UserSetLoadWait.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ORXFeatureTree.h"

namespace {

// The first may have begun before the load.
constexpr int kReadingsToTrust = 2;

const QLatin1String kInvisible("Invisible");

} // namespace

UserSetLoadWait::UserSetLoadWait(ORXFeatureTree* tree, ORXPropertyTreeItem* status,
                                 const Limits& limits)
    : m_pTree(tree)
    , m_pStatus(status)
    , m_limits(limits)
{
    m_timer.setInterval(m_limits.checkMs);
    connect(&m_timer, &QTimer::timeout, this, &UserSetLoadWait::check);
}

bool UserSetLoadWait::canWait() const
{
    if (!m_pTree || !ORXPropertyTreeItem::isAlive(m_pStatus) || !m_pStatus->value())
        return false;
    const FeatureNodePtr node =
        m_pTree->descriptionIndex().GetDomElementNode(m_pStatus->value()->nodeName(0));
    const bool hiddenOnPurpose = node && node->visibility == kInvisible;
    return hiddenOnPurpose || m_pStatus->visibilityString() != kInvisible;
}

UserSetLoadWait::Outcome UserSetLoadWait::run()
{
    if (m_bFinished)
        return m_outcome;
    m_sinceStart.start();
    askAgain();
    m_timer.start();
    m_loop.exec();
    m_timer.stop();
    return m_outcome;
}

void UserSetLoadWait::noteReading(bool loading)
{
    ++m_nReadings;
    m_sinceLost.invalidate();
    if (loading)
        m_sinceCalm.invalidate();
    else if (m_nReadings >= kReadingsToTrust)
        finish(Outcome::Ended);
    else
        m_sinceCalm.start();
}

void UserSetLoadWait::abandon()
{
    finish(Outcome::Abandoned);
}

void UserSetLoadWait::finish(Outcome outcome)
{
    if (m_bFinished)
        return;
    m_bFinished = true;
    m_outcome = outcome;
    m_loop.quit();
}

void UserSetLoadWait::check()
{
    if (!m_pTree || !ORXPropertyTreeItem::isAlive(m_pStatus))
        finish(Outcome::Abandoned);
    else if (m_sinceCalm.isValid() && m_sinceCalm.hasExpired(m_limits.calmMs))
        finish(Outcome::Ended);
    else if (m_sinceStart.hasExpired(m_limits.longestMs))
        finish(Outcome::TimedOut);
    else if (isLost())
        finish(Outcome::CameraLost);
    else if (m_sinceAsked.hasExpired(m_limits.askMs))
        askAgain();
}

// A pass marks a feature like this when the camera refuses to tell its access mode, or says that
// there is none. For a moment that may happen while the settings change.
bool UserSetLoadWait::isLost()
{
    if (canWait())
        m_sinceLost.invalidate();
    else if (!m_sinceLost.isValid())
        m_sinceLost.start();
    return m_sinceLost.isValid() && m_sinceLost.hasExpired(m_limits.lostMs);
}

void UserSetLoadWait::askAgain()
{
    m_sinceAsked.start();
    if (!m_pTree || !ORXPropertyTreeItem::isAlive(m_pStatus) || !m_pStatus->value())
        return;
    // Views hear only of readings that differ from the one before; here every reading counts.
    m_pStatus->value()->exchangeStatus(QString());
    m_pTree->rereadInvalidated(m_pStatus->value()->nodeName(0));
}
