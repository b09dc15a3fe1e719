// SPDX-License-Identifier: Apache-2.0
#include "tree/EditorFillGuard.h"

#include "tree/ORXPropertyTreeDelegate.h"

EditorFillGuard::EditorFillGuard(QWidget* editor, const ORXPropertyTreeDelegate* delegate)
    : m_editor(editor)
    , m_delegate(delegate)
{
    QObject::disconnect(m_editor, nullptr, m_delegate, nullptr);
}

EditorFillGuard::~EditorFillGuard()
{
    m_delegate->connectCommit(m_editor);
}
