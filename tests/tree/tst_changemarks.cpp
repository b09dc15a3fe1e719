// SPDX-License-Identifier: Apache-2.0
#include "tree/ChangeMarks.h"

#include "styledctl/ZELCustom.h"
#include "support/Patience.h"
#include "tree/FeatureTreeTest.h"
#include "tree/RowPainter.h"

#include <QDeadlineTimer>
#include <QPaintEvent>
#include <QSignalSpy>

#include <atomic>

namespace {

// What is painted of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget* widget) { widget->installEventFilter(this); }
    QRegion region;
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
            ++count;
        }
        return false;
    }
};

} // namespace

class TestChangeMarks : public FeatureTreeTest
{
    Q_OBJECT

private:
    void prepare() override
    {
        FeatureTreeTest::prepare();
        m_now = 1000;
        m_tree->valueWatch()->setClock([this] { return m_now.load(); });
    }
    ChangeMarks* marks() const { return m_tree->changeMarks(); }
    // The features whose rows carry a mark.
    QStringList marked() const
    {
        QStringList names;
        const auto& items = m_tree->AllTreeItemsMap();
        for (auto each = items.begin(); each != items.end(); ++each) {
            if (marks()->strength(each.value()) > 0)
                names.append(each.key());
        }
        return names;
    }
    // Has a value change at the camera, and the window read it.
    void change(const char* name, qint64 value)
    {
        m_host->set(QString::fromLatin1(name), FakeHost::integerFeature(value, 0, 4096, 1));
        m_tree->RefreshFeatures();
        QTRY_COMPARE(item(name)->value()->value(), QVariant(value));
        QTRY_COMPARE(marks()->strength(item(name)), 1.0);
        QTRY_VERIFY(!m_tree->isReading());
    }
    QRect markOf(const char* name)
    {
        return RowPainter::markPlace(view()->visualRect(index(item(name))));
    }
    QColor colourOf(const char* name)
    {
        return view()->viewport()->grab().toImage().pixelColor(markOf(name).center());
    }
    // Waits for the reading threads alone: what they tell this thread stays in its queue.
    bool readingEnds() const
    {
        const QDeadlineTimer patience(kWindowPatienceMs);
        while (m_tree->isReading() && !patience.hasExpired())
            QThread::yieldCurrentThread();
        return !m_tree->isReading();
    }

    std::atomic<qint64> m_now{0};

private slots:
    void whatTheUserDidNotDoHimself_data()
    {
        const Rows<QString, QString> row("write", "value");
        row("the camera", "", "");
        row("it follows from an edit", "Width", "640");
        row("a command", "TriggerSoftware", "");
    }

    void whatTheUserDidNotDoHimself()
    {
        const auto [write, value] = fetchRow<QString, QString>();
        readOnce();
        QCOMPARE(marked(), QStringList()); // the first read changes nothing
        m_host->set("Height"_s, FakeHost::integerFeature(480, 0, 4096, 1));
        if (!write.isEmpty())
            QVERIFY(m_tree->setFeatureValue(m_tree->propertyItemByName(write)->tagName(), write,
                                            value));
        else
            m_tree->RefreshFeatures();
        if (write == "TriggerSoftware"_s)
            m_tree->RefreshFeatures();
        QTRY_COMPARE(marked(), words("Height"));
        if (!value.isEmpty())
            QTRY_COMPARE(item("Width")->value()->value(), QVariant(value.toLongLong()));
        QTRY_VERIFY(!m_tree->isReading());
        QCoreApplication::processEvents();
        QCOMPARE(marked(), words("Height"));
    }

