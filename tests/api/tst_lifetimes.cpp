// SPDX-License-Identifier: Apache-2.0
// Every exported function from every place from which a host can call it, and the next opening
// after it: what it does is the same everywhere, or it is refused and logged.
#include "api/InterruptedHost.h"
#include "lut/QLUTDrawWidget.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/ChildProcess.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QComboBox>
#include <QDrag>
#include <QEventLoop>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

#include <thread>
#include <vector>

using namespace DescriptionBuilder;

namespace {

// In the order of Place.
const QStringList kPlaces =
    "idle|while reading|set callback|invalidate callback|action callback|get callback|"
    "access-mode callback|event loop of the host|message box|file dialog|context menu|combo list|"
    "drag|reading thread|another thread"_s.split(QLatin1Char('|'));

enum Reopening { InPlace, BeforeEvents, AfterEvents };
const char* const kReopenings[] = {"opened in place", "opened before events run", "opened later"};

// Begins a drag as the mouse does; returns when it has ended.
void dragRow(const ORXFeatureTreeView* view, const QModelIndex& row)
{
    const QPoint from = view->visualRect(row).center();
    const QPoint way(2 * QApplication::startDragDistance(), 0);
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    const QPointer<QWidget> viewport(view->viewport());
    for (int step = 1; step <= 2 && viewport; ++step) {
        const QPoint at = from + step * way;
        QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }
    if (viewport)
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, from);
}

// Only this platform holds a drag up until it ends.
bool dragsBlock()
{
    return QGuiApplication::platformName() == QLatin1String("minimal");
}

} // namespace

class TestLifetimes : public DescribedWindowTest<generateSmall>
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_now = std::make_unique<InterruptedHost>(m_xml);
        m_next = std::make_unique<InterruptedHost>(m_xml);
        m_now->set("ChunkModeActive"_s, FakeHost::booleanFeature(false));
    }
    // A chunk question that another one is asked in is no read without need.
    bool failsOnGuiThreadReads() const override { return false; }

