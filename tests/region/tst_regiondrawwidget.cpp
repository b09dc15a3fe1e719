// SPDX-License-Identifier: Apache-2.0
// The region and the automatics' area in the picture of the image processing page, drawn with mouse
// and keyboard on the simulated camera, whose limits depend on each other.
#include "cameras/CameraError.h"
#include "device/ORXListenTools.h"
#include "pages/DemoPageTest.h"
#include "pages/ORXImgProcessingFeature.h"
#include "region/RegionDrawWidget.h"

#include <QMouseEvent>

namespace {

const QSize kSensor(2048, 1536);
const QRect kStart(320, 320, 656, 644); // on all grids that are tried
const QStringList kRegion = words("OffsetX OffsetY Width Height");
const QStringList kArea = words("AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY "
                                "AutoFunctionAOIWidth AutoFunctionAOIHeight");

// Hears what pages say about drawing.
class DrawListener : public IORXListen
{
public:
    DrawListener()
    {
        ORXListenTools::instance()->addListener(this, ORXListenTools::PriorityNormal);
    }
    ~DrawListener() override { ORXListenTools::instance()->removeListener(this); }
    int notify(int code, void* data) override
    {
        if (code != 8)
            return 0;
        const auto* record = static_cast<const DrawModeChange*>(data);
        heard += "%1 %2"_s.arg(record->mode).arg(record->on);
        last = *record;
        return 0;
    }

    QStringList heard;
    DrawModeChange last = {};
};

} // namespace

class TestRegionDrawWidget : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_camera = std::make_unique<MeddledCamera>(*m_demo);
    }

