// SPDX-License-Identifier: Apache-2.0
// Every kind of feature, every fault of the host's plan, and everything that a user may be doing
// when it strikes: the window goes on, its neighbours work, and when the fault is over every row
// shows what the camera has.
#include "SwitchedCamera.h"
#include "cameras/SimulatedCamera.h"
#include "faults/FaultyCamera.h"
#include "host/CameraTalk.h"
#include "pages/PageWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/Periods.h"
#include "support/TestMain.h"

#include <QComboBox>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;

const QByteArray kDescription = R"(<?xml version="1.0" encoding="utf-8"?>
<RegisterDescription ModelName="Matrix" VendorName="Test" StandardNameSpace="None"
    SchemaMajorVersion="1" SchemaMinorVersion="1" SchemaSubMinorVersion="0" MajorVersion="1"
    MinorVersion="0" SubMinorVersion="0" ProductGuid="0" VersionGuid="0">
  <Category Name="Root"><pFeature>Kinds</pFeature></Category>
  <Category Name="Kinds">
    <pFeature>TheInteger</pFeature><pFeature>TheAddress</pFeature><pFeature>TheFloat</pFeature>
    <pFeature>TheBoolean</pFeature><pFeature>TheEnumeration</pFeature>
    <pFeature>TheCommand</pFeature><pFeature>TheString</pFeature><pFeature>Calm</pFeature>
  </Category>
  <Integer Name="TheInteger"><Value>40</Value><Min>0</Min><Max>100</Max><Inc>1</Inc></Integer>
  <Integer Name="TheAddress"><Value>31</Value><Min>0</Min><Max>65535</Max><Inc>1</Inc>
    <Representation>HexNumber</Representation></Integer>
  <Float Name="TheFloat"><Value>1.5</Value><Min>0</Min><Max>10</Max></Float>
  <Boolean Name="TheBoolean"><Value>0</Value><OnValue>1</OnValue><OffValue>0</OffValue></Boolean>
  <Enumeration Name="TheEnumeration">
    <EnumEntry Name="First"><Value>0</Value></EnumEntry>
    <EnumEntry Name="Second"><Value>1</Value></EnumEntry>
    <Value>0</Value>
  </Enumeration>
  <Command Name="TheCommand"><pValue>CommandRegister</pValue><CommandValue>1</CommandValue></Command>
  <Integer Name="CommandRegister"><Value>0</Value></Integer>
  <String Name="TheString"><Value>left</Value></String>
  <Integer Name="Calm"><Value>5</Value><Min>0</Min><Max>100</Max><Inc>1</Inc></Integer>
</RegisterDescription>)";

// What is shown, and what is entered over it.
struct Kind
{
    const char* name;
    const char* shown;
    const char* entered;
};
constexpr Kind kKinds[] = {{"TheInteger", "40", "77"},       {"TheAddress", "0x1F", "0x2A"},
                           {"TheFloat", "1.5000", "2.5"},    {"TheBoolean", "unchecked", ""},
                           {"TheEnumeration", "First", ""},  {"TheCommand", "", ""},
                           {"TheString", "left", "entered"}, {"Calm", "5", "6"}};

} // namespace

class TestFaultMatrix : public GuardedTest
{
    Q_OBJECT

    enum Doing { Opening, Editing, Refreshing, Closing };
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
    bool isShown(const Kind& kind) const { return m_window->isRowShown(kTree, kind.name); }

