// SPDX-License-Identifier: Apache-2.0
// The image processing page in the window, on the simulated camera: rows, region and areas, look-up
// table, matrix and palettes. The rows of check boxes are tst_selectorchecks' subject.
#include "CameraError.h"
#include "DemoCamera.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "pages/MeddledCamera.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXRWCCMValue.h"
#include "pages/PageWindow.h"
#include "pages/QLUTDrawWidget.h"
#include "pages/RegionDrawWidget.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <cmath>
#include <memory>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
const QSize kSensor(2048, 1536);
const QRect kStart(320, 320, 656, 644); // on all grids that are tried
const QStringList kRegion = {QStringLiteral("OffsetX"), QStringLiteral("OffsetY"),
                             QStringLiteral("Width"), QStringLiteral("Height")};
const QStringList kArea = {
    QStringLiteral("AutoFunctionAOIOffsetX"), QStringLiteral("AutoFunctionAOIOffsetY"),
    QStringLiteral("AutoFunctionAOIWidth"), QStringLiteral("AutoFunctionAOIHeight")};
const QVector<const char*> kLutItems = {
    "Custom_LUTLineType",     "Custom_LUTGamma",          "Custom_LUTContrast",
    "Custom_LUTLum",          "Custom_LUTLoadFromCamera", "Custom_LUTSetToCamera",
    "Custom_LUTLoadFromFile", "Custom_LUTSetToFile",      "Custom_LUTClear"};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

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
        heard += QStringLiteral("%1 %2").arg(record->mode).arg(record->on);
        last = *record;
        return 0;
    }

    QStringList heard;
    DrawModeChange last = {};
};

} // namespace

class TestORXImgProcessingFeature : public GuardedTest
{
    Q_OBJECT
private slots:
    void groupsHoldTheirFeatures_data();
    void groupsHoldTheirFeatures();
    void titlesInBothLanguages_data();
    void titlesInBothLanguages();
    void groupsWithoutFeaturesDoNotShow_data();
    void groupsWithoutFeaturesDoNotShow();
    void regionFollowsTheMouse_data();
    void regionFollowsTheMouse();
    void areaFollowsTheMouse();
    void regionFollowsTheKeys_data();
    void regionFollowsTheKeys();
    void escapeTakesBack();
    void lockedWhileAcquiring();
    void refusedWriteShowsTheCamera_data();
    void refusedWriteShowsTheCamera();
    void drawModeIsTold();
    void lutItemsFollowTheSwitch();
    void drawnLineReachesTheCamera_data();
    void drawnLineReachesTheCamera();
    void tableIsLockedDuringATransfer();
    void transferEndsWithTheCamera_data();
    void transferEndsWithTheCamera();
    void matrixStandsWhereItIs_data();
    void matrixStandsWhereItIs();
    void palettesMirrorTheCamera();
    void languageSwitchedWhileShown();

protected:
    void prepare() override;
    void finish() override;

private:
    void open(const QStringList& lacking = {}, int language = 0);
    void openLut();
    ORXImgProcessingFeature* page() const
    {
        return static_cast<ORXImgProcessingFeature*>(m_window->page(kPage));
    }
    RegionDrawWidget* picture() const { return page()->regionPicture(); }
    QLUTDrawWidget* editor() const { return page()->lutEditor(); }
    void set(const char* name, const QString& text)
    {
        const DescriptionNode* node = m_demo->nodes().find(name);
        const int type = node->tag == "Enumeration" ? OB_FT_TYPE_ENUMERATION
                         : node->tag == "Boolean"   ? OB_FT_TYPE_BOOLEAN
                         : node->tag == "Command"   ? OB_FT_TYPE_COMMAND
                                                    : OB_FT_TYPE_INTEGER;
        QCOMPARE(m_demo->write(type, name, text.toStdString()), 0);
    }
    qint64 held(const QString& name) const
    {
        _ZDCC_INTVALUE_EX_T record = {};
        m_demo->read(OB_FT_TYPE_INTEGER, name.toStdString(), &record);
        return record.value;
    }
    QRect heldRect(const QStringList& names) const
    {
        return {int(held(names[0])), int(held(names[1])), int(held(names[2])), int(held(names[3]))};
    }
    QRect shownRect(const QStringList& names) const
    {
        const auto value = [&](int i) {
            return m_window->item(kPage, names[i].toLatin1())->value()->value().toInt();
        };
        return {value(0), value(1), value(2), value(3)};
    }
    bool showRegion();
    void startAt(const QStringList& names, const QRect& rect);
    QPoint handle(int column, int row) const;
    void mouse(QEvent::Type type, const QPoint& at) const;
    QString fault(int column, int row, const QPoint& way, const QStringList& names,
                  const QSize& area, const QSize& increments) const;
    QString drag(int column, int row, const QPoint& to, const QStringList& names, const QSize& area,
                 const QSize& increments);
    QStringList shownGroups() const;
    QString treeMessage() const
    {
        const auto* box = m_window->tree()->findChild<ZELCustomMessageBox*>();
        return box && box->isVisible() ? box->cContent() : QString();
    }
    QString lutMessage() const
    {
        const auto boxes = editor()->findChildren<ZELCustomMessageBox*>();
        return boxes.isEmpty() ? QString() : boxes.constLast()->cContent();
    }
    bool lutCommand(const char* name, const char* message);
    QVector<int> drawn() const
    {
        QVector<int> values;
        for (const LUTPoint& point : editor()->GetSettinngPoints())
            values += point.value;
        return values;
    }
    QVector<int> memory(int selector);