private:
    RegionDrawWidget* picture() const { return imagePage()->regionPicture(); }
    QRect heldRect(const QStringList& names) const
    {
        const auto value = [&](int i) { return int(read(names[i].toLatin1())); };
        return {value(0), value(1), value(2), value(3)};
    }
    QRect shownRect(const QStringList& names) const
    {
        const auto value = [&](int i) {
            return m_window->item(kImage, names[i].toLatin1())->value()->value().toInt();
        };
        return {value(0), value(1), value(2), value(3)};
    }
    bool showRegion(const QStringList& names = kRegion)
    {
        return m_window->show(kImage, names.last().toLatin1()) &&
               QTest::qWaitFor([&] { return picture()->isVisible() && picture()->edited(); },
                               kWindowPatienceMs);
    }

    // The picture takes over what was read a moment after the reading has ended.
    bool hasLimitsAsRead(const QStringList& names) const
    {
        const auto read =
            RegionArea::read(*m_window->tree(), names == kArea ? RegionArea::autoFunctionNames()
                                                               : RegionArea::imageNames());
        const RegionArea* shown = picture()->edited();
        const auto areSame = [](const RegionAxis::Limits& a, const RegionAxis::Limits& b) {
            return a.extent == b.extent && a.sizeMaximum == b.sizeMaximum &&
                   a.offsetMaximum == b.offsetMaximum;
        };
        return read && shown && areSame(read->x().limits(), shown->x().limits()) &&
               areSame(read->y().limits(), shown->y().limits());
    }

    // Puts the camera's region there and waits until the page has seen it.
    void startAt(const QStringList& names, const QRect& rect)
    {
        const int values[] = {rect.x(), rect.y(), rect.width(), rect.height()};
        const auto set = [&](int i, int value) {
            QCOMPARE(write(names[i].toLatin1(), QByteArray::number(value)), 0);
        };
        for (const int i : {0, 1})
            set(i, 0);
        for (const int i : {2, 3, 0, 1})
            set(i, values[i]);
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(shownRect(names), rect);
        OBFT_TRY_COMPARE(picture()->edited() ? picture()->edited()->rect() : QRect(), rect);
        OBFT_TRY_VERIFY(hasLimitsAsRead(names));
        m_camera->forget();
    }

    void openAtStart()
    {
        open();
        QVERIFY(showRegion());
        startAt(kRegion, kStart);
    }

    // Where the edited region's edge, corner or middle is (-1, 0, 1 each).
    QPoint handle(int column, int row) const
    {
        const QRectF rect = picture()->toWidget(picture()->edited()->current());
        return (rect.center() + QPointF(column * rect.width(), row * rect.height()) / 2).toPoint();
    }

    void mouse(QEvent::Type type, const QPoint& at) const
    {
        const bool released = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, picture()->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(picture(), &event);
    }

    void dragMouse(const QPoint& from, const QPoint& to) const
    {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, to);
        mouse(QEvent::MouseButtonRelease, to);
    }

    // What the camera holds after a drag, when that is not what was wanted; empty when all is well.
    QString fault(int column, int row, const QPoint& way, const QStringList& names,
                  const QSize& area, const QSize& increments) const
    {
        const double pixel =
            kStart.width() / picture()->toWidget({{0, kStart.width()}, {0, 1}}).width();
        const int slack = qMax(increments.width(), increments.height());
        const bool moves = column == 0 && row == 0;
        const auto isWell = [&](int side, RegionAxis::Span start, RegionAxis::Span got, int by,
                                int extent, int smallest) {
            const auto isAt = [&](qint64 place, qint64 least, qint64 wanted, qint64 most) {
                return double(qAbs(place - qBound(least, wanted, most))) <= slack + 2 * pixel;
            };
            if (got.offset < 0 || got.end() > extent || got.offset % increments.height() != 0 ||
                (got.size - smallest) % increments.width() != 0)
                return false;
            if (moves)
                return got.size == start.size &&
                       isAt(got.offset, 0, start.offset + by, extent - start.size);
            if (side < 0)
                return got.end() <= start.end() && got.end() > start.end() - slack &&
                       isAt(got.offset, 0, start.offset + by, start.end() - smallest);
            return got.offset == start.offset &&
                   (side == 0 ? got.size == start.size
                              : isAt(got.end(), start.offset + smallest, start.end() + by, extent));
        };
        const QRect got = heldRect(names);
        const bool image = names == kRegion;
        if (isWell(column, {kStart.x(), kStart.width()}, {got.x(), got.width()},
                   int(way.x() * pixel), area.width(), image ? 16 : 1) &&
            isWell(row, {kStart.y(), kStart.height()}, {got.y(), got.height()},
                   int(way.y() * pixel), area.height(), image ? 4 : 1))
            return {};
        return QString::asprintf("%d,%d %dx%d", got.x(), got.y(), got.width(), got.height());
    }

    // One drag of a handle; returns what went wrong.
    QString drag(int column, int row, const QPoint& to, const QStringList& names, const QSize& area,
                 const QSize& increments)
    {
        const QPoint from = handle(column, row);
        mouse(QEvent::MouseButtonPress, from);
        for (const int part : {1, 2, 3})
            mouse(QEvent::MouseMove, from + (to - from) * part / 3);
        if (!m_camera->writes().isEmpty())
            return "written while dragging"_s;
        mouse(QEvent::MouseButtonRelease, to);
        // The camera refuses each write that leaves its limits, which depend on each other.
        if (!message().isEmpty())
            return message();
        if (shownRect(names) != heldRect(names))
            return "the numbers do not follow"_s;
        if (picture()->edited()->rect() != heldRect(names))
            return "the picture does not follow"_s;
        return fault(column, row, to - from, names, area, increments);
    }