private:
    static int setDeviceName(const char* name)
    {
        _OB_FT_DEVICEINFO_ info = {};
        qstrncpy(info.deviceName, name, sizeof(info.deviceName));
        return OB_FT_SetDeviceInfo(&info);
    }
    void open(InterruptedHost& host)
    {
        OB_FT_Init(m_xml.constData(), nullptr, nullptr);
        setDeviceName("Test camera");
        host.installInWindow();
        OB_FT_SetWidgetSize(900, 700);
        OB_FT_SetWidgetPosition(10, 10);
        OB_FT_Start(nullptr, 0);
    }
    static ORXMainFeatureWidget* window() { return ORXMainFeatureWidget::instance(nullptr); }
    static ORXFeatureTree* tree() { return window()->featureTree(1, false); }
    static bool wasRead()
    {
        return QTest::qWaitFor([] { return tree()->HadUpdatedOnce(); }, kWindowPatienceMs);
    }

    // The exported functions but the last, what calls them, and whether they have done it.
    struct Function
    {
        const char* name;
        std::function<int()> call;
        std::function<bool()> isDone;
    };
    const std::vector<Function> m_functions = {
        {"Init", [this] { return OB_FT_Init(m_xml.constData(), nullptr, nullptr); },
         [] { return MessageGuard::contains("called again without OB_FT_Release"_s); }},
        {"SetDeviceInfo", [] { return setDeviceName("Renamed"); },
         [] { return window()->cTitleText() == QLatin1String("Renamed"); }},
        {"SetCallBackFunc", [this] { return m_next->installInWindow(); },
         [this] { return m_next->callCount() > 0; }},
        {"SetWidgetSize", [] { return OB_FT_SetWidgetSize(800, 600); },
         [] { return window()->size() == QSize(800, 600); }},
        {"SetTitleVisible", [] { return OB_FT_SetTitleVisible(1); }, [] { return true; }},
        {"SetWidgetPosition", [] { return OB_FT_SetWidgetPosition(40, 50); },
         [] { return window()->pos() == QPoint(40, 50); }},
        {"Start", [] { return OB_FT_Start(nullptr, 0); }, [] { return window()->isVisible(); }},
        {"Close", [] { return OB_FT_Close(); }, [] { return !window()->isVisible(); }},
        {"UpdateFeatures",
         [this] {
             m_invalidated = m_now->count("invalidate"_s);
             return OB_FT_UpdateFeatures();
         },
         [this] { return m_now->count("invalidate"_s) > m_invalidated; }}};

    // Calls from that place of the opened window, and leaves it.
    void at(int place, const std::function<void()>& call)
    {
        bool called = false;
        const auto once = [&] {
            call();
            called = true;
        };
        const auto inDialog = [&] {
            QTimer::singleShot(0, [&] {
                QVERIFY(QTest::qWaitFor([] { return QApplication::activeModalWidget(); }));
                once();
                while (QWidget* modal = QApplication::activeModalWidget())
                    modal->close();
            });
        };
        const auto inPopup = [&] {
            QVERIFY(QApplication::activePopupWidget());
            once();
            while (QWidget* popup = QApplication::activePopupWidget())
                popup->close();
        };
        switch (place) {
        case Idle:
        case WhileReading:
            once();
            break;
        case NestedLoop:
        case InSet: {
            const auto nested = [&] {
                QEventLoop loop;
                QTimer::singleShot(0, &loop, [&] {
                    once();
                    loop.quit();
                });
                loop.exec();
            };
            m_now->inNext(InSet, place == InSet ? std::function<void()>(once) : nested);
            // A check box of the shown group: the click goes the whole road through the delegate.
            QWidget* editor = nullptr;
            QTRY_VERIFY((editor = tree()->findChild<QWidget*>("Feature00012"_s)));
            QTRY_VERIFY(editor->isEnabled());
            QTest::mouseClick(editor, Qt::LeftButton);
            break;
        }
        case InInvalidate:
            m_now->inNext(InInvalidate, once);
            OB_FT_UpdateFeatures();
            break;
        case InAction:
            m_now->inNext(InAction, once);
            OB_FT_Close();
            break;
        case InGet:
        case InMode:
            m_now->inNext(static_cast<Place>(place), once);
            m_now->installInWindow();
            break;
        case MessageBox:
            inDialog();
            window()->onSaveFeatures();
            break;
        case FileDialog:
            inDialog();
            window()->findChild<QLUTDrawWidget*>()->LoadFromFile();
            break;
        case ContextMenu: {
            ORXFeatureTreeView* view = tree()->treeView();
            const QModelIndex row =
                view->treeModel()->indexFromItem(tree()->propertyItemByName("Feature00012"_s), 0);
            tree()->OnTreeFeaturesCustomContextMenuRequested(view->visualRect(row).center());
            inPopup();
            break;
        }
        case ComboList: {
            QComboBox* list = nullptr;
            QTRY_VERIFY((list = tree()->findChild<QComboBox*>("Feature00024"_s)));
            list->showPopup();
            inPopup();
            break;
        }
        case Drag: {
            ORXFeatureTreeView* view = tree()->treeView();
            tree()->addFavoriteItem(tree()->propertyItemByName("Feature00012"_s));
            const QModelIndex favorites = view->model()->index(0, 0);
            CFeatureGroupTreeView* groups = window()->featureGroup(1)->groupView();
            groups->OnChangedIndex(
                static_cast<CFeatureGroupModel*>(groups->model())
                    ->groupIndex(0, ORXPropertyTreeModel::itemFromIndex(favorites)));
            const QModelIndex favorite = view->model()->index(0, 0, favorites);
            QTRY_VERIFY(!view->visualRect(favorite).isEmpty());
            QVERIFY(favorite.isValid());
            QTimer::singleShot(0, [&] {
                once();
                QDrag::cancel();
            });
            dragRow(view, favorite);
            break;
        }
        case ReadingThread:
            m_now->inNext(ReadingThread, [&] {
                call();
                QMetaObject::invokeMethod(qApp, [&] { called = true; });
            });
            tree()->RefreshFeatures();
            QTRY_VERIFY(called);
            break;
        default:
            std::thread(once).join();
            break;
        }
        QVERIFY(called);
    }

    // What a user of the opening has: a window with rows, read from that host, which alone is
    // called.
    void checkOpening(InterruptedHost& host)
    {
        QVERIFY(wasRead());
        QVERIFY(window()->isVisible());
        QCOMPARE(window()->CurrentCameraID(), qint64(1));
        QCOMPARE(tree()->AllTreeItemsMap().size(), 66);
        QVERIFY(window()->featureGroup(1)->groupView()->model()->rowCount() > 1);
        QVERIFY(tree()->treeView()->model()->rowCount() > 1);
        QTRY_VERIFY(tree()->findChild<QWidget*>("Feature00012"_s));
        QVERIFY(host.writes().isEmpty());
        QCOMPARE(host.count("invalidate"_s), 0);
        QCOMPARE(host.count("action 1"_s), 0);
    }

    std::unique_ptr<InterruptedHost> m_now;
    std::unique_ptr<InterruptedHost> m_next;
    int m_invalidated = 0;

