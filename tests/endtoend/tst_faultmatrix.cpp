// SPDX-License-Identifier: Apache-2.0
// Every kind of feature, every fault of the host's plan, and everything that a user may be doing
// when it strikes: the window goes on, its neighbours work, and when the fault is over every row
// shows what the camera has.
#include "cameras/SimulatedCamera.h"
#include "faults/FaultyCamera.h"
#include "host/CameraTalk.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/DescriptionBuilder.h"
#include "support/Periods.h"
#include "support/TestMain.h"

#include <QComboBox>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;

QByteArray description()
{
    using namespace DescriptionBuilder;
    return wrap(
        elements("Category Root pFeature=Kinds;"
                 "Category Kinds pFeature=TheInteger,TheAddress,TheFloat,TheBoolean,TheEnumeration,"
                 "TheCommand,TheString,Calm;"
                 "Integer TheInteger Value=40 Min=0 Max=100 Inc=1;"
                 "Integer TheAddress Value=31 Min=0 Max=65535 Inc=1 Representation=HexNumber;"
                 "Float TheFloat Value=1.5 Min=0 Max=10;"
                 "Boolean TheBoolean Value=0 OnValue=1 OffValue=0;"
                 "Command TheCommand pValue=CommandRegister CommandValue=1;"
                 "Integer CommandRegister Value=0; String TheString Value=left;"
                 "Integer Calm Value=5 Min=0 Max=100 Inc=1") +
        node("Enumeration"_s, "TheEnumeration"_s,
             "<EnumEntry Name=\"First\"><Value>0</Value></EnumEntry>"
             "<EnumEntry Name=\"Second\"><Value>1</Value></EnumEntry><Value>0</Value>"_s));
}

struct Kind
{
    const char* name;
    const char* entered;
};
constexpr Kind kKinds[] = {{"TheInteger", "77"},     {"TheAddress", "0x2A"}, {"TheFloat", "2.5"},
                           {"TheBoolean", ""},       {"TheEnumeration", ""}, {"TheCommand", ""},
                           {"TheString", "entered"}, {"Calm", "6"}};

} // namespace

class TestFaultMatrix : public GuardedTest
{
    Q_OBJECT

    enum Left { All, Neighbour, None, Others };

protected:
    bool failsOnGuiThreadReads() const override { return true; }

    void finish() override
    {
        m_window.reset();
        m_camera.reset();
        m_faulty.reset();
        m_real.reset();
    }

private:
    QStringList shownRows() const
    {
        QStringList rows;
        for (const Kind& kind : kKinds) {
            if (m_window->isRowShown(kTree, kind.name))
                rows.append(QString::fromLatin1(kind.name) + QLatin1Char(' ') +
                            m_window->shown(kTree, kind.name));
        }
        return rows;
    }

    // By the editor as it stands; one that cannot be used is left alone.
    void edit(const Kind& kind) const
    {
        QWidget* editor = m_window->tree()->treeView()->editorOf(m_window->item(kTree, kind.name));
        if (!editor || !editor->isEnabled())
            return;
        if (*kind.entered)
            m_window->enter(kTree, kind.name, QString::fromLatin1(kind.entered));
        else if (auto* box = qobject_cast<QComboBox*>(editor))
            QTest::keyClick(box, Qt::Key_Down);
        else
            QTest::mouseClick(editor, Qt::LeftButton, {}, QPoint(10, editor->height() / 2));
    }

    // What those said that were shown.
    QString closeMessages() const
    {
        QString said;
        for (auto* box : m_window->widget()->findChildren<ZELCustomMessageBox*>()) {
            if (box->isVisible())
                said += box->cContent();
            box->close();
        }
        return said;
    }

    QString inCamera(const char* name) const
    {
        return CameraTalk(*m_real).value(QLatin1String(name));
    }

    QStringList inCameraNow() const
    {
        QStringList rows;
        for (const Kind& kind : kKinds)
            rows.append(QString::fromLatin1(kind.name) + QLatin1Char(' ') + textInCamera(kind));
        return rows;
    }

    // As the row shows it.
    QString textInCamera(const Kind& kind) const
    {
        const QString name = QString::fromLatin1(kind.name);
        const QString value = inCamera(kind.name);
        if (name == "TheFloat"_s)
            return QString::number(value.toDouble(), 'f', 4);
        if (name == "TheBoolean"_s)
            return value == "1"_s ? "checked"_s : "unchecked"_s;
        if (name == "TheEnumeration"_s)
            return value == "1"_s ? "Second"_s : "First"_s;
        if (name == "TheAddress"_s)
            return "0x"_s + QString::number(value.toInt(), 16).toUpper();
        return name == "TheCommand"_s ? QString() : value;
    }