private slots:
    void regionFollowsTheMouse_data()
    {
        const Rows<QStringList, int, int> row("names", "sizeIncrement", "offsetIncrement");
        row("small increments", kRegion, 16, 4);
        row("large sizes", kRegion, 80, 4);
        row("large offsets", kRegion, 16, 80);
        row("both large", kRegion, 80, 32);
        row("area of the automatics", kArea, 1, 1);
    }

    void regionFollowsTheMouse()
    {
        const auto [names, sizeIncrement, offsetIncrement] = fetchRow<QStringList, int, int>();
        for (int i = 0; i < 4; ++i)
            m_camera->setIncrement(names[i].toLatin1(), i < 2 ? offsetIncrement : sizeIncrement);
        open();
        QVERIFY(showRegion(names));
        const QSize area = names == kArea ? heldRect(kRegion).size() : kSensor;
        const QRect box = picture()->rect();
        const QPoint targets[] = {box.topLeft() - QPoint(50, 50),
                                  box.bottomRight() + QPoint(50, 50), box.topRight(),
                                  box.center() + QPoint(13, -7)};
        for (int handleIndex = 0; handleIndex < 9; ++handleIndex) {
            const int column = handleIndex % 3 - 1;
            const int row = handleIndex / 3 - 1;
            for (const QPoint& target : targets) {
                startAt(names, kStart);
                const QString wrong =
                    drag(column, row, target, names, area, {sizeIncrement, offsetIncrement});
                QVERIFY2(wrong.isEmpty(),
                         qPrintable(QString::asprintf("%d,%d to %d,%d: ", column, row, target.x(),
                                                      target.y()) +
                                    wrong));
                for (const QString& write : m_camera->writes())
                    QVERIFY2(names.contains(write.section(QLatin1Char('='), 0, 0)),
                             qPrintable(write));
            }
        }
    }

    void regionFollowsTheKeys_data()
    {
        const Rows<int, bool, QStringList> row("key", "shift", "writes");
        row("right", Qt::Key_Right, false, "OffsetX=328");
        row("left", Qt::Key_Left, false, "OffsetX=312");
        row("down", Qt::Key_Down, false, "OffsetY=328");
        row("up", Qt::Key_Up, false, "OffsetY=312");
        row("wider", Qt::Key_Right, true, "Width=688");
        row("narrower", Qt::Key_Left, true, "Width=624");
        row("higher", Qt::Key_Down, true, "Height=652");
        row("lower", Qt::Key_Up, true, "Height=636");
    }

    void regionFollowsTheKeys()
    {
        const auto [key, shift, writes] = fetchRow<int, bool, QStringList>();
        const Qt::KeyboardModifiers modifiers = shift ? Qt::ShiftModifier : Qt::NoModifier;
        openAtStart();
        picture()->setFocus();
        // Held for two steps, then Escape; then once more and let go.
        for (const bool escape : {true, false}) {
            QTest::keyPress(picture(), Qt::Key(key), modifiers);
            QTest::keyPress(picture(), Qt::Key(key), modifiers);
            QCOMPARE(m_camera->writes(), QStringList());
            if (escape)
                QTest::keyClick(picture(), Qt::Key_Escape);
            QTest::keyRelease(picture(), Qt::Key(key), modifiers);
            QCOMPARE(m_camera->writes(), escape ? QStringList() : writes);
        }
        QCOMPARE(shownRect(kRegion), heldRect(kRegion));
    }

    void escapeTakesBack()
    {
        openAtStart();
        const QPoint middle = handle(0, 0);
        picture()->setFocus();
        mouse(QEvent::MouseButtonPress, middle);
        mouse(QEvent::MouseMove, middle + QPoint(40, 40));
        QTest::keyClick(picture(), Qt::Key_Escape);
        mouse(QEvent::MouseMove, middle + QPoint(60, 60));
        mouse(QEvent::MouseButtonRelease, middle + QPoint(60, 60));
        QCOMPARE(m_camera->writes(), QStringList());
        QCOMPARE(heldRect(kRegion), kStart);
        QCOMPARE(drag(0, 0, middle + QPoint(20, 20), kRegion, kSensor, {16, 4}), QString());
        QVERIFY(!m_camera->writes().isEmpty());
    }

    void lockedSizeIsMoved()
    {
        openAtStart();
        for (const char* name : {"Width", "Height"})
            m_camera->lock(name, true);
        QVERIFY(m_window->refresh());
        OBFT_TRY_VERIFY(m_window->item(kImage, "Width")->readOnly());
        OBFT_TRY_VERIFY(picture()->edited());
        const QPoint from = handle(0, 0);
        dragMouse(from, from + QPoint(-20, 0));
        OBFT_TRY_VERIFY(m_camera->writesOf("OffsetX") == 1);
        QCOMPARE(m_camera->writesOf("Width") + m_camera->writesOf("Height"), 0);
        QCOMPARE(heldRect(kRegion).size(), kStart.size());
        QVERIFY(heldRect(kRegion).x() < kStart.x());
    }

    void lockedWhileAcquiring()
    {
        openAtStart();
        const QPoint middle = handle(0, 0);
        QVERIFY(m_window->click(kTree, "AcquisitionStart"));
        QVERIFY(m_window->show(kImage, "Width"));
        OBFT_TRY_VERIFY(!picture()->edited());
        m_camera->forget();
        dragMouse(middle, middle + QPoint(40, 40));
        QTest::keyClick(picture(), Qt::Key_Right);
        QCOMPARE(m_camera->writes(), QStringList());
        QVERIFY(m_window->click(kTree, "AcquisitionStop"));
        QVERIFY(showRegion());
    }

    void refusedWriteShowsTheCamera_data()
    {
        const Rows<QByteArray, int> row("refused", "writes");
        // Enlarged to the upper left: offset and size of x, then of y.
        row("first", "OffsetX", 1);
        row("second", "Width", 2);
        row("last", "Height", 4);
    }

    void refusedWriteShowsTheCamera()
    {
        const auto [refused, writes] = fetchRow<QByteArray, int>();
        MessageGuard::expectMessage("Read Feature Failed"_s);
        openAtStart();
        m_camera->fail(refused, CameraError::NotWritable);
        const QPoint corner = handle(-1, -1);
        dragMouse(corner, corner - QPoint(40, 40));
        QCOMPARE(m_camera->writes().size(), writes);
        QVERIFY(
            message().startsWith("Node '%1':failed to save value"_s.arg(QLatin1String(refused))));
        m_camera->fail(refused, 0);
        OBFT_TRY_COMPARE(shownRect(kRegion), heldRect(kRegion));
        OBFT_TRY_COMPARE(picture()->edited()->rect(), heldRect(kRegion));
    }

    void drawModeIsTold()
    {
        open();
        DrawListener listener;
        const auto told = [&](const char* events) {
            const QStringList expected = QString::fromLatin1(events).split(QLatin1Char(','));
            const bool came = QTest::qWaitFor(
                [&] { return listener.heard.size() >= expected.size(); }, kWindowPatienceMs);
            const QStringList heard = listener.heard;
            listener.heard.clear();
            return came && heard == expected;
        };
        QVERIFY(m_window->show(kImage, "Width"));
        QVERIFY(told("1 1"));
        QCOMPARE(listener.last.zero, quint8(0));
        QCOMPARE(listener.last.page, 3);
        QCOMPARE(listener.last.cameraId, qint64(1));
        QCOMPARE(listener.last.sender, static_cast<void*>(imagePage()));
        const std::tuple<int, const char*, const char*> steps[] = {
            {kImage, "AutoFunctionAOIWidth", "1 0,2 1"},
            {kImage, "LUTEnable", "2 0"},
            {kImage, "Width", "1 1"},
            {kTree, "Width", "1 0"},
            {kImage, "Width", "1 1"}};
        for (const auto& [tab, shown, events] : steps) {
            QVERIFY(m_window->show(tab, shown));
            QVERIFY2(told(events), shown);
        }
        // Another page draws in this camera, or in another one.
        DrawModeChange other = {0, 1, 3, 1, 2, &listener};
        const auto modeAfter = [&](qint64 cameraId, bool on) {
            other.cameraId = cameraId;
            other.on = on ? 1 : 0;
            ORXListenTools::instance()->notifyListeners(8, &other);
            return picture()->drawMode();
        };
        QCOMPARE(modeAfter(2, true), RegionDrawWidget::DrawImageRegion);
        QCOMPARE(modeAfter(1, true), RegionDrawWidget::DrawNothing);
        QVERIFY(m_window->refresh());
        QCOMPARE(picture()->drawMode(), RegionDrawWidget::DrawNothing);
        QCOMPARE(modeAfter(1, false), RegionDrawWidget::DrawImageRegion);
    }
};

OBFT_TEST_MAIN(TestRegionDrawWidget)
#include "tst_regiondrawwidget.moc"