    std::unique_ptr<DemoCamera> m_demo;
    std::unique_ptr<MeddledCamera> m_camera;
    std::unique_ptr<PageWindow> m_window;
};

void TestORXImgProcessingFeature::prepare()
{
    OBDeviceControl::SetUserLevel(0);
    QDir(ORXInterface::userDataPath() + QStringLiteral("/CCMList")).removeRecursively();
    m_demo = std::make_unique<DemoCamera>();
}

void TestORXImgProcessingFeature::finish()
{
    if (m_camera)
        m_camera->openGate();
    m_window.reset();
    m_camera.reset();
    m_demo.reset();
    QDir(ORXInterface::userDataPath() + QStringLiteral("/CCMList")).removeRecursively();
    ORXInterface::setFileDialogHook(nullptr);
    OBDeviceControl::SetUserLevel(1);
    ORXInterface::setLanguage(QStringLiteral("ENG"));
}

void TestORXImgProcessingFeature::open(const QStringList& lacking, int language)
{
    if (!m_camera)
        m_camera = std::make_unique<MeddledCamera>(*m_demo, lacking);
    m_window = std::make_unique<PageWindow>(*m_camera, language);
}

// Rows --------------------------------------------------------------------------------------------

void TestORXImgProcessingFeature::groupsHoldTheirFeatures_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("region") << QByteArray("Custom_ROIGroup")
                            << words("RegionSelector RegionMode Width Height OffsetX OffsetY "
                                     "BinningSelector BinningHorizontal BinningVertical "
                                     "DecimationHorizontal DecimationVertical ReverseX ReverseY "
                                     "Custom_ROIDraw");
    QTest::newRow("automatics' area")
        << QByteArray("Custom_AOIGroup")
        << words("AutoFunctionAOISelector AutoFunctionAOIWidth AutoFunctionAOIHeight "
                 "AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY AutoFunctionAOIUsageIntensity "
                 "AutoFunctionAOIUsageWhiteBalance");
    QTest::newRow("embedded information")
        << QByteArray("Custom_EmbeddedInfoGroup")
        << words("ChunkModeActive Custom_ChunkSelector_0 Custom_ChunkSelector_2 "
                 "Custom_ChunkSelector_4 Custom_ChunkSelector_6");
    QTest::newRow("events") << QByteArray("Custom_EventGroup")
                            << words("Custom_EventSelector_0 Custom_EventSelector_2 "
                                     "Custom_EventSelector_4 Custom_EventSelector_6");
    QTest::newRow("look-up table")
        << QByteArray("Custom_LUTGroup")
        << words("LUTEnable LUTSelector Custom_LUTLineType Custom_LUTGamma Custom_LUTContrast "
                 "Custom_LUTLum Custom_LUTLoadFromCamera Custom_LUTSetToCamera "
                 "Custom_LUTLoadFromFile Custom_LUTSetToFile Custom_LUTClear");
    QTest::newRow("matrix") << QByteArray("Custom_CCMGroup")
                            << words("Custom_CCMEnable Custom_CCM");
    QTest::newRow("palette") << QByteArray("Custom_PaletteGroup") << words("Custom_PalettesMode");
}

void TestORXImgProcessingFeature::groupsHoldTheirFeatures()
{
    QFETCH(QByteArray, group);
    QFETCH(QStringList, names);
    const QStringList hidden = words("Custom_LUTGamma Custom_LUTContrast Custom_LUTLum");
    open();
    QVERIFY(m_window->show(kPage, names.first().toLatin1()));
    // Rows are kept for the most entries that there may be.
    QStringList items = m_window->items(kPage, group);
    items.removeAll(QString());
    QCOMPARE(items, names);
    for (const QString& name : qAsConst(names)) {
        const QByteArray latin = name.toLatin1();
        const ORXPropertyTreeItem* whole = m_window->item(kTree, latin);
        QVERIFY2(latin.startsWith("Custom_") || m_window->item(kPage, latin) == whole, latin);
        const bool shown = whole ? whole->visible() : !hidden.contains(name);
        QVERIFY2(m_window->isRowShown(kPage, latin) == shown, latin);
    }
}