    QStringList shownRows() const
    {
        QStringList rows;
        for (const Kind& kind : kKinds) {
            if (isShown(kind))
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

    QString message() const
    {
        const auto boxes = m_window->widget()->findChildren<ZELCustomMessageBox*>();
        for (const ZELCustomMessageBox* box : boxes) {
            if (box->isVisible())
                return box->cContent();
        }
        return {};
    }

    void closeMessages() const
    {
        const auto boxes = m_window->widget()->findChildren<ZELCustomMessageBox*>();
        for (ZELCustomMessageBox* box : boxes)
            box->close();
    }

    QString inCamera(const char* name) const
    {
        return CameraTalk(*m_real).value(QLatin1String(name));
    }

    std::unique_ptr<SimulatedCamera> m_real;
    std::unique_ptr<FaultyCamera> m_faulty;
    std::unique_ptr<SwitchedCamera> m_camera;
    std::unique_ptr<PageWindow> m_window;

private slots:
    void theWindowGoesOn_data()
    {
        // Whether a write is refused with the code, whether the neighbour is struck as well, and
        // which rows a refresh leaves as they were: a feature without an access mode has none.
        const Rows<QString, bool, bool, int, int> row("plan", "refuses", "strikesAll", "leaves",
                                                      "doing");
        struct Fault
        {
            const char* plan;
            bool refuses;
            bool strikesAll;
            Left leaves = Others;
        };
        static constexpr Fault kFaults[] = {
            {"latency The* 5", false, false},
            {"jitter The* 5", false, false},
            {"hang The* 200", false, false},
            {"error The* 0x80010008", true, false},
            {"error The* 0x80010008 always", true, false, Neighbour},
            {"error The* -7 always on read", false, false, All},
            {"error The* -7 always on mode", false, false, Neighbour},
            {"error The* 0x80010008 always on write", true, false, All},
            {"vanish The*", true, false, Neighbour},
            {"value The* 999999", false, false},
            {"value The* -1", false, false},
            {"lock The* by Calm", false, false},
            {"mode The* 0", false, false, Neighbour},
            {"mode The* 1", false, false, Neighbour},
            {"mode The* 2", false, false},
            {"mode The* 3", false, false},
            {"mode The* 77", false, false, Neighbour},
            {"range The* min=nan max=nan inc=nan value=nan", false, false},
            {"range The* min=-inf max=inf value=inf", false, false},
            {"range The* min=10 max=-10 inc=-3", false, false},
            {"entries The* 0", false, false},
            {"entries The* 4000000000", false, false},
            {"text The* unterminated", false, false},
            {"text The* empty", false, false},
            {"disconnect", true, true, None},
            {"long-text TheInteger", false, false},
        };
        static constexpr const char* kDoings[] = {"opening", "editing", "refreshing", "closing"};
        for (const Fault& fault : kFaults) {
            for (int doing = Opening; doing <= Closing; ++doing)
                row(qPrintable(QString::fromLatin1(fault.plan) + " while "_s +
                               QString::fromLatin1(kDoings[doing])),
                    fault.plan, fault.refuses, fault.strikesAll, fault.leaves, doing);
        }
    }

    void theWindowGoesOn()
    {
        const auto [plan, refuses, strikesAll, leaves, doing] =
            fetchRow<QString, bool, bool, int, int>();
        // A fault of reading and of the access mode is told in the log alone.
        for (const char* line : {"Read Feature Failed", "0x8001", "0xFFFFFFF9"})
            MessageGuard::expectMessage(QString::fromLatin1(line));
        QString wrong;
        const auto faults = FaultPlan::parse(plan, &wrong);
        QVERIFY2(faults, qPrintable(wrong));
        m_real = std::make_unique<SimulatedCamera>(kDescription);
        m_faulty = std::make_unique<FaultyCamera>(*m_real, *faults);
        m_camera = std::make_unique<SwitchedCamera>(*m_real, *m_faulty);
        m_camera->setFaulty(doing == Opening);
        m_window = std::make_unique<PageWindow>(*m_camera);
        const QStringList before = doing == Opening ? QStringList() : shownRows();
        m_camera->setFaulty(true);

        if (doing == Editing) {
            for (const Kind& kind : kKinds)
                edit(kind);
            QCOMPARE(message().contains("0x8001"_s), refuses);
        } else if (doing == Refreshing) {
            QVERIFY(m_window->refresh());
            const QString left = leaves == Neighbour ? "Calm"_s : QString();
            if (leaves != Others)
                OBFT_TRY_COMPARE(shownRows(), leaves == None ? QStringList() : before.filter(left));
        } else if (doing == Closing) {
            OB_FT_UpdateFeatures();
            OB_FT_Close();
            const int calls = m_camera->calls();
            QVERIFY(twentyPeriodsPass());
            QCOMPARE(m_camera->calls(), calls);
        }
        closeMessages();
        if (doing != Closing && !strikesAll) {
            QVERIFY(m_window->enter(kTree, "Calm", "9"_s));
            OBFT_TRY_COMPARE(inCamera("Calm"), "9"_s);
        }

        m_camera->setFaulty(false);
        closeMessages();
        if (doing == Closing)
            OB_FT_Start(nullptr, 0);
        else
            QVERIFY(m_window->refresh());
        for (const Kind& kind : kKinds)
            OBFT_TRY_VERIFY(m_window->isEnabled(kTree, kind.name));
        OBFT_TRY_COMPARE(shownRows(), inCameraNow());
    }

private:
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
};

OBFT_TEST_MAIN(TestFaultMatrix)
#include "tst_faultmatrix.moc"
