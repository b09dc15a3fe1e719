// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"
#include "pages/DemoPageTest.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "userset/ORXFeatureSaveWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>

using namespace std::chrono_literals;

// Base of tests of the user set dialog: opens it by the tool bar, presses its buttons, and answers
// the message boxes that come up.
class UserSetDialogTest : public DemoPageTest
{
protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_seen.clear();
        m_bAnswer = true;
        m_bTimeGoesOn = false;
        m_boxes.setInterval(5);
        m_boxes.callOnTimeout(this, [this] {
            if (m_bTimeGoesOn)
                m_clock->advance(100ms);
            for (QWidget* window : QApplication::topLevelWidgets()) {
                auto* box = qobject_cast<ZELCustomMessageBox*>(window);
                if (!box || !box->isVisible() || !m_bAnswer)
                    continue;
                m_seen += box->cContent().isEmpty() ? box->cTextTitle() : box->cContent();
                QTest::mouseClick(box->cButton(ZELCustomMessageBox::Result_Ok), Qt::LeftButton);
                return;
            }
        });
        m_boxes.start();
    }
    void finish() override
    {
        m_boxes.stop();
        m_boxes.disconnect();
        DemoPageTest::finish();
    }

    // Opens the dialog by the tool bar and runs the steps inside its event loop.
    void inDialog(const std::function<void(ORXFeatureSaveWidget*)>& steps)
    {
        bool ran = false;
        QTimer::singleShot(0, this, [&] {
            const QPointer<ORXFeatureSaveWidget> dialog =
                m_window->widget()->findChild<ORXFeatureSaveWidget*>();
            QVERIFY(dialog && dialog->isVisible());
            ran = true;
            steps(dialog);
            if (dialog)
                dialog->close();
        });
        QTest::mouseClick(m_window->widget()->findChild<QAbstractButton*>("ORXFeatureSave"_s),
                          Qt::LeftButton);
        QVERIFY(ran);
    }
    void press(ORXFeatureSaveWidget* dialog, int id)
    {
        QTRY_VERIFY(button(dialog, id)->isEnabled());
        QTest::mouseClick(button(dialog, id), Qt::LeftButton);
    }
    // Presses, and runs the steps in the dialog's inner event loop as soon as the condition holds.
    void press(ORXFeatureSaveWidget* dialog, int id, const std::function<bool()>& condition,
               const std::function<void()>& steps)
    {
        bool ran = false;
        QTimer watch;
        watch.callOnTimeout(this, [&] {
            if (!condition())
                return;
            watch.stop();
            QTimer::singleShot(0, this, [&] {
                ran = true;
                steps();
            });
        });
        watch.start(5);
        press(dialog, id);
        QVERIFY(ran);
    }
    static QAbstractButton* button(const ORXFeatureSaveWidget* dialog, int id)
    {
        for (QAbstractButton* each : dialog->findChildren<QAbstractButton*>()) {
            if (each->property("userData") == QVariant(id))
                return each;
        }
        return nullptr;
    }
    static QString text(const ORXFeatureSaveWidget* dialog, const char* label)
    {
        return dialog->findChild<QLabel*>(QString::fromLatin1(label))->text();
    }
    bool isWaiting(const ORXFeatureSaveWidget* dialog) const
    {
        const auto* status = m_window->item(kTree, "UserSetLoadStatus")->value();
        return !button(dialog, 0)->isEnabled() && status->displayValue() == "Loading"_s;
    }
    // The same as soon as the dialog waits for the load.
    void pressAndWait(ORXFeatureSaveWidget* dialog, int id, const std::function<void()>& steps)
    {
        press(
            dialog, id, [&] { return isWaiting(dialog); }, steps);
    }

    QTimer m_boxes;     // answers message boxes
    QStringList m_seen; // their texts
    bool m_bTimeGoesOn = false;
    bool m_bAnswer = true;
};