void TestORXImgProcessingFeature::titlesInBothLanguages_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("titles");
    QTest::newRow("English") << 0
                             << QStringLiteral("Image Processing|ROI|AOI|Embedded Information|"
                                               "Event Control|LUT|Color Correction Matrix|Palette");
    QTest::newRow("Chinese")
        << 1
        << QStringLiteral("图像处理|感兴趣区域（ROI）|自动功能区域（AOI）|嵌入信息|事件控制|"
                          "查找表（LUT）|色彩校正矩阵|伪彩调色板");
}

void TestORXImgProcessingFeature::titlesInBothLanguages()
{
    QFETCH(int, language);
    QFETCH(QString, titles);
    open({}, language);
    QCOMPARE(m_window->titles(kPage).join(QLatin1Char('|')), titles);
}

QStringList TestORXImgProcessingFeature::shownGroups() const
{
    const CFeatureGroupTreeView* column = m_window->widget()->featureGroup(1)->groupView();
    const QAbstractItemModel* model = column->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex root = model->index(row, 0);
        if (CFeatureGroupModel::itemFromIndex(root) != page()->getRootItem(1, false))
            continue;
        for (int group = 0; group < model->rowCount(root); ++group) {
            if (!column->isRowHidden(group, root))
                names += CFeatureGroupModel::itemFromIndex(model->index(group, 0, root))
                             ->value()
                             ->nodeName(0);
        }
    }
    return names;
}

void TestORXImgProcessingFeature::groupsWithoutFeaturesDoNotShow_data()
{
    QTest::addColumn<QString>("features");
    QTest::addColumn<QString>("group");
    QTest::addColumn<bool>("hide"); // by the access mode; else the description lacks them
    const auto row = [](const char* group, const char* features) {
        for (const bool hide : {false, true})
            QTest::addRow("%s %s", group, hide ? "hidden" : "missing")
                << QString::fromLatin1(features) << QString::fromLatin1(group) << hide;
    };
    row("Custom_AOIGroup", "AutoFunctionAOISelector AutoFunctionAOIWidth AutoFunctionAOIHeight "
                           "AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY "
                           "AutoFunctionAOIUsageIntensity AutoFunctionAOIUsageWhiteBalance");
    row("Custom_EmbeddedInfoGroup", "ChunkModeActive ChunkSelector ChunkEnable "
                                    "FrameSpecInfoSelector FrameSpecInfo");
    row("Custom_EventGroup", "EventSelector EventNotification");
    row("Custom_LUTGroup", "LUTEnable LUTSelector");
    row("Custom_PaletteGroup", "PalettesMode");
    QTest::newRow("Custom_CCMGroup missing")
        << QStringLiteral("ColorTransformationValueSelector ColorTransformationValue "
                          "ColorTransformationEnable CCMEnable")
        << QStringLiteral("Custom_CCMGroup") << false;
}

void TestORXImgProcessingFeature::groupsWithoutFeaturesDoNotShow()
{
    QFETCH(QString, features);
    QFETCH(QString, group);
    QFETCH(bool, hide);
    const QStringList names = features.split(QLatin1Char(' '));
    m_camera = std::make_unique<MeddledCamera>(*m_demo, hide ? QStringList() : names);
    for (const QString& name : names)
        m_camera->hide(name.toLatin1(), hide);
    open();
    QStringList expected =
        words("Custom_ROIGroup Custom_AOIGroup Custom_EmbeddedInfoGroup Custom_EventGroup "
              "Custom_LUTGroup Custom_CCMGroup Custom_PaletteGroup");
    expected.removeAll(group);
    OBFT_TRY_COMPARE(shownGroups(), expected);
    QVERIFY(m_window->show(kPage, "Width"));
    QVERIFY(picture()->isVisible());
}

// Region ------------------------------------------------------------------------------------------

bool TestORXImgProcessingFeature::showRegion()
{
    return m_window->show(kPage, "Width") &&
           QTest::qWaitFor([&] { return picture()->isVisible() && picture()->edited(); },
                           PageWindow::kPatienceMs);
}

// Puts the camera's region there and waits until the page has seen it.
void TestORXImgProcessingFeature::startAt(const QStringList& names, const QRect& rect)
{
    for (const int i : {0, 1})
        set(names[i].toLatin1(), QStringLiteral("0"));
    const int values[] = {rect.x(), rect.y(), rect.width(), rect.height()};
    for (const int i : {2, 3, 0, 1})
        set(names[i].toLatin1(), QString::number(values[i]));
    QVERIFY(m_window->refresh());
    OBFT_TRY_VERIFY(picture()->edited() && picture()->edited()->rect() == rect);
    m_camera->forget();
}

// Where the edited region's edge, corner or middle is (-1, 0, 1 each).
QPoint TestORXImgProcessingFeature::handle(int column, int row) const
{
    const QRectF rect = picture()->toWidget(picture()->edited()->current());
    return (rect.center() + QPointF(column * rect.width(), row * rect.height()) / 2).toPoint();
}

