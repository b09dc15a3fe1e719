// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomMessageBox.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomWidget.h"
#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELIcon.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kPicturePx = 40;
constexpr int kTitleFontPx = 15;
constexpr int kTextFontPx = 13;
constexpr int kMinTextWidth = 220;
constexpr int kMaxTextWidth = 440;
constexpr int kMaxTextHeight = 320;
constexpr int kButtonMinWidth = 84;

struct HintPicture
{
    const char* name;
    QStyle::StandardPixmap fallback; // Used while the picture pack is missing.
};

// Indexed by HintStyle.
const HintPicture kPictures[] = {
    {"", QStyle::SP_CustomBase},
    {"success", QStyle::SP_MessageBoxInformation},
    {"warning", QStyle::SP_MessageBoxWarning},
    {"error", QStyle::SP_MessageBoxCritical},
    {"question", QStyle::SP_MessageBoxQuestion},
    {"information", QStyle::SP_MessageBoxInformation},
};
constexpr int kPictureCount = int(sizeof(kPictures) / sizeof(kPictures[0]));

QIcon pictureOf(int hint, const QStyle* style)
{
    if (hint <= 0 || hint >= kPictureCount)
        return QIcon();
    const HintPicture& picture = kPictures[hint];
    const QIcon icon(
        QStringLiteral(":/ORXStyledCtl/message_%1.png").arg(QLatin1String(picture.name)));
    return icon.availableSizes().isEmpty() ? style->standardIcon(picture.fallback) : icon;
}

QString richBody(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("<br/>"));
    text.replace(QLatin1Char('\n'), QLatin1String("<br/>"));
    return QStringLiteral("<div style=\"white-space: pre-wrap\">%1</div>").arg(text);
}

// Measured on a copy: an edit lays its own document out for the width it has at the moment.
int textHeight(const QTextEdit* edit, int width)
{
    const QScopedPointer<QTextDocument> copy(edit->document()->clone());
    copy->setDefaultFont(edit->font());
    copy->setTextWidth(width);
    return int(copy->size().height()) + 2;
}

} // namespace

ZELCustomMessageBox::ZELCustomMessageBox(QWidget* parent)
    : ZELCustomMainWindow(parent)
    , m_picture(new QLabel(cContentWidget()))
    , m_title(new QLabel(cContentWidget()))
    , m_content(new QTextEdit(cContentWidget()))
    , m_buttonRow(new QWidget(cContentWidget()))
{
    cSetDialogKeys(true);
    cEnableDefaultShadow(true);
    cSetTitleText(tr("Prompt"));

    m_picture->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    m_title->setFont(ZELCustom::font(kTitleFontPx, QFont::DemiBold));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_title->setWordWrap(true);

    m_content->setFont(ZELCustom::font(kTextFontPx));
    m_content->setReadOnly(true);
    m_content->setAcceptRichText(false);
    m_content->setTabChangesFocus(true);
    m_content->setFrameShape(QFrame::NoFrame);
    m_content->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_content->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_content->document()->setDocumentMargin(0);
    m_content->setStyleSheet(
        ZELCustom::resolveSheet(QStringLiteral(
            "QTextEdit { background: transparent; border: none; color: @StyledCtlColor_Text@;"
            " selection-background-color: @StyledCtlColor_TextSelection@; }")) +
        ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));

    auto* texts = new QVBoxLayout;
    texts->setSpacing(6);
    texts->addStretch(1);
    texts->addWidget(m_title);
    texts->addWidget(m_content);
    texts->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(20, 18, 20, 16);
    row->setSpacing(16);
    row->addWidget(m_picture, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    auto* buttons = new QHBoxLayout(m_buttonRow);
    buttons->setContentsMargins(20, 0, 20, 16);
    buttons->setSpacing(8);
    buttons->addStretch(1);
    cContentLayout()->addLayout(row, 1);
    cContentLayout()->addWidget(m_buttonRow);
}

void ZELCustomMessageBox::cSetButtons(int buttons)
{
    const bool known = buttons == Buttons_OkCancel || buttons == Buttons_YesNoCancel;
    m_buttons = known ? buttons : int(Buttons_Ok);
}

void ZELCustomMessageBox::cSetContent(const QString& text)
{
    m_contentText = text;
}

void ZELCustomMessageBox::cSetContentFormat(Qt::TextFormat format)
{
    m_contentFormat = format;
}

void ZELCustomMessageBox::cSetTextTitle(const QString& text)
{
    m_titleText = text;
}

void ZELCustomMessageBox::cSetCaption(const QString& text)
{
    m_hasCaption = true;
    cSetTitleText(text);
}