private slots:
    void functions_data()
    {
        const Rows<int, int> row("place", "function");
        for (int place = Idle; place <= OtherThread; ++place) {
            for (int i = 0; i < int(m_functions.size()); ++i) {
                if (place != Drag || dragsBlock())
                    row(qPrintable("%1, %2"_s.arg(kPlaces.at(place),
                                                  QLatin1String(m_functions[std::size_t(i)].name))),
                        place, i);
            }
        }
    }

    void functions()
    {
        const auto [place, function] = fetchRow<int, int>();
        const Function& called = m_functions[std::size_t(function)];
        open(*m_now);
        if (place != WhileReading)
            QVERIFY(wasRead());
        const bool refused = place >= ReadingThread;
        if (refused)
            MessageGuard::ignoreMessage(
                QtCriticalMsg, QRegularExpression("OB_FT_%1: called on another thread"_s.arg(
                                   QLatin1String(called.name))));
        const bool before = called.isDone();
        int code = 1;
        at(place, [&] { code = called.call(); });
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(code, 0);
        if (refused)
            QCOMPARE(called.isDone(), before);
        else
            QTRY_VERIFY(called.isDone());
        const QPointer<ORXMainFeatureWidget> old(window());
        OB_FT_Release();
        QTRY_VERIFY(!old);
        const auto fresh = std::make_unique<InterruptedHost>(m_xml);
        open(*fresh);
        checkOpening(*fresh);
        OB_FT_Release();
    }

    void releases_data()
    {
        const Rows<int, int> row("place", "reopening");
        for (int place = Idle; place < ReadingThread; ++place) {
            for (int reopening = InPlace; reopening <= AfterEvents; ++reopening) {
                if (place != Drag || dragsBlock())
                    row(qPrintable("%1, %2"_s.arg(kPlaces.at(place),
                                                  QLatin1String(kReopenings[reopening]))),
                        place, reopening);
            }
        }
    }

    void releases()
    {
        const auto [place, reopening] = fetchRow<int, int>();
        open(*m_now);
        if (place != WhileReading)
            QVERIFY(wasRead());
        const QPointer<ORXMainFeatureWidget> old(window());
        qint64 calls = 0;
        at(place, [&] {
            QCOMPARE(OB_FT_Release(), 0);
            QCOMPARE(OB_FT_SetTitleVisible(0), -1);
            calls = m_now->callCount();
            if (reopening == InPlace)
                open(*m_next);
        });
        if (QTest::currentTestFailed())
            return;
        if (reopening == BeforeEvents)
            open(*m_next);
        QTRY_VERIFY(!old);
        if (reopening == AfterEvents)
            open(*m_next);
        checkOpening(*m_next);
        QCOMPARE(m_now->callCount(), calls);
        OB_FT_Release();
    }

    void cameraGoesDuringADrag()
    {
        if (!dragsBlock())
            return;
        open(*m_now);
        QVERIFY(wasRead());
        at(Drag, [] { window()->removeFeatureTree(1); });
        OB_FT_Release();
    }

    void onThePlatformWhoseDragsBlock()
    {
        if (dragsBlock())
            return;
        ChildProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM"_s, "minimal"_s);
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        QStringList arguments = {"cameraGoesDuringADrag"_s};
        for (const Function& function : m_functions)
            arguments += "functions:drag, "_s + QLatin1String(function.name);
        for (const char* reopening : kReopenings)
            arguments += "releases:drag, "_s + QLatin1String(reopening);
        program.start(QCoreApplication::applicationFilePath(), arguments);
        QVERIFY(program.waitForFinished(10 * kWindowPatienceMs));
        const QByteArray output = program.readAll();
        QVERIFY2(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0, output);
    }

    // The action that the release itself causes.
    void openingFromTheReleasesAction()
    {
        open(*m_now);
        QVERIFY(wasRead());
        const QPointer<ORXMainFeatureWidget> old(window());
        m_now->inNext(InAction, [&] {
            QCOMPARE(OB_FT_Close(), -1);
            open(*m_next);
        });
        QCOMPARE(OB_FT_Release(), 0);
        const qint64 calls = m_now->callCount();
        QTRY_VERIFY(!old);
        checkOpening(*m_next);
        QCOMPARE(m_now->callCount(), calls);
    }
};

OBFT_TEST_MAIN(TestLifetimes)
#include "tst_lifetimes.moc"
