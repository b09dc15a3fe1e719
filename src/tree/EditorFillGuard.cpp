// SPDX-License-Identifier: Apache-2.0
#include "tree/EditorFillGuard.h"

#include <QWidget>

EditorFillGuard::EditorFillGuard(const QWidget* editor, const QMetaMethod& commit,
                                 const QObject* receiver, const QMetaMethod& slot)
    : m_editor(editor)
    , m_commit(commit)
    , m_receiver(receiver)
    , m_slot(slot)
{
    QObject::disconnect(m_editor, nullptr, m_receiver, nullptr);
}

EditorFillGuard::~EditorFillGuard()
{
    if (m_commit.isValid())
        QObject::connect(m_editor, m_commit, m_receiver, m_slot);
}
