// SPDX-License-Identifier: Apache-2.0
// Switching the language by the tool bar, in the opened window: afterwards it shows what a window
// that was opened in that language shows, and no edit is lost.
#include "CameraDescription.h"
#include "main/ReadingProgressLine.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/OpenedWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSemaphore>
#include <QTextEdit>
#include <QThread>
#include <QTimer>

namespace {

constexpr int kManyReads = 1000000;

void collectRows(const QTreeView& view, const QModelIndex& parent, QStringList& texts)
{
    for (int row = 0; row < view.model()->rowCount(parent); ++row) {
        const QModelIndex index = view.model()->index(row, 0, parent);
        texts += "row: "_s + index.data().toString();
        texts += "row tip: "_s + index.data(Qt::ToolTipRole).toString();
        collectRows(view, index, texts);
    }
}

// Every text that the visible part of a window shows, marked by where it stands.
QStringList textsOf(const QWidget* window)
{
    QStringList texts = {"title: "_s + window->windowTitle()};
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(window))
            continue;
        texts += "tip: "_s + widget->toolTip();
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            texts += "label: "_s + label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            texts += "button: "_s + button->text();
        if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
            texts += "line: "_s + line->placeholderText();
            for (const QAction* action : line->actions())
                texts += "action: "_s + action->toolTip();
        }
        if (const auto* text = qobject_cast<const QTextEdit*>(widget))
            texts += "text: "_s + text->toPlainText() + text->placeholderText();
        if (const auto* bar = qobject_cast<const ZELCustomDockTitleBar*>(widget))
            texts += "dock: "_s + bar->cTitleText();
        if (const auto* view = qobject_cast<const QTreeView*>(widget))
            collectRows(*view, {}, texts);
        if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
            for (int i = 0; i < box->count(); ++i)
                texts += "entry: "_s + box->itemText(i);
        }
    }
    texts.sort();
    return texts;
}

QAbstractButton* languageButton(const OpenedWindow& window)
{
    return window.widget()->findChild<QAbstractButton*>("ORXFeatureLangue"_s);
}

void switchLanguage(const OpenedWindow& window)
{
    QTest::mouseClick(languageButton(window), Qt::LeftButton);
    // The widgets hear of the new translator by posted events.
    QApplication::processEvents();
}

} // namespace

class TestLanguage : public DescribedWindowTest<cameraDescription>
{
    Q_OBJECT

private:
    // What a window shows that was opened in the language, with a row of a group selected.
    QStringList freshTexts(int language)
    {
        OpenedWindow window(*m_host, m_xml, language);
        prepareWindow(window);
        return textsOf(window.widget());
    }
    void prepareWindow(const OpenedWindow& window)
    {
        QVERIFY(window.waitForFirstRead());
        window.showGroup("AcquisitionControl");
        select(window, "ExposureTime");
        QTRY_VERIFY(editor(window, "Width"));
        // The progress of the read is taken back a moment after its end.
        QTRY_VERIFY(window.widget()->findChild<ReadingProgressLine*>()->fraction() < 0);
        QApplication::processEvents();
    }
    void select(const OpenedWindow& window, const char* name) const
    {
        const QModelIndex row = window.view()->treeModel()->indexFromItem(window.item(name), 0);
        window.view()->setCurrentIndex(row);
        emit window.view()->pressed(row);
    }
    QWidget* editor(const OpenedWindow& window, const char* name) const
    {
        return window.view()->editorOf(window.item(name));
    }

private slots:
    void switchedWindowShowsWhatAFreshOneShows()
    {
        for (const int from : {0, 1}) {
            const QStringList old = freshTexts(from);
            const QStringList expected = freshTexts(1 - from);
            QVERIFY(old != expected);
            OpenedWindow window(*m_host, m_xml, from);
            prepareWindow(window);
            switchLanguage(window);
            QCOMPARE(textsOf(window.widget()), expected);
            switchLanguage(window);
            QCOMPARE(textsOf(window.widget()), old);
        }
    }

    // A window that is opened in a language has been switched to it, too: this one is not compared
    // with another.
    void nothingOfTheWindowStaysEnglish()
    {
        const QStringList english = freshTexts(0);
        QStringList same;
        for (const QString& text : freshTexts(1)) {
            if (english.contains(text) &&
                text.contains(QRegularExpression("^[^r].*: .*[a-z]{3}"_s)))
                same += text;
        }
        // The names of this camera.
        QCOMPARE(same,
                 (QStringList{"dock: text"_s, "label: Test camera"_s, "title: Test camera"_s}));
    }

