// SPDX-License-Identifier: Apache-2.0
#include "device/GuiNotices.h"

#include "device/NoticeQueue.h"

#include <utility>

GuiNotices::GuiNotices()
    : m_queue(NoticeQueue::shared())
{
}

GuiNotices::~GuiNotices()
{
    m_queue->drop(this);
}

void GuiNotices::tell(Notice notice)
{
    if (m_queue->isOnItsThread())
        notice();
    else
        m_queue->add(this, std::move(notice));
}

void GuiNotices::behindWaiting(const Notice& notice)
{
    if (!m_queue->addBehindWaiting(this, notice))
        notice();
}
