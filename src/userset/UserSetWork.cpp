// SPDX-License-Identifier: Apache-2.0
#include "userset/UserSetWork.h"

#include "userset/UserSetFeatures.h"

#include <QCoreApplication>
#include <QDebug>

using namespace UserSetTable;

UserSetWork::UserSetWork(UserSetFeatures& features, QObject* dialog)
    : m_features(features)
    , m_pDialog(dialog)
{
}

UserSetWork::Outcome UserSetWork::run(const Button& button)
{
    const bool loads = button.action == Action::Load;
    const bool written = button.action == Action::PowerUp
                             ? m_features.write(PowerUp, button.setValue)
                             : saveOrLoad(loads ? Load : Save, button.setValue);
    const bool finished = !loads || waitForLoad();
    if (m_bClosed)
        return Outcome::Closed;
    if (!written)
        return Outcome::Refused;
    return finished ? Outcome::Done : Outcome::NotConfirmed;
}

bool UserSetWork::saveOrLoad(Feature command, int setValue)
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (m_bClosed)
        return false;
    return m_features.write(Selector, setValue) && m_features.execute(command);
}

// Also after a refused load: the camera may be loading all the same. False when the camera has not
// said that it has finished.
bool UserSetWork::waitForLoad()
{
    if (m_bClosed || !m_features.item(LoadStatus))
        return !m_bClosed;
    // What was told before the command is no news.
    QCoreApplication::sendPostedEvents(m_pDialog, QEvent::MetaCall);
    UserSetLoadWait wait(m_features.tree(), m_features.item(LoadStatus), m_limits);
    if (m_bClosed || !wait.canWait())
        return !m_bClosed;
    m_pWait = &wait;
    const UserSetLoadWait::Outcome outcome = wait.run();
    m_pWait = nullptr;
    if (outcome == UserSetLoadWait::Outcome::TimedOut)
        qCritical("Loading a user set: the status still says that it is loading after %d s",
                  m_limits.longestMs / 1000);
    else if (outcome == UserSetLoadWait::Outcome::CameraLost)
        qCritical("%s", "Loading a user set: the camera does not answer any more");
    return outcome == UserSetLoadWait::Outcome::Ended;
}

void UserSetWork::noteLoadStatus(bool loading)
{
    if (m_pWait)
        m_pWait->noteReading(loading);
}

void UserSetWork::setClosed(bool closed)
{
    m_bClosed = closed;
    if (closed && m_pWait)
        m_pWait->abandon();
}