void TestORXImgProcessingFeature::mouse(QEvent::Type type, const QPoint& at) const
{
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, picture()->mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(picture(), &event);
}

// What is wrong with the region that the camera holds after a drag; empty when all is well.
QString TestORXImgProcessingFeature::fault(int column, int row, const QPoint& way,
                                           const QStringList& names, const QSize& area,
                                           const QSize& increments) const
{
    const QRect got = heldRect(names);
    const double pixel =
        kStart.width() / picture()->toWidget({{0, kStart.width()}, {0, 1}}).width();
    const auto axisFault = [&](int side, bool moves, int from, int size, int gotFrom, int gotSize,
                               int by, int end, int sizeMinimum) -> QString {
        if (gotFrom < 0 || gotFrom + gotSize > end || gotFrom % increments.height() != 0 ||
            (gotSize - sizeMinimum) % increments.width() != 0)
            return QStringLiteral("not legal");
        const bool beginMoves = side < 0 || moves;
        const bool endMoves = side > 0 || moves;
        if (!beginMoves && gotFrom != from)
            return QStringLiteral("begin moved");
        if (moves && gotSize != size)
            return QStringLiteral("size changed");
        const int slack = qMax(increments.width(), increments.height());
        if (!beginMoves && !endMoves && gotSize != size)
            return QStringLiteral("end moved");
        if (side < 0 &&
            (gotFrom + gotSize > from + size || gotFrom + gotSize <= from + size - slack))
            return QStringLiteral("end moved");
        const int wantedBegin =
            qBound(0, from + by, moves ? end - size : from + size - sizeMinimum);
        const int wantedEnd = qBound(from + sizeMinimum, from + size + by, end);
        if (beginMoves && std::abs(gotFrom - wantedBegin) > slack + 2 * pixel)
            return QStringLiteral("begin is not at the pointer");
        if (side > 0 && std::abs(gotFrom + gotSize - wantedEnd) > slack + 2 * pixel)
            return QStringLiteral("end is not at the pointer");
        return {};
    };
    const bool moves = column == 0 && row == 0;
    const bool image = names == kRegion;
    const QString x = axisFault(column, moves, kStart.x(), kStart.width(), got.x(), got.width(),
                                int(way.x() * pixel), area.width(), image ? 16 : 1);
    const QString y = axisFault(row, moves, kStart.y(), kStart.height(), got.y(), got.height(),
                                int(way.y() * pixel), area.height(), image ? 4 : 1);
    if (x.isEmpty() && y.isEmpty())
        return {};
    return QStringLiteral("x %1, y %2: %3,%4 %5x%6")
        .arg(x, y)
        .arg(got.x())
        .arg(got.y())
        .arg(got.width())
        .arg(got.height());
}

// One drag of a handle; returns what went wrong.
QString TestORXImgProcessingFeature::drag(int column, int row, const QPoint& to,
                                          const QStringList& names, const QSize& area,
                                          const QSize& increments)
{
    const QPoint from = handle(column, row);
    mouse(QEvent::MouseButtonPress, from);
    for (const int part : {1, 2, 3})
        mouse(QEvent::MouseMove, from + (to - from) * part / 3);
    if (!m_camera->writes().isEmpty())
        return QStringLiteral("written while dragging");
    mouse(QEvent::MouseButtonRelease, to);
    // The camera refuses each write that leaves its limits, which depend on each other.
    if (!treeMessage().isEmpty())
        return treeMessage();
    if (shownRect(names) != heldRect(names))
        return QStringLiteral("the numbers do not follow");
    if (picture()->edited()->rect() != heldRect(names))
        return QStringLiteral("the picture does not follow");
    return fault(column, row, to - from, names, area, increments);
}

void TestORXImgProcessingFeature::regionFollowsTheMouse_data()
{
    QTest::addColumn<int>("sizeIncrement");
    QTest::addColumn<int>("offsetIncrement");
    QTest::newRow("small increments") << 16 << 4;
    QTest::newRow("large sizes") << 80 << 4;
    QTest::newRow("large offsets") << 16 << 80;
    QTest::newRow("both large") << 80 << 32;
}

void TestORXImgProcessingFeature::regionFollowsTheMouse()
{
    QFETCH(int, sizeIncrement);
    QFETCH(int, offsetIncrement);
    m_camera = std::make_unique<MeddledCamera>(*m_demo);
    for (const char* name : {"Width", "Height"})
        m_camera->setIncrement(name, sizeIncrement);
    for (const char* name : {"OffsetX", "OffsetY"})
        m_camera->setIncrement(name, offsetIncrement);
    open();
    QVERIFY(showRegion());
    const QRect box = picture()->rect();
    const QPoint targets[] = {box.topLeft() - QPoint(50, 50), box.bottomRight() + QPoint(50, 50),
                              box.topRight(), box.center() + QPoint(13, -7)};
    for (int handleIndex = 0; handleIndex < 9; ++handleIndex) {
        const int column = handleIndex % 3 - 1;
        const int row = handleIndex / 3 - 1;
        for (const QPoint& target : targets) {
            startAt(kRegion, kStart);
            const QString wrong =
                drag(column, row, target, kRegion, kSensor, {sizeIncrement, offsetIncrement});
            QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("%1,%2 to %3,%4: %5")
                                                     .arg(column)
                                                     .arg(row)
                                                     .arg(target.x())
                                                     .arg(target.y())
                                                     .arg(wrong)));
        }
    }
}

