// SPDX-License-Identifier: Apache-2.0
#include "main/ORXFeatureToolBar.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>

namespace {

QPushButton* button(const ORXFeatureToolBar& bar, const char* name)
{
    return bar.findChild<QPushButton*>(QString::fromLatin1(name));
}

} // namespace

class TestORXFeatureToolBar : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override
    {
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage("ENG"_s);
    }

private slots:
    void buttonsReportTheirIndex_data()
    {
        const Rows<QByteArray, int> row("name", "index");
        row("language", "ORXFeatureLangue", 89);
        row("user sets", "ORXFeatureSave", 93);
        row("refresh", "ORXFeatureRefresh", 94);
    }

    void buttonsReportTheirIndex()
    {
        QFETCH(QByteArray, name);
        ORXFeatureToolBar bar(nullptr);
        bar.show();
        QSignalSpy clicked(&bar, &ORXFeatureToolBar::SigToolBarBtnClicked);
        QPushButton* pressed = button(bar, name.constData());
        QCOMPARE(pressed->size(), QSize(34, 34));
        QCOMPARE(pressed->focusPolicy(), Qt::NoFocus);
        QTest::mouseClick(pressed, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QTEST(clicked.at(0).at(0).toInt(), "index");
    }

    void languageButtonTogglesTheLanguage()
    {
        ORXFeatureToolBar bar(nullptr);
        bar.show();
        QPushButton* language = button(bar, "ORXFeatureLangue");
        const QImage toChinese = language->grab().toImage();
        QTest::mouseClick(language, Qt::LeftButton);
        QCOMPARE(ORXInterface::language(), "CH"_s);
        QTest::mouseClick(language, Qt::LeftButton);
        QCOMPARE(ORXInterface::language(), "ENG"_s);
        QTest::mouseMove(&bar, QPoint(1, 1));
        QTRY_COMPARE(language->grab().toImage(), toChinese);
    }

    void levelBoxStoresTheLevel()
    {
        ORXFeatureToolBar bar(nullptr);
        QSignalSpy clicked(&bar, &ORXFeatureToolBar::SigToolBarBtnClicked);
        auto* box = bar.findChild<QComboBox*>();
        QCOMPARE(box->currentIndex(), 1);
        box->setCurrentIndex(0);
        QCOMPARE(OBDeviceControl::GetUserLevel(), 0);
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).toInt(), 95);
    }

    void shownLevelIsNotReported()
    {
        ORXFeatureToolBar bar(nullptr);
        QSignalSpy clicked(&bar, &ORXFeatureToolBar::SigToolBarBtnClicked);
        auto* box = bar.findChild<QComboBox*>();
        OBDeviceControl::SetUserLevel(0);
        bar.OnChangedUserLever();
        QCOMPARE(box->currentIndex(), 0);
        QCOMPARE(clicked.count(), 0);
        // The box still reports what the user chooses.
        box->setCurrentIndex(1);
        QCOMPARE(clicked.count(), 1);
    }

    void noCameraDisablesSaveAndRefresh()
    {
        ORXFeatureToolBar bar(nullptr);
        for (const qint64 key : {qint64(-1), qint64(1)}) {
            bar.UpdateToolBarBtn(key);
            QCOMPARE(button(bar, "ORXFeatureSave")->isEnabled(), key == 1);
            QCOMPARE(button(bar, "ORXFeatureRefresh")->isEnabled(), key == 1);
            QVERIFY(button(bar, "ORXFeatureLangue")->isEnabled());
        }
    }

    void levelsAfterALanguageChange()
    {
        ORXFeatureToolBar bar(nullptr);
        OBDeviceControl::SetUserLevel(0);
        QSignalSpy clicked(&bar, &ORXFeatureToolBar::SigToolBarBtnClicked);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&bar, &change);
        const auto* box = bar.findChild<QComboBox*>();
        QCOMPARE(box->count(), 2);
        QCOMPARE(box->itemText(0), "Guru"_s);
        QCOMPARE(box->itemText(1), "Beginner"_s);
        QCOMPARE(box->currentIndex(), 0);
        QCOMPARE(clicked.count(), 0);
    }
};

OBFT_TEST_MAIN(TestORXFeatureToolBar)
#include "tst_orxfeaturetoolbar.moc"