void ZELCustomMessageBox::cSetHintStyle(int style)
{
    m_hint = style;
}

void ZELCustomMessageBox::cEndSetParameter()
{
    buildButtons();

    const QIcon picture = pictureOf(m_hint, this->style());
    m_picture->setVisible(!picture.isNull());
    m_picture->setPixmap(ZELIcon::pixmap(picture, QSize(kPicturePx, kPicturePx), this));

    m_title->setVisible(!m_titleText.isEmpty());
    m_title->setText(m_titleText);
    m_content->setVisible(!m_contentText.isEmpty());
    QString body = m_contentText;
    if (m_contentFormat == Qt::RichText) {
        m_content->setHtml(richBody(m_contentText));
        body = m_content->toPlainText();
    } else {
        m_content->setPlainText(m_contentText);
    }

    m_content->ensurePolished();
    const int title = m_title->fontMetrics().size(0, m_titleText).width();
    const int longest = m_content->fontMetrics().size(Qt::TextExpandTabs, body).width();
    const int width = qBound(kMinTextWidth, qMax(title, longest) + 8, kMaxTextWidth);
    m_title->setFixedWidth(width);
    m_title->setFixedHeight(qMax(0, m_title->heightForWidth(width)));
    m_content->setFixedSize(width, qMin(textHeight(m_content, width), kMaxTextHeight));
    setFixedSize(layout()->totalMinimumSize());
    if (!m_row.isEmpty() && !isVisible())
        m_row.constFirst()->setFocus();
}

void ZELCustomMessageBox::buildButtons()
{
    QVector<int> results = {Result_Ok};
    if (m_buttons == Buttons_OkCancel)
        results = {Result_Ok, Result_Cancel};
    else if (m_buttons == Buttons_YesNoCancel)
        results = {Result_Ok, Result_No, Result_Cancel};
    const auto carries = [](const ZELCustomPushButton* button, int result) {
        return button->property("result").toInt() == result;
    };
    // A shown box that is filled anew keeps its buttons, and with them the focus.
    if (std::equal(m_row.cbegin(), m_row.cend(), results.cbegin(), results.cend(), carries)) {
        translateButtons();
        return;
    }
    qDeleteAll(m_row);
    m_row.clear();
    for (const int result : qAsConst(results)) {
        auto* button = new ZELCustomPushButton(
            m_buttonRow, result == Result_Ok ? ZELCustomPushButton::Style_Primary
                                             : ZELCustomPushButton::Style_Default);
        button->setProperty("result", result);
        connect(button, &QPushButton::clicked, this, [this, result] { answer(result); });
        m_buttonRow->layout()->addWidget(button);
        m_row.append(button);
    }
    translateButtons();
}

void ZELCustomMessageBox::translateButtons()
{
    for (ZELCustomPushButton* button : qAsConst(m_row)) {
        switch (button->property("result").toInt()) {
        case Result_Cancel:
            button->setText(tr("Cancel"));
            break;
        case Result_No:
            button->setText(tr("No"));
            break;
        default:
            button->setText(m_buttons == Buttons_YesNoCancel ? tr("Yes") : tr("OK"));
            break;
        }
        button->setMinimumWidth(qMax(kButtonMinWidth, button->sizeHint().width()));
    }
}

ZELCustomPushButton* ZELCustomMessageBox::cButton(int result) const
{
    for (ZELCustomPushButton* button : m_row) {
        if (button->property("result").toInt() == result)
            return button;
    }
    return nullptr;
}

void ZELCustomMessageBox::answer(int result)
{
    m_result = result;
    emit cSigClicked(result);
    done(result == Result_Ok ? QDialog::Accepted : QDialog::Rejected);
}

void ZELCustomMessageBox::reject()
{
    answer(m_row.isEmpty() ? int(Result_Cancel) : m_row.constLast()->property("result").toInt());
}

void ZELCustomMessageBox::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !m_row.isEmpty())
        answer(m_row.constFirst()->property("result").toInt());
    else
        ZELCustomMainWindow::keyPressEvent(event);
}

void ZELCustomMessageBox::changeEvent(QEvent* event)
{
    ZELCustomMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    if (!m_hasCaption)
        cSetTitleText(tr("Prompt"));
    translateButtons();
}

int ZELCustomMessageBox::cShowMessage(QWidget* parent, const QString& caption, const QString& title,
                                      const QString& content, int hintStyle, int buttons)
{
    ZELCustomMessageBox box(parent);
    box.cSetCaption(caption);
    box.cSetTextTitle(title);
    box.cSetContent(content);
    box.cSetHintStyle(hintStyle);
    box.cSetButtons(buttons);
    box.cEndSetParameter();
    box.exec();
    return box.cResult();
}
