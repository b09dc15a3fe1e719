// SPDX-License-Identifier: Apache-2.0
#include "OBFeatureTree/OBFeatureTree.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "support/DescriptionBuilder.h"
#include "support/GuiThreadReads.h"
#include "support/OpenedWindow.h"

#include <QApplication>
#include <QSignalSpy>
#include <QStyle>

using namespace DescriptionBuilder;

namespace {

QByteArray smallDescription()
{
    Size size = Size::ofFeatures(60);
    size.categories = 6;
    return generate(size);
}

} // namespace

class TestOBFeatureTree : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestOBFeatureTree()
        : OpenedWindowTest(smallDescription())
    {
    }

private slots:
    void functionsNeedInit()
    {
        QCOMPARE(OB_FT_SetDeviceInfo(nullptr), -1);
        QCOMPARE(OB_FT_SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), -1);
        QCOMPARE(OB_FT_SetWidgetSize(1, 1), -1);
        QCOMPARE(OB_FT_SetTitleVisible(1), -1);
        QCOMPARE(OB_FT_SetWidgetPosition(1, 1), -1);
        QCOMPARE(OB_FT_Start(nullptr, 0), -1);
        QCOMPARE(OB_FT_Close(), -1);
        QCOMPARE(OB_FT_UpdateFeatures(), -1);
        QCOMPARE(OB_FT_Release(), -1);
        QVERIFY(MessageGuard::messages().isEmpty());
        QCOMPARE(OB_FT_Init(nullptr, nullptr, nullptr), 0);
        QCOMPARE(OB_FT_SetTitleVisible(0), 0);
        QCOMPARE(OB_FT_Release(), 0);
        QCOMPARE(OB_FT_SetTitleVisible(0), -1);
    }

    void windowAsTheHostAskedForIt()
    {
        QWidget parent;
        OB_FT_Init(m_xml.constData(), nullptr, &parent);
        QCOMPARE(ORXMainFeatureWidget::instance(nullptr)->parentWidget(), &parent);
        OpenedWindow window(*m_host, m_xml);
        ORXMainFeatureWidget* widget = window.widget();
        QVERIFY(!widget->parentWidget());
        QVERIFY(widget->isVisible());
        QVERIFY(widget->windowFlags() & Qt::WindowStaysOnTopHint);
        QCOMPARE(widget->size(), QSize(900, 700));
        QCOMPARE(widget->pos(), QPoint(10, 10));
        QCOMPARE(widget->cTitleText(), "Test camera"_s);
        QCOMPARE(m_host->count("action 1"_s), 0);
    }

    void firstReadFillsTheTree()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        int filled = 0;
        for (const ORXPropertyTreeItem* item : window.tree()->AllTreeItemsMap())
            filled += item->value()->displayValue().isEmpty() ? 0 : 1;
        QCOMPARE(filled, 60);
        // A new user has no favourites: the first group with features is shown instead.
        QTRY_COMPARE(window.groups()->currentIndex().data().toString(), "Category0"_s);
        const QByteArray picture = qgetenv("OBFT_TEST_PICTURE");
        if (!picture.isEmpty()) {
            QTest::qWait(300);
            window.widget()->grab().save(QString::fromLocal8Bit(picture));
        }
    }

    void secondRoundMakesANewWindow()
    {
        const QByteArray first = wrap(category("Root"_s, {"A"_s}));
        const QByteArray second = wrap(category("Root"_s, {"B"_s}));
        {
            OpenedWindow window(*m_host, first);
            QVERIFY(window.tree()->propertyItemByName("A"_s));
        }
        const QStyle* style = QApplication::style();
        OpenedWindow window(*m_host, second);
        QVERIFY(window.tree()->propertyItemByName("B"_s));
        QVERIFY(!window.tree()->propertyItemByName("A"_s));
        QCOMPARE(QApplication::style(), style);
    }

    void initTwiceKeepsTheWindow()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        ORXMainFeatureWidget* widget = window.widget();
        OBDeviceControl::GetFavoritesFeatureMap()->append({"Feature00001"_s, "Feature 1"_s});
        QCOMPARE(OB_FT_Init("<Other/>", nullptr, nullptr), 0);
        QVERIFY(MessageGuard::contains("called again without OB_FT_Release"_s));
        QCOMPARE(window.widget(), widget);
        QCOMPARE(OBDeviceControl::GetFavoritesFeatureMap()->size(), 1);
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        // The callbacks may be given again while the window reads.
        OB_FT_UpdateFeatures();
        m_host->installInWindow();
        QVERIFY(window.waitForFirstRead());
        QVERIFY(window.tree()->propertyItemByName("Feature00001"_s));
    }

    void callbacksMayBeNull()
    {
        OB_FT_Init(m_xml.constData(), nullptr, nullptr);
        QCOMPARE(OB_FT_SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
        QCOMPARE(OB_FT_Start(nullptr, 0), 0);
        ORXFeatureTree* tree = ORXMainFeatureWidget::instance(nullptr)->featureTree(1, false);
        QTRY_VERIFY(tree->HadUpdatedOnce());
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
        QCOMPARE(OB_FT_Close(), 0);
    }

    void closingTellsTheHostAndStopsReading()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        QCOMPARE(OB_FT_Close(), 0);
        QCOMPARE(m_host->count("action 1"_s), 1);
        const qint64 calls = m_host->callCount();
        QTest::qWait(150);
        QCOMPARE(m_host->callCount(), calls);
        window.widget()->hide();
        QCOMPARE(m_host->count("action 1"_s), 2);
        OB_FT_Start(nullptr, 0);
        QTRY_VERIFY(m_host->callCount() > calls);
        QVERIFY(window.waitForFirstRead());
        OB_FT_Release();
        QCOMPARE(m_host->count("action 1"_s), 3);
    }

    void hostMayReleaseFromInsideACallback_data()
    {
        const Rows<QByteArray> row("callback");
        row("while it writes", "set");
        row("when the window closes", "action");
        row("when all is to be read again", "invalidate");
        row("when it is asked for its chunk mode", "get");
    }

    void hostMayReleaseFromInsideACallback()
    {
        QFETCH(QByteArray, callback);
        OB_FT_Init(m_xml.constData(), nullptr, nullptr);
        const auto getAndRelease = [](int type, char* name, void* value, void* user) {
            OB_FT_Release();
            return FakeHost::getFeature(type, name, value, user);
        };
        const auto setCallbacks = [&](OB_FT_GetFeatureFunc get) {
            const GuiThreadReads::InstallingCallbacks installing;
            OB_FT_SetCallBackFunc(
                get,
                [](int type, char* name, char* value, void* user) {
                    OB_FT_Release();
                    return FakeHost::setFeature(type, name, value, user);
                },
                FakeHost::getMode, [](void*) { return OB_FT_Release(); },
                [](int, void*) { return OB_FT_Release(); }, m_host.get());
        };
        m_host->set("ChunkModeActive"_s, FakeHost::booleanFeature(false));
        setCallbacks(FakeHost::getFeature);
        OB_FT_SetWidgetSize(900, 700);
        OB_FT_Start(nullptr, 0);
        ORXMainFeatureWidget* widget = ORXMainFeatureWidget::instance(nullptr);
        ORXFeatureTree* tree = widget->featureTree(1, false);
        QTRY_VERIFY(tree->HadUpdatedOnce());
        QSignalSpy destroyed(widget, &QObject::destroyed);
        if (callback == "set") {
            // A check box of the shown group: the click goes the whole road through the delegate.
            QWidget* editor = nullptr;
            QTRY_VERIFY((editor = tree->findChild<QWidget*>("Feature00012"_s)));
            QTRY_VERIFY(editor->isEnabled());
            QTest::mouseClick(editor, Qt::LeftButton);
            QCOMPARE(m_host->writes().size(), 1);
        } else if (callback == "action") {
            OB_FT_Close();
        } else if (callback == "invalidate") {
            OB_FT_UpdateFeatures();
        } else {
            setCallbacks(getAndRelease);
        }
        QTRY_COMPARE(destroyed.count(), 1);
        QCOMPARE(OB_FT_Close(), -1);
    }

    void parentMayTakeTheWindowAlong()
    {
        auto parent = std::make_unique<QWidget>();
        OB_FT_Init(m_xml.constData(), nullptr, parent.get());
        parent.reset();
        // The window is made anew, with nothing in it until the callbacks are given.
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
    }

    void releaseWaitsForAHangingCall()
    {
        std::atomic<bool> inside{false};
        std::atomic<bool> returned{false};
        m_host->beforeGet = [&](const QString& name) {
            if (name != QLatin1String("Feature00005") || inside.exchange(true))
                return;
            QThread::msleep(1500);
            returned = true;
        };
        {
            OpenedWindow window(*m_host, m_xml);
            QTRY_VERIFY(inside);
        }
        QVERIFY(returned);
        QVERIFY(MessageGuard::contains("waiting for a call of the host to return"_s));
    }

    void languageIsTheHosts()
    {
        const QMap<int, QString> languages = {{0, "ENG"_s}, {1, "CH"_s}, {2, "ENG"_s}};
        for (auto it = languages.cbegin(); it != languages.cend(); ++it) {
            OpenedWindow window(*m_host, m_xml, it.key());
            QCOMPARE(ORXInterface::language(), it.value());
        }
    }
};

OBFT_TEST_MAIN(TestOBFeatureTree)
#include "tst_obfeaturetree.moc"
