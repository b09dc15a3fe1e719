// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureMessages.h"

#include "basetools/ORXInterface.h"
#include "styledctl/ZELCustomMessageBox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QRegularExpression>
#include <QTimer>

namespace {

// For a text that is shown as rich text. An ampersand stays as it is where it begins no entity.
QString quoted(QString text)
{
    static const QRegularExpression kEntityStart(QStringLiteral("&(?=#?\\w+;)"));
    text.replace(kEntityStart, QStringLiteral("&amp;"));
    text.replace(QLatin1Char('>'), QLatin1String("&gt;"));
    text.replace(QLatin1Char('<'), QLatin1String("&lt;"));
    return text;
}

} // namespace

FeatureMessages::FeatureMessages(QWidget* page)
    : QObject(page)
    , m_pPage(page)
{
}

QString FeatureMessages::errorText(int error)
{
    return QStringLiteral("\r\n") + ORXInterface::IntCode2DisplayCode(error);
}

void FeatureMessages::show(const Message& message, const QString& caption)
{
    showBox(message, caption);
}

void FeatureMessages::showTranslated(const std::function<Message()>& message)
{
    if (showBox(message(), QString()))
        m_translation = message;
}

void FeatureMessages::showWriteFailure(const QString& name, const QString& value, int error)
{
    showTranslated([name, value, error] {
        const QString title =
            QCoreApplication::translate("ORXFeatureTree", "Failed to set the feature value.");
        const QString text =
            QCoreApplication::translate("ORXFeatureTree", "Node '%1':failed to save value '%2'")
                .arg(quoted(name), quoted(value));
        return Message{title, text + errorText(error), ZELCustomMessageBox::Hint_Error,
                       Qt::RichText};
    });
}

bool FeatureMessages::showBox(const Message& message, const QString& caption)
{
    if (m_pBox && m_pBox->isVisible())
        return false;
    delete m_pBox;
    m_translation = nullptr;
    m_pBox = new ZELCustomMessageBox(m_pPage);
    m_pBox->cSetButtons(ZELCustomMessageBox::Buttons_Ok);
    fillBox(message, caption);
    m_pBox->show();
    // A write that is refused while the window closes comes later than the window's own event.
    m_pPage->window()->installEventFilter(this);
    QTimer::singleShot(0, this, &FeatureMessages::hideWithWindow);
    return true;
}

void FeatureMessages::fillBox(const Message& message, const QString& caption)
{
    m_pBox->cSetCaption(caption.isEmpty() ? QCoreApplication::translate("ORXFeatureTree", "Prompt")
                                          : caption);
    m_pBox->cSetContent(message.text.isEmpty() ? message.title : message.text);
    m_pBox->cSetContentFormat(message.format);
    m_pBox->cSetTextTitle(message.text.isEmpty() ? QString() : message.title);
    m_pBox->cSetHintStyle(message.hintStyle);
    m_pBox->cEndSetParameter();
}

void FeatureMessages::retranslate()
{
    if (m_pBox && m_pBox->isVisible() && m_translation)
        fillBox(m_translation(), QString());
}

bool FeatureMessages::eventFilter(QObject* watched, QEvent* event)
{
    // Queued: a window that changes its flags is hidden for a moment.
    if (watched == m_pPage->window() && event->type() == QEvent::Hide && !event->spontaneous())
        QTimer::singleShot(0, this, &FeatureMessages::hideWithWindow);
    return QObject::eventFilter(watched, event);
}

// Without its window the box would stand alone on the screen.
void FeatureMessages::hideWithWindow()
{
    const QWidget* window = m_pPage->window();
    const bool wasShown = window->testAttribute(Qt::WA_WState_ExplicitShowHide);
    if (m_pBox && wasShown && !window->isVisible())
        m_pBox->hide();
}