    std::unique_ptr<SimulatedCamera> m_real;
    std::unique_ptr<FaultyCamera> m_faulty;
    std::unique_ptr<MeddledCamera> m_camera;
    std::unique_ptr<PageWindow> m_window;

private slots:
    void theWindowGoesOn_data()
    {
        // Whether a write is refused with the code, whether the neighbour is struck as well, and
        // which rows a refresh leaves as they were: a feature without an access mode has none.
        const Rows<QString, QString, bool, bool, int> row("plan", "doing", "refuses", "strikesAll",
                                                          "leaves");
        const auto faults = [&row](const char* plans, int leaves, bool refuses = false,
                                   bool strikesAll = false) {
            for (const QString& plan : QString::fromLatin1(plans).split("; "_s)) {
                for (const QString& doing : words("opening editing refreshing closing"))
                    row(qPrintable("%1 while %2"_s.arg(plan, doing)), plan, doing, refuses,
                        strikesAll, leaves);
            }
        };
        faults("latency The* 5; jitter The* 5; hang The* 200; value The* 999999; value The* -1; "
               "lock The* by Calm; mode The* 2; mode The* 3; "
               "range The* min=nan max=nan inc=nan value=nan; "
               "range The* min=-inf max=inf value=inf; range The* min=10 max=-10 inc=-3; "
               "entries The* 0; entries The* 4000000000; text The* unterminated; "
               "text The* empty; long-text TheInteger",
               Others);
        faults("error The* -7 always on read", All);
        faults("error The* -7 always on mode; mode The* 0; mode The* 1; mode The* 77", Neighbour);
        faults("error The* 0x80010008", Others, true);
        faults("error The* 0x80010008 always on write", All, true);
        faults("error The* 0x80010008 always; vanish The*", Neighbour, true);
        faults("disconnect", None, true, true);
    }

    void theWindowGoesOn()
    {
        const auto [plan, doing, refuses, strikesAll, leaves] =
            fetchRow<QString, QString, bool, bool, int>();
        // A fault of reading and of the access mode is told in the log alone.
        for (const char* line : {"Read Feature Failed", "0x8001", "0xFFFFFFF9"})
            MessageGuard::expectMessage(QString::fromLatin1(line));
        QString wrong;
        const auto faults = FaultPlan::parse(plan, &wrong);
        QVERIFY2(faults, qPrintable(wrong));
        m_real = std::make_unique<SimulatedCamera>(description());
        m_faulty = std::make_unique<FaultyCamera>(*m_real, *faults);
        m_camera = std::make_unique<MeddledCamera>(*m_faulty);
        if (doing != "opening"_s)
            m_camera->standBefore(*m_real);
        m_window = std::make_unique<PageWindow>(*m_camera);
        const QStringList before = doing == "opening"_s ? QStringList() : shownRows();
        m_camera->standBefore(*m_faulty);

        if (doing == "editing"_s) {
            for (const Kind& kind : kKinds)
                edit(kind);
            QCOMPARE(closeMessages().contains("0x8001"_s), refuses);
        } else if (doing == "refreshing"_s) {
            QVERIFY(m_window->refresh());
            QApplication::processEvents(); // what the threads told is shown
            const QString left = leaves == Neighbour ? "Calm"_s : QString();
            if (leaves != Others)
                OBFT_TRY_COMPARE(shownRows(), leaves == None ? QStringList() : before.filter(left));
        } else if (doing == "closing"_s) {
            OB_FT_UpdateFeatures();
            OB_FT_Close();
            const QStringList calls = m_camera->calls();
            QVERIFY(twentyPeriodsPass());
            QCOMPARE(m_camera->calls(), calls);
        }
        closeMessages();
        if (doing != "closing"_s && !strikesAll) {
            QVERIFY(m_window->enter(kTree, "Calm", "9"_s));
            OBFT_TRY_COMPARE(inCamera("Calm"), "9"_s);
        }

        m_camera->standBefore(*m_real);
        closeMessages();
        if (doing == "closing"_s)
            OB_FT_Start(nullptr, 0);
        else
            QVERIFY(m_window->refresh());
        for (const Kind& kind : kKinds)
            OBFT_TRY_VERIFY(m_window->isEnabled(kTree, kind.name));
        OBFT_TRY_COMPARE(shownRows(), inCameraNow());
    }
};

OBFT_TEST_MAIN(TestFaultMatrix)
#include "tst_faultmatrix.moc"