void TestORXImgProcessingFeature::areaFollowsTheMouse()
{
    open();
    QVERIFY(m_window->show(kPage, "AutoFunctionAOIWidth"));
    OBFT_TRY_VERIFY(picture()->isVisible() && picture()->edited());
    const QSize image(int(held(kRegion[2])), int(held(kRegion[3])));
    const QRect box = picture()->rect();
    for (const QPoint& target : {box.topLeft(), box.bottomRight(), box.center()}) {
        for (const int side : {-1, 0, 1}) {
            startAt(kArea, kStart);
            const QString wrong = drag(side, side, target, kArea, image, {1, 1});
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
            for (const QString& write : m_camera->writes())
                QVERIFY2(write.startsWith(QLatin1String("AutoFunctionAOI")), qPrintable(write));
        }
    }
}

void TestORXImgProcessingFeature::regionFollowsTheKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QStringList>("writes");
    QTest::newRow("right") << int(Qt::Key_Right) << false << words("OffsetX=328");
    QTest::newRow("left") << int(Qt::Key_Left) << false << words("OffsetX=312");
    QTest::newRow("down") << int(Qt::Key_Down) << false << words("OffsetY=328");
    QTest::newRow("up") << int(Qt::Key_Up) << false << words("OffsetY=312");
    QTest::newRow("wider") << int(Qt::Key_Right) << true << words("Width=688");
    QTest::newRow("narrower") << int(Qt::Key_Left) << true << words("Width=624");
    QTest::newRow("higher") << int(Qt::Key_Down) << true << words("Height=652");
    QTest::newRow("lower") << int(Qt::Key_Up) << true << words("Height=636");
}

