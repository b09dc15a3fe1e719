// SPDX-License-Identifier: Apache-2.0
#include "tree/ReadOnlyReasonLine.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ReadOnlyReason.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextDocument>

#include <cmath>

namespace {

constexpr int kFontPx = 13;
constexpr int kPaddingPx = 2; // above and below
constexpr int kBorderPx = 1;  // above; see the style sheet
constexpr int kMostLines = 2; // what is more scrolls

QString styled(const QString& html)
{
    static const QString colour =
        ZELCustom::getDataBaseColor(QStringLiteral("StyledCtlColor_Accent")).name();
    QString shown = html;
    shown.replace(QLatin1String("<a href="),
                  QStringLiteral("<a style=\"color:%1\" href=").arg(colour));
    return shown;
}

QString focusedLink(QTextCursor cursor)
{
    if (!cursor.hasSelection())
        return {};
    // The format at a place is that of what stands before it.
    cursor.setPosition(cursor.selectionEnd());
    return cursor.charFormat().anchorHref();
}

} // namespace

ReadOnlyReasonLine::ReadOnlyReasonLine(const ReadOnlyReason& reason, QWidget* parent)
    : QTextBrowser(parent)
    , m_reason(reason)
{
    setObjectName(QStringLiteral("ReadOnlyReason"));
    setOpenLinks(false);
    new ZELTouchScrolling(this);
    setFocusPolicy(Qt::NoFocus);
    setFont(ZELCustom::font(kFontPx));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    ZELLateSheet::set(this,
                      ZELCustom::styleSheet(ZELCustom::Sheet_TextPanel) +
                          ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar) +
                          QStringLiteral("QTextEdit { padding: %1px 10px; }").arg(kPaddingPx));
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        emit SigShowFeature(ReadOnlyReason::featureOf(link.toString(QUrl::FullyEncoded)));
    });
    hide();
}

void ReadOnlyReasonLine::showItem(const ORXPropertyTreeItem* item)
{
    m_pItem = item;
    refresh();
}

void ReadOnlyReasonLine::itemChanged(const ORXPropertyTreeItem& item)
{
    if (&item == m_pItem || (item.value() && m_deciders.contains(item.value()->nodeName(0))))
        refresh();
}

void ReadOnlyReasonLine::refresh()
{
    if (!ORXPropertyTreeItem::isAlive(m_pItem)) {
        m_pItem = nullptr;
        m_deciders.clear();
        showHtml(QString());
        return;
    }
    m_deciders = m_reason.decidersOf(*m_pItem);
    showHtml(m_reason.html(*m_pItem));
}

void ReadOnlyReasonLine::showHtml(const QString& html)
{
    // An unchanged text stays as the user scrolled or marked it.
    if (html == m_strShown)
        return;
    m_strShown = html;
    const bool hasLinks = html.contains(QLatin1String("<a "));
    // Not to whatever stands next in the window.
    if (hasFocus() && !hasLinks)
        QWidget::focusNextPrevChild(false); // NOLINT(bugprone-parent-virtual-call)
    const QString link = focusedLink(textCursor());
    setHtml(styled(html));
    if (hasFocus())
        selectLink(link);
    setAccessibleName(toPlainText());
    setFocusPolicy(hasLinks ? Qt::TabFocus : Qt::NoFocus);
    setVisible(!html.isEmpty());
    fitHeight();
}

// The value of a decider may change while the user is about to follow its link.
void ReadOnlyReasonLine::selectLink(const QString& href)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (href.isEmpty() || part.fragment().charFormat().anchorHref() != href)
                continue;
            QTextCursor cursor(document());
            cursor.setPosition(part.fragment().position());
            cursor.setPosition(part.fragment().position() + part.fragment().length(),
                               QTextCursor::KeepAnchor);
            setTextCursor(cursor);
            return;
        }
    }
    // Its link has gone: the first one instead.
    focusNextPrevChild(true);
}

void ReadOnlyReasonLine::focusInEvent(QFocusEvent* event)
{
    QTextBrowser::focusInEvent(event);
    const bool tab = event->reason() == Qt::TabFocusReason;
    if (!tab && event->reason() != Qt::BacktabFocusReason)
        return;
    // Not on from the link that had the focus before.
    moveCursor(tab ? QTextCursor::Start : QTextCursor::End);
    focusNextPrevChild(tab);
}

void ReadOnlyReasonLine::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit SigLeft();
    else
        QTextBrowser::keyPressEvent(event);
}

void ReadOnlyReasonLine::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    fitHeight();
}

void ReadOnlyReasonLine::fitHeight()
{
    if (m_strShown.isEmpty())
        return;
    const int wanted = int(std::ceil(document()->size().height()));
    const int most = fontMetrics().lineSpacing() * kMostLines + int(document()->documentMargin());
    setFixedHeight(qMin(wanted, most) + 2 * kPaddingPx + kBorderPx);
}

QSize ReadOnlyReasonLine::sizeHint() const
{
    return {0, height()};
}

QSize ReadOnlyReasonLine::minimumSizeHint() const
{
    return {0, height()};
}