    void switchingWhileReading()
    {
        const QStringList expected = freshTexts(1);
        // The reading threads stand at their first value until the language is the other one.
        QSemaphore gate;
        m_host->beforeGet = [&gate](const QString&) {
            if (QThread::currentThread() != qApp->thread())
                gate.acquire();
        };
        OpenedWindow window(*m_host, m_xml, 0);
        const auto goOn = qScopeGuard([&gate] { gate.release(kManyReads); });
        QVERIFY(!window.tree()->HadUpdatedOnce());
        const auto* progress = window.widget()->findChild<ReadingProgressLine*>();
        QTRY_VERIFY(!progress->toolTip().isEmpty());
        const QString english = progress->toolTip();
        switchLanguage(window);
        QVERIFY(progress->toolTip() != english);
        QVERIFY(!window.tree()->HadUpdatedOnce());
        gate.release(kManyReads);
        prepareWindow(window);
        QTRY_COMPARE(textsOf(window.widget()), expected);
    }

    void openPromptIsTranslated()
    {
        const ReadWindow window(*m_host, m_xml);
        QStringList english;
        QStringList switched;
        QTimer::singleShot(0, window.widget(), [&] {
            auto* box = window.widget()->findChild<ZELCustomMessageBox*>();
            if (!box)
                return;
            english = textsOf(box);
            // A host may change the language while the box keeps the user from the tool bar.
            window.widget()->SetLanguage(1);
            QApplication::processEvents();
            switched = textsOf(box);
            box->reject();
        });
        window.widget()->onSaveFeatures();
        QVERIFY(!english.isEmpty());
        QCOMPARE(switched.size(), english.size());
        for (const QString& text : qAsConst(switched)) {
            const QString shown = text.mid(text.indexOf(QLatin1Char(' ')) + 1);
            QVERIFY2(shown.isEmpty() || !english.contains(text), qPrintable(text));
        }
    }

    void openMessageAndOverlayAreTranslated()
    {
        const ReadWindow window(*m_host, m_xml);
        const QString width = "Width"_s;
        m_host->fail(width, 5);
        MessageGuard::expectMessage(width); // the device layer's own line
        QVERIFY(!window.tree()->setFeatureValue("Integer"_s, width, 640));
        m_host->fail(width, 0);
        const auto* box = window.tree()->findChild<ZELCustomMessageBox*>();
        QVERIFY(box && box->isVisible());
        window.tree()->ShowLoadingFeatures(true, true);
        constexpr int kOverlay = 1;
        const auto texts = [&] {
            return QStringList({box->cCaption(), box->cTextTitle(), box->cContent(),
                                ZELCustomLoadingDialog::text(kOverlay)});
        };
        const QStringList english = texts();
        switchLanguage(window);
        for (int i = 0; i < english.size(); ++i)
            QVERIFY2(texts().at(i) != english.at(i), qPrintable(english.at(i)));
        QVERIFY(box->cContent().contains("640"_s));
        switchLanguage(window);
        QCOMPARE(texts(), english);
        window.tree()->ShowLoadingDlg(false, QString());
    }

    // Whatever happens to the window.
    void editsSurvive_data()
    {
        const Rows<QByteArray, QByteArray, QString, QString> row("group", "feature", "typed",
                                                                 "end");
        for (const QString& end : words("switched closed released")) {
            row(qPrintable("float, "_s + end), "AcquisitionControl", "ExposureTime", "12.5", end);
            row(qPrintable("integer, "_s + end), "AcquisitionControl", "Width", "640", end);
            row(qPrintable("text, "_s + end), "DeviceControl", "DeviceUserID", "left", end);
        }
    }

    void editsSurvive()
    {
        const auto [group, feature, typed, end] =
            fetchRow<QByteArray, QByteArray, QString, QString>();
        const ReadWindow window(*m_host, m_xml);
        window.showGroup(group.constData());
        QTRY_VERIFY(editor(window, feature.constData()));
        QWidget* typedInto = editor(window, feature.constData());
        QTRY_VERIFY(typedInto->isEnabled());
        typedInto->setFocus();
        auto* line = qobject_cast<QLineEdit*>(typedInto);
        if (!line)
            line = typedInto->findChild<QLineEdit*>();
        QVERIFY(line);
        QTRY_VERIFY(QApplication::focusWidget());
        line->selectAll();
        QTest::keyClicks(QApplication::focusWidget(), typed);
        QCOMPARE(line->text(), typed);
        QVERIFY(m_host->writes().isEmpty());
        if (end == "released"_s) {
            OB_FT_Release();
        } else if (end == "closed"_s) {
            OB_FT_Close();
        } else {
            switchLanguage(window);
            QCOMPARE(line->text(), typed);
            QVERIFY(m_host->writes().isEmpty());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
        QCOMPARE(m_host->writes(),
                 QStringList("set %1 %2"_s.arg(QString::fromLatin1(feature), typed)));
    }
};

OBFT_TEST_MAIN(TestLanguage)
#include "tst_language.moc"
