// SPDX-License-Identifier: Apache-2.0
#include "steps/StepRunner.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

// Steps of a script, done to a window that looks a little like the feature window.
class TestStepActor : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        m_search = new QLineEdit;
        m_search->setObjectName("searchLine"_s);
        m_button = new QPushButton("&Save"_s);
        m_tabs = new QTabWidget;
        m_tabs->setObjectName("info"_s);
        m_tree = new QTreeWidget;
        m_tree->setColumnCount(2);
        auto* group = new QTreeWidgetItem(m_tree, {"Group"_s});
        auto* width = new QTreeWidgetItem(group, {"Width"_s});
        auto* format = new QTreeWidgetItem(group, {"Pixel Format"_s});
        m_editor = new QLineEdit;
        m_box = new QComboBox;
        m_box->addItems({"Mono 8"_s, "RGB 8"_s});
        m_tree->setItemWidget(width, 1, m_editor);
        m_tree->setItemWidget(format, 1, m_box);
        m_tabs->addTab(new QWidget, "Empty"_s);
        m_tabs->addTab(m_tree, "Features"_s);
        layout->addWidget(m_search);
        layout->addWidget(m_button);
        layout->addWidget(m_tabs);
        m_window->resize(400, 300);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void finish() override { m_window.reset(); }

private:
    // The error with which the script ended.
    QString run(
        const QString& steps, std::function<bool()> isSettled = [] { return true; })
    {
        QString error;
        const auto script = StepScript::parse(steps, &error);
        if (!script)
            return error;
        StepRunner runner(*script, std::move(isSettled));
        QSignalSpy finished(&runner, &StepRunner::finished);
        runner.start();
        if (!finished.wait(20000))
            return "no end"_s;
        return finished.at(0).at(0).toString();
    }

    std::unique_ptr<QWidget> m_window;
    QTabWidget* m_tabs = nullptr;
    QLineEdit* m_search = nullptr;
    QTreeWidget* m_tree = nullptr;
    QLineEdit* m_editor = nullptr;
    QComboBox* m_box = nullptr;
    QPushButton* m_button = nullptr;