    void fadesWithinThreeSeconds()
    {
        readOnce();
        QTRY_VERIFY(!m_tree->isReading());
        m_tree->addFavoriteItem(item("Height"));
        QTRY_VERIFY(view()->editorOf(item("Height")->mappingItem()));
        const QColor before = colourOf("Height");
        change("Height", 480);
        const QColor accent = ZELCustom::getDataBaseColor("StyledCtlColor_Accent"_s);
        QCOMPARE(colourOf("Height"), accent);
        QCOMPARE(colourOf("Width"), before);
        QCOMPARE(marks()->strength(item("Height")->mappingItem()), 1.0); // the same feature
        m_now += 1000;
        QCOMPARE(colourOf("Height"), accent);
        m_now += 1000;
        const QColor faded = colourOf("Height");
        QVERIFY(faded != accent && faded != before);
        // Another change makes it new.
        change("Height", 490);
        QCOMPARE(colourOf("Height"), accent);
        QVERIFY(marks()->isRunning());
        m_now += ChangeMarks::kFadeMs;
        QCOMPARE(colourOf("Height"), before);
        QTRY_VERIFY(!marks()->isRunning());
        QVERIFY(!marks()->has(item("Height")));
    }

    // While a mark fades nothing else is painted, and where no row is in sight nothing at all.
    void paintsOnlyTheMarks_data()
    {
        const Rows<bool> row("inSight");
        row("in sight", true);
        row("in a closed branch", false);
    }

    void paintsOnlyTheMarks()
    {
        QFETCH(bool, inSight);
        readOnce();
        change("Height", 480);
        const QRect mark = markOf("Height");
        view()->setExpanded(index(item("Image")), inSight);
        // Until all that is due is painted.
        PaintedRegion spy(view()->viewport());
        const auto quietFor = [this](int count) {
            const QSignalSpy ticks(marks(), &ChangeMarks::SigFaded);
            return QTest::qWaitFor([&] { return ticks.size() >= count; });
        };
        QVERIFY(quietFor(3));
        spy.region = QRegion();
        spy.count = 0;
        QVERIFY(quietFor(3));
        QCOMPARE(spy.count > 0, inSight);
        QCOMPARE(spy.region.subtracted(mark), QRegion());
        // What has ended is taken away, too.
        QCoreApplication::sendPostedEvents();
        spy.count = 0;
        m_now += ChangeMarks::kFadeMs;
        QTRY_VERIFY(!marks()->isRunning());
        QCoreApplication::processEvents();
        QCOMPARE(spy.count > 0, inSight);
        QCOMPARE(spy.region.subtracted(mark), QRegion());
    }

    void endsWithWhatItMarks()
    {
        readOnce();
        Item* const height = item("Height");
        change("Height", 480);
        m_tree->OnCommandNodeBtnClicked("DeviceReset"_s);
        QCOMPARE(marks()->strength(height), 0.0);
        change("Height", 490);
        m_tree->OnCameraClose();
        QCOMPARE(marks()->strength(height), 0.0);
        QVERIFY(!marks()->isRunning());
    }

    // The end of an earlier pass is heard when the one that reads the edit has ended, too.
    void editIsTheCauseAlsoBehindAnEarlierPass()
    {
        readOnce();
        QVector<ValueChange> changes;
        connect(m_tree->valueWatch(), &ValueWatch::SigChanged, this,
                [&](const QVector<ValueChange>& some) { changes += some; });
        m_tree->rereadInvalidated("Gain"_s);
        QVERIFY(readingEnds());
        QVERIFY(m_tree->OnIntegerNodeValueChanged("Width"_s, 640));
        m_tree->OnTimeInvalidaterFeaturesUpdate();
        QVERIFY(readingEnds());
        QTRY_COMPARE(changes.size(), 1);
        QCOMPARE(changes.first().name, "Width"_s);
        QCOMPARE(changes.first().now.toLongLong(), 640);
        QVERIFY(changes.first().cause == ValueChange::Cause::Edited);
        // That is over: now it is the camera.
        m_host->set("Width"_s, FakeHost::integerFeature(320));
        m_tree->rereadInvalidated("Width"_s);
        QTRY_COMPARE(changes.size(), 2);
        QVERIFY(changes.last().cause == ValueChange::Cause::Camera);
    }
};

OBFT_TEST_MAIN(TestChangeMarks)
#include "tst_changemarks.moc"