void TestORXImgProcessingFeature::regionFollowsTheKeys()
{
    QFETCH(int, key);
    QFETCH(bool, shift);
    QFETCH(QStringList, writes);
    const Qt::KeyboardModifiers modifiers = shift ? Qt::ShiftModifier : Qt::NoModifier;
    open();
    QVERIFY(showRegion());
    startAt(kRegion, kStart);
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

void TestORXImgProcessingFeature::escapeTakesBack()
{
    open();
    QVERIFY(showRegion());
    startAt(kRegion, kStart);
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

void TestORXImgProcessingFeature::lockedWhileAcquiring()
{
    open();
    QVERIFY(showRegion());
    startAt(kRegion, kStart);
    const QPoint middle = handle(0, 0);
    QVERIFY(m_window->click(kTree, "AcquisitionStart"));
    QVERIFY(m_window->show(kPage, "Width"));
    OBFT_TRY_VERIFY(!picture()->edited());
    m_camera->forget();
    mouse(QEvent::MouseButtonPress, middle);
    mouse(QEvent::MouseMove, middle + QPoint(40, 40));
    mouse(QEvent::MouseButtonRelease, middle + QPoint(40, 40));
    QTest::keyClick(picture(), Qt::Key_Right);
    QCOMPARE(m_camera->writes(), QStringList());
    QVERIFY(m_window->click(kTree, "AcquisitionStop"));
    QVERIFY(showRegion());
}

void TestORXImgProcessingFeature::refusedWriteShowsTheCamera_data()
{
    QTest::addColumn<QByteArray>("refused");
    QTest::addColumn<int>("writes");
    // Enlarged to the upper left: offset and size of x, then of y.
    QTest::newRow("first") << QByteArray("OffsetX") << 1;
    QTest::newRow("second") << QByteArray("Width") << 2;
    QTest::newRow("last") << QByteArray("Height") << 4;
}

void TestORXImgProcessingFeature::refusedWriteShowsTheCamera()
{
    QFETCH(QByteArray, refused);
    QFETCH(int, writes);
    MessageGuard::expectMessage(QStringLiteral("Read Feature Failed"));
    open();
    QVERIFY(showRegion());
    startAt(kRegion, kStart);
    m_camera->fail(refused, CameraError::NotWritable);
    const QPoint corner = handle(-1, -1);
    mouse(QEvent::MouseButtonPress, corner);
    mouse(QEvent::MouseMove, corner - QPoint(40, 40));
    mouse(QEvent::MouseButtonRelease, corner - QPoint(40, 40));
    QCOMPARE(m_camera->writes().size(), writes);
    QVERIFY(treeMessage().startsWith(
        QStringLiteral("Node '%1':failed to save value").arg(QLatin1String(refused))));
    m_camera->fail(refused, 0);
    OBFT_TRY_COMPARE(shownRect(kRegion), heldRect(kRegion));
    OBFT_TRY_COMPARE(picture()->edited()->rect(), heldRect(kRegion));
}

void TestORXImgProcessingFeature::drawModeIsTold()
{
    open();
    DrawListener listener;
    const auto told = [&](const char* events) {
        const QStringList expected = QString::fromLatin1(events).split(QLatin1Char(','));
        const bool came = QTest::qWaitFor([&] { return listener.heard.size() >= expected.size(); },
                                          PageWindow::kPatienceMs);
        const QStringList heard = listener.heard;
        listener.heard.clear();
        return came && heard == expected;
    };
    QVERIFY(m_window->show(kPage, "Width"));
    QVERIFY(told("1 1"));
    QCOMPARE(listener.last.zero, quint8(0));
    QCOMPARE(listener.last.page, 3);
    QCOMPARE(listener.last.cameraId, qint64(1));
    QCOMPARE(listener.last.sender, static_cast<void*>(page()));
    QVERIFY(m_window->show(kPage, "AutoFunctionAOIWidth"));
    QVERIFY(told("1 0,2 1"));
    QVERIFY(m_window->show(kPage, "LUTEnable"));
    QVERIFY(told("2 0"));
    QVERIFY(m_window->show(kPage, "Width"));
    QVERIFY(told("1 1"));
    QVERIFY(m_window->show(kTree, "Width"));
    QVERIFY(told("1 0"));
    QVERIFY(m_window->show(kPage, "Width"));
    QVERIFY(told("1 1"));
    // Another page draws in this camera, or in another one.
    DrawModeChange other = {0, 1, 3, 1, 2, &listener};
    ORXListenTools::instance()->notifyListeners(8, &other);
    QCOMPARE(picture()->drawMode(), RegionDrawWidget::DrawImageRegion);
    other.cameraId = 1;
    ORXListenTools::instance()->notifyListeners(8, &other);
    QCOMPARE(picture()->drawMode(), RegionDrawWidget::DrawNothing);
    QVERIFY(m_window->refresh());
    QCOMPARE(picture()->drawMode(), RegionDrawWidget::DrawNothing);
    other.on = 0;
    ORXListenTools::instance()->notifyListeners(8, &other);
    QCOMPARE(picture()->drawMode(), RegionDrawWidget::DrawImageRegion);
}

// Look-up table -----------------------------------------------------------------------------------

void TestORXImgProcessingFeature::openLut()
{
    set("LUTEnable", QStringLiteral("1"));
    open();
    QVERIFY(m_window->show(kPage, "LUTEnable"));
    OBFT_TRY_VERIFY(editor()->isVisible() && editor()->isEnabled());
}

void TestORXImgProcessingFeature::lutItemsFollowTheSwitch()
{
    openLut();
    const auto readOnlyItems = [&] {
        return int(std::count_if(kLutItems.begin(), kLutItems.end(), [&](const char* name) {
            return m_window->item(kPage, name)->readOnly();
        }));
    };
    const auto shownItems = [&] {
        return int(std::count_if(kLutItems.begin(), kLutItems.end(), [&](const char* name) {
            return m_window->isRowShown(kPage, name);
        }));
    };
    OBFT_TRY_COMPARE(readOnlyItems(), 0);
    QVERIFY(m_window->click(kPage, "LUTEnable"));
    OBFT_TRY_COMPARE(readOnlyItems(), 9);
    OBFT_TRY_VERIFY(!editor()->isEnabled());
    // Each table has its own switch.
    QVERIFY(m_window->click(kPage, "LUTEnable"));
    OBFT_TRY_COMPARE(readOnlyItems(), 0);
    QVERIFY(m_window->choose(kPage, "LUTSelector", QStringLiteral("Red")));
    OBFT_TRY_COMPARE(readOnlyItems(), 9);
    QCOMPARE(shownItems(), 6);
    for (const bool hidden : {true, false}) {
        m_camera->hide("LUTEnable", hidden);
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(shownItems(), hidden ? 0 : 6);
    }
}

// Presses the page's command and waits for its message.
bool TestORXImgProcessingFeature::lutCommand(const char* name, const char* message)
{
    return m_window->click(kPage, name) && QTest::qWaitFor(
                                               [&] {
                                                   return lutMessage() == QLatin1String(message) &&
                                                          !editor()->isTransferring();
                                               },
                                               60000);
}

QVector<int> TestORXImgProcessingFeature::memory(int selector)
{
    QVector<int> values;
    set("LUTSelector", QString::number(selector));
    for (int i = 0; i < QLUTDrawWidget::PointCount(); ++i) {
        m_demo->write(OB_FT_TYPE_INTEGER, "LUTIndex", std::to_string(i));
        values += int(held(QStringLiteral("LUTValue")));
    }
    return values;
}

void TestORXImgProcessingFeature::drawnLineReachesTheCamera_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("selector");
    QTest::newRow("fold line") << QStringLiteral("Fold Line") << 0;
    QTest::newRow("curve") << QStringLiteral("Curve") << 1;
    QTest::newRow("free line") << QStringLiteral("Free Line") << 2;
}

void TestORXImgProcessingFeature::drawnLineReachesTheCamera()
{
    QFETCH(QString, line);
    QFETCH(int, selector);
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("curve.txt"));
    ORXInterface::setFileDialogHook([=](auto, const QString&, const QString&) { return path; });
    const QVector<int> other = memory(3);
    set("LUTSelector", QString::number(selector));
    openLut();
    QVERIFY(lutCommand("Custom_LUTLoadFromCamera", "Loading from camera completed."));
    const QVector<int> before = drawn();
    QVERIFY(line == QLatin1String("Fold Line") ||
            m_window->choose(kPage, "Custom_LUTLineType", line));
    const QPoint onTheLine(30 + 60, 30 + 179);
    QTest::mousePress(editor(), Qt::LeftButton, {}, onTheLine);
    QTest::mouseRelease(editor(), Qt::LeftButton, {}, onTheLine - QPoint(0, 99));
    const QVector<int> curve = drawn();
    QVERIFY(curve != before);
    QVERIFY(lutCommand("Custom_LUTSetToFile", "Exporting to file completed."));
    QVERIFY(m_window->click(kPage, "Custom_LUTClear"));
    OBFT_TRY_VERIFY(drawn() != curve);
    QVERIFY(lutCommand("Custom_LUTLoadFromFile", "Importing from file completed."));
    // A fold line or curve has fewer points than the file has lines.
    const QVector<int> imported = drawn();
    QVERIFY(line != QLatin1String("Free Line") || imported == curve);
    QVERIFY(lutCommand("Custom_LUTSetToCamera", "Applied to camera successfully."));
    QCOMPARE(memory(selector), imported);
    QCOMPARE(memory(3), other);
}