private slots:
    void usesTheWindow()
    {
        QTemporaryDir directory;
        const QString picture = directory.filePath("a.png"_s);
        QSignalSpy pressed(m_tree, &QTreeWidget::pressed);
        QSignalSpy entered(m_editor, &QLineEdit::returnPressed);
        QSignalSpy activated(m_box, QOverload<int>::of(&QComboBox::activated));
        QSignalSpy clicked(m_button, &QPushButton::clicked);
        QCOMPARE(
            run("tab=features; expand=*; set=Width:640; set=Pixel Format:RGB 8; select=pixel format; press=save; search=exp; size=500x400; picture=%1"_s
                    .arg(picture)),
            QString());
        QCOMPARE(m_tabs->currentIndex(), 1);
        QCOMPARE(pressed.size(), 1);
        QCOMPARE(m_tree->currentItem()->text(0), "Pixel Format"_s);
        QCOMPARE(m_editor->text(), "640"_s);
        QCOMPARE(entered.size(), 1);
        QCOMPARE(m_box->currentIndex(), 1);
        QCOMPARE(activated.size(), 1);
        QCOMPARE(clicked.size(), 1);
        QCOMPARE(m_search->text(), "exp"_s);
        QCOMPARE(QImage(picture).size(), QSize(500, 400));
    }

    void tellsWhatFails_data()
    {
        const Rows<QString, QString> row("steps", "error");
        row.of("press=Load; wait=1", "press=Load: nothing visible is called \"Load\"");
        row.of("tab=7", "tab=7: nothing visible is called \"7\"");
        row.of("tab=info:1; tab=info:2", "tab=info:2: nothing visible is called \"info:2\"");
        row.of("select=Width",
               "select=Width: nothing visible is called \"Width\""); // on the other tab
        row.of("tab=1; expand=*; set=Pixel Format:Mono 9",
               "set=Pixel Format:Mono 9: there is no entry \"Mono 9\"");
        row.of("choose=level:Guru", "choose=level:Guru: nothing visible is called \"level\"");
        row.of("tab=1; set=Group:3", "set=Group:3: \"Group\" has no editor that is open");
    }

    void tellsWhatFails()
    {
        QFETCH(QString, steps);
        QTEST(run(steps), "error");
    }

    // The lines of a table, by any of their cells, and their boxes.
    void usesTables()
    {
        QTableWidget table(2, 2, m_window.get());
        for (int row = 0; row < 2; ++row) {
            table.setItem(row, 0, new QTableWidgetItem("%1:00"_s.arg(row)));
            table.setItem(row, 1, new QTableWidgetItem(row == 0 ? "Width"_s : "Height"_s));
            table.item(row, 0)->setCheckState(Qt::Checked);
        }
        table.item(0, 0)->setFlags(Qt::ItemIsEnabled);
        table.resize(300, 200);
        table.show();
        QCOMPARE(run("line=Height"_s), QString());
        QCOMPARE(table.currentRow(), 1);
        QCOMPARE(run("check=Height:0"_s), QString());
        QCOMPARE(table.item(1, 0)->checkState(), Qt::Unchecked);
        QCOMPARE(run("check=Height:0; check=Height:1"_s), QString());
        QCOMPARE(table.item(1, 0)->checkState(), Qt::Checked);
        QCOMPARE(run("check=Width:0"_s), "check=Width:0: \"Width\" has no box"_s);
        QCOMPARE(run("line=Gain"_s), "line=Gain: nothing visible is called \"Gain\""_s);
    }

    void answersFileDialogs()
    {
        const QTemporaryDir folder;
        QString chosen;
        connect(m_button, &QPushButton::clicked, this, [&] {
            chosen =
                QFileDialog::getSaveFileName(m_window.get(), QString(), folder.path(), QString(),
                                             nullptr, QFileDialog::DontUseNativeDialog);
        });
        const QString wanted = folder.filePath("a.features"_s);
        QCOMPARE(run("press=Save; file=%1; wait=1"_s.arg(wanted)), QString());
        QCOMPARE(chosen, wanted);
        QVERIFY(storeFile(wanted, ""));
        chosen.clear();
        QCOMPARE(run("press=Save; file=%1; wait=1"_s.arg(wanted)), QString());
        QCOMPARE(chosen, wanted);
        QCOMPARE(run("file=%1"_s.arg(wanted)), "file=%1: no file dialog is open"_s.arg(wanted));
    }

    void goesOnInsideADialog()
    {
        QDialog dialog(m_window.get());
        auto* close = new QPushButton("Close"_s, &dialog);
        connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
        int result = -1;
        connect(m_button, &QPushButton::clicked, this, [&] { result = dialog.exec(); });
        QCOMPARE(run("press=Save; press=Close"_s), QString());
        QTRY_COMPARE(result, int(QDialog::Accepted));
    }

    void waitsForAnEditor()
    {
        m_tabs->setCurrentIndex(1);
        m_tree->expandAll();
        m_editor->setEnabled(false);
        QTimer::singleShot(700, m_editor, [this] { m_editor->setEnabled(true); });
        QCOMPARE(run("set=Width:640"_s), QString());
        QCOMPARE(m_editor->text(), "640"_s);
    }

    void waitsUntilALabelSaysIt()
    {
        QLabel label("Working"_s, m_window.get());
        label.show();
        connect(m_button, &QPushButton::clicked, this, [&] {
            QTimer::singleShot(400, &label, [&] { label.setText("300 values were saved."_s); });
        });
        QCOMPARE(run("press=Save; until=were saved; select=Nowhere"_s),
                 "select=Nowhere: nothing visible is called \"Nowhere\""_s);
        QVERIFY(label.text().contains("saved"_s));
    }

    void waitsUntilSettled()
    {
        int asked = 0;
        QCOMPARE(run("settle; press=Save"_s, [&asked] { return ++asked == 3; }), QString());
        QCOMPARE(asked, 3);
    }
};

OBFT_TEST_MAIN(TestStepActor)
#include "tst_stepactor.moc"
