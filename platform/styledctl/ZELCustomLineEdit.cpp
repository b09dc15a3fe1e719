// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLineEdit.h"

#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELGlyph.h"

#include <QAction>
#include <QKeyEvent>

ZELCustomLineEdit::ZELCustomLineEdit(QWidget* parent, StyleSelector style)
    : QLineEdit(parent)
    , ZELCustomLook(this, style)
{
}

void ZELCustomLineEdit::cSetSearchEnabled(bool enable)
{
    if (enable == cIsSearchEnabled())
        return;
    if (!enable) {
        delete m_search;
        delete m_clear;
        m_search = m_clear = nullptr;
        return;
    }
    const ZELColors& colors = ZELColors::current();
    m_search = addAction(ZELGlyph::icon(ZELGlyph::Search, colors.textMuted, colors.text),
                         QLineEdit::LeadingPosition);
    connect(m_search, &QAction::triggered, this, &ZELCustomLineEdit::cSigSearchClicked);
    m_clear = addAction(ZELGlyph::icon(ZELGlyph::Close, colors.textMuted, colors.text),
                        QLineEdit::TrailingPosition);
    m_clear->setVisible(!text().isEmpty());
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, m_clear,
            [this](const QString& text) { m_clear->setVisible(!text.isEmpty()); });
    translate();
}

void ZELCustomLineEdit::translate()
{
    if (!m_search)
        return;
    m_search->setToolTip(tr("Search"));
    m_clear->setToolTip(tr("Clear"));
}

void ZELCustomLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (m_search && event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        return;
    }
    QLineEdit::keyPressEvent(event);
    if (m_search && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        emit cSigSearchClicked();
}

void ZELCustomLineEdit::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}