void TestORXImgProcessingFeature::tableIsLockedDuringATransfer()
{
    openLut();
    m_camera->closeGate("LUTIndex");
    QVERIFY(m_window->click(kPage, "Custom_LUTSetToCamera"));
    OBFT_TRY_VERIFY(editor()->isTransferring());
    for (const char* name : {"LUTSelector", "LUTIndex", "LUTValue"})
        OBFT_TRY_VERIFY(m_window->item(kTree, name)->readOnly());
    QVERIFY(m_window->refresh());
    QVERIFY(!m_window->isEnabled(kPage, "LUTSelector"));
    m_camera->openGate();
    QTRY_VERIFY_WITH_TIMEOUT(!editor()->isTransferring(), 60000);
    OBFT_TRY_VERIFY(m_window->isEnabled(kPage, "LUTSelector"));
    OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "LUTValue"));
}

void TestORXImgProcessingFeature::transferEndsWithTheCamera_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("held");
    QTest::addColumn<int>("end");
    const char* const ends[] = {"unplugged", "window closed", "camera removed", "released"};
    for (int end = 0; end < 4; ++end) {
        QTest::addRow("table read, %s", ends[end])
            << QByteArray("Custom_LUTLoadFromCamera") << QByteArray("LUTIndex") << end;
        QTest::addRow("table written, %s", ends[end])
            << QByteArray("Custom_LUTSetToCamera") << QByteArray("LUTValue") << end;
        QTest::addRow("matrix read, %s", ends[end])
            << QByteArray("Custom_CCM") << QByteArray("ColorTransformationValueSelector") << end;
    }
}

void TestORXImgProcessingFeature::transferEndsWithTheCamera()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, held);
    QFETCH(int, end);
    for (const char* line : {"LUT: ", "Read Feature Failed", "Reading the color correction matrix"})
        MessageGuard::expectMessage(QString::fromLatin1(line));
    openLut();
    m_camera->forget();
    m_camera->closeGate(held);
    if (command == "Custom_CCM")
        QVERIFY(m_window->show(kPage, command));
    else
        QVERIFY(m_window->click(kPage, command));
    OBFT_TRY_VERIFY(m_camera->writesOf(held) > 0);
    // Lets the host go on while the window waits for it, or just before.
    std::thread hanging([&] { m_camera->openGate(); });
    const auto joined = qScopeGuard([&] { hanging.join(); });
    const std::function<void()> ends[] = {
        [&] { m_camera->unplug(); },
        [] { OB_FT_Close(); },
        [&] { m_window->widget()->removeFeatureTree(1); },
        [] { OB_FT_Release(); },
    };
    ends[end]();
    if (end == 3)
        return;
    QTRY_VERIFY_WITH_TIMEOUT(!page()->lutEditor()->isTransferring(), 60000);
    const QStringList writes = m_camera->writes();
    if (end > 0)
        QVERIFY2(writes.size() < 2000, "the transfer went on");
    QApplication::processEvents();
    QCOMPARE(m_camera->writes().size(), writes.size());
}

// Matrix, palettes, language ----------------------------------------------------------------------

void TestORXImgProcessingFeature::matrixStandsWhereItIs_data()
{
    QTest::addColumn<bool>("inCamera");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("first"); // empty: there is no matrix
    const QByteArray file = "[Common]\nCCMEnable=true\nCCMValue0=2048\n";
    QTest::newRow("camera") << true << QByteArray() << QStringLiteral("1.0000");
    QTest::newRow("camera and file") << true << file << QStringLiteral("1.0000");
    QTest::newRow("file") << false << file << QStringLiteral("2.0000");
    QTest::newRow("neither") << false << QByteArray() << QString();
}

void TestORXImgProcessingFeature::matrixStandsWhereItIs()
{
    QFETCH(bool, inCamera);
    QFETCH(QByteArray, file);
    QFETCH(QString, first);
    if (!file.isEmpty()) {
        const QString path = ORXRWCCMValue::fileOf(QStringLiteral("DEMO000001"));
        QDir().mkpath(QFileInfo(path).path());
        QFile settings(path);
        QVERIFY(settings.open(QIODevice::WriteOnly) && settings.write(file) == file.size());
    }
    open(inCamera ? QStringList()
                  : words("ColorTransformationValueSelector ColorTransformationValue "
                          "ColorTransformationEnable CCMEnable"));
    QCOMPARE(m_window->item(kPage, "Custom_CCM") != nullptr, !first.isEmpty());
    if (first.isEmpty())
        return;
    QVERIFY(m_window->show(kPage, "Custom_CCM"));
    const auto cell = [&] {
        const auto* line = page()->findChild<QLineEdit*>(QStringLiteral("CCMValue0"));
        return line ? line->text() : QString();
    };
    OBFT_TRY_COMPARE(cell(), first);
    // The switch reaches the camera, or the file.
    m_camera->forget();
    QVERIFY(m_window->click(kPage, "Custom_CCMEnable"));
    if (inCamera)
        OBFT_TRY_VERIFY(m_camera->writes().contains(QStringLiteral("CCMEnable=1")));
    else
        OBFT_TRY_VERIFY(m_window->shown(kPage, "Custom_CCMEnable") == QLatin1String("unchecked"));
    QCOMPARE(m_camera->writes().isEmpty(), !inCamera);
}

void TestORXImgProcessingFeature::palettesMirrorTheCamera()
{
    constexpr char kOwn[] = "Custom_PalettesMode";
    open();
    QCOMPARE(m_window->shown(kPage, kOwn), QStringLiteral("White Hot"));
    QVERIFY(m_window->choose(kPage, kOwn, QStringLiteral("Black Hot")));
    QCOMPARE(held(QStringLiteral("PalettesMode")), qint64(1));
    OBFT_TRY_COMPARE(m_window->shown(kTree, "PalettesMode"), QStringLiteral("Black Hot"));
    const QString third = m_window->editor<QComboBox>(kTree, "PalettesMode")->itemText(2);
    QVERIFY(m_window->choose(kTree, "PalettesMode", third));
    OBFT_TRY_COMPARE(m_window->shown(kPage, kOwn), third);
    QVERIFY(!m_window->editor<QComboBox>(kPage, kOwn)->itemIcon(2).isNull());
    MessageGuard::expectMessage(QStringLiteral("Read Feature Failed"));
    m_camera->fail("PalettesMode", CameraError::NotWritable);
    m_window->choose(kPage, kOwn, QStringLiteral("White Hot"));
    OBFT_TRY_VERIFY(treeMessage().startsWith(QLatin1String("Node 'PalettesMode'")));
    OBFT_TRY_COMPARE(m_window->shown(kPage, kOwn), third);
}

void TestORXImgProcessingFeature::languageSwitchedWhileShown()
{
    openLut();
    QVERIFY(m_window->choose(kPage, "Custom_LUTLineType", QStringLiteral("Curve")));
    for (const bool chinese : {true, false}) {
        m_window->widget()->SetLanguage(chinese ? 1 : 0);
        OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_LUTLineType"),
                         chinese ? QStringLiteral("曲线") : QStringLiteral("Curve"));
        QCOMPARE(m_window->titles(kPage).value(1),
                 chinese ? QStringLiteral("感兴趣区域（ROI）") : QStringLiteral("ROI"));
        OBFT_TRY_COMPARE(picture()->accessibleName(),
                         chinese ? QStringLiteral("传感器区域示意图")
                                 : QStringLiteral("Picture of the sensor area"));
        QCOMPARE(editor()->GetCurrentDrawLine(), int(QLUTDrawWidget::SmoothCurve));
    }
}

OBFT_TEST_MAIN(TestORXImgProcessingFeature)
#include "tst_orximgprocessingfeature.moc"
