// SPDX-License-Identifier: Apache-2.0
// Shows every styled control in every state and saves the pictures: gallery FOLDER. Run it
// offscreen, with QT_SCALE_FACTOR for other resolutions. A tool for the eye; not a test.
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomDoubleSpinBox.h"
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomLineEdit.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomQssHelper.h"
#include "styledctl/ZELCustomSlider.h"
#include "styledctl/ZELCustomSpinBox.h"
#include "styledctl/ZELCustomSpinBox64.h"
#include "styledctl/ZELCustomToolBar.h"
#include "styledctl/ZELCustomWidget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QHeaderView>
#include <QPainter>
#include <QResource>
#include <QTableWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString s_folder;

void save(QWidget* widget, const char* name)
{
    // Long enough for the animations of the controls.
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 400)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    widget->grab().save(s_folder + QLatin1Char('/') + QLatin1String(name));
}

template <class View>
class Sheeted : public View, public ZELCustomQssHelper
{
public:
    explicit Sheeted(QWidget* parent)
        : View(parent)
        , ZELCustomQssHelper(this)
    {
    }
};

// One control in four states side by side: as it is, under the mouse, focused, disabled.
template <class Make>
void addStates(QGridLayout* grid, const QString& caption, Make make)
{
    const int row = grid->rowCount();
    grid->addWidget(new ZELCustomLabel(caption, nullptr, ZELCustomLabel::Style_Muted), row, 0);
    for (int state = 0; state < 4; ++state) {
        QWidget* widget = make();
        grid->addWidget(widget, row, 1 + state);
        if (state == 1)
            widget->setAttribute(Qt::WA_UnderMouse);
        else if (state == 2)
            widget->setProperty("galleryFocus", true);
        else if (state == 3)
            widget->setEnabled(false);
    }
}

QWidget* states(QWidget* parent)
{
    auto* page = new ZELCustomWidget(parent);
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(16, 12, 16, 12);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    const QStringList heads = {QStringLiteral("normal"), QStringLiteral("hover"),
                               QStringLiteral("focus"), QStringLiteral("disabled")};
    for (int i = 0; i < heads.size(); ++i)
        grid->addWidget(new ZELCustomLabel(heads.at(i), page, ZELCustomLabel::Style_Title), 0,
                        i + 1);

    addStates(grid, QStringLiteral("Line edit"), [] {
        auto* edit = new ZELCustomLineEdit;
        edit->setText(QStringLiteral("192.168.0.12"));
        return edit;
    });
    addStates(grid, QStringLiteral("Search"), [] {
        auto* edit = new ZELCustomLineEdit;
        edit->cSetSearchEnabled(true);
        edit->setPlaceholderText(QStringLiteral("Search features"));
        return edit;
    });
    addStates(grid, QStringLiteral("Search, text"), [] {
        auto* edit = new ZELCustomLineEdit;
        edit->cSetSearchEnabled(true);
        edit->setText(QStringLiteral("曝光 gain"));
        return edit;
    });
    addStates(grid, QStringLiteral("Spin box 64"), [] {
        auto* box = new ZELCustomSpinBox64;
        box->setRange(0, 10000000);
        box->setValue(2048);
        return box;
    });
    addStates(grid, QStringLiteral("Double spin box"), [] {
        auto* box = new ZELCustomDoubleSpinBox;
        box->setValue(1.25);
        return box;
    });
    addStates(grid, QStringLiteral("Combo box"), [] {
        auto* box = new ZELCustomComboBox;
        box->addItems({QStringLiteral("Continuous"), QStringLiteral("SingleFrame")});
        return box;
    });
    addStates(grid, QStringLiteral("Combo box, flat"), [] {
        auto* box = new ZELCustomComboBox(nullptr, ZELCustomComboBox::Style_Flat);
        box->addItems({QStringLiteral("Guru"), QStringLiteral("Beginner")});
        return box;
    });
    const char* const styles[] = {"Button", "Button, primary", "Button, cell", "Button, flat",
                                  "Tab",    "Button, danger"};
    for (int style = 0; style < 6; ++style) {
        addStates(grid, QLatin1String(styles[style]), [style] {
            return new ZELCustomPushButton(QStringLiteral("Execute"), nullptr,
                                           ZELCustomPushButton::StyleSelector(style));
        });
    }
    addStates(grid, QStringLiteral("Tab, chosen"), [] {
        auto* tab = new ZELCustomPushButton(QStringLiteral("Common"), nullptr,
                                            ZELCustomPushButton::Style_Tab);
        tab->setChecked(true);
        return tab;
    });
    addStates(grid, QStringLiteral("Button with icon"), [] {
        auto* button = new ZELCustomPushButton(QStringLiteral("Open Tool"), nullptr,
                                               ZELCustomPushButton::Style_Cell);
        button->setIconSize(QSize(24, 24));
        button->cSetIcon(QStringLiteral(":/ORX/btn/FFC tool.png"));
        button->cSetIconAlign(1);
        return button;
    });
    for (const bool on : {false, true}) {
        addStates(grid, on ? QStringLiteral("Check box, on") : QStringLiteral("Check box"), [on] {
            auto* box = new ZELCustomCheckBox(QStringLiteral("Reverse X"), nullptr);
            box->setChecked(on);
            return box;
        });
        addStates(grid, on ? QStringLiteral("Switch, on") : QStringLiteral("Switch"), [on] {
            auto* box = new ZELCustomCheckBox(nullptr, ZELCustomCheckBox::Style_Switch);
            box->setChecked(on);
            return box;
        });
    }
    addStates(grid, QStringLiteral("Slider"), [] {
        auto* slider = new ZELCustomSlider(Qt::Horizontal);
        slider->setValue(40);
        return slider;
    });
    return page;
}

QWidget* tree(QWidget* parent)
{
    auto* tree = new Sheeted<QTreeWidget>(parent);
    tree->cSetStyleSheets({ZELCustom::Sheet_Tree, ZELCustom::Sheet_ScrollBar});
    tree->setFrameShape(QFrame::NoFrame);
    tree->setColumnCount(2);
    tree->header()->hide();
    tree->header()->setSectionResizeMode(QHeaderView::Stretch);
    auto* group = new QTreeWidgetItem(tree, {QStringLiteral("Image Format Control")});
    QFont bold = group->font(0);
    bold.setBold(true);
    group->setFont(0, bold);
    const QStringList names = {QStringLiteral("Width"),
                               QStringLiteral("Exposure Time (us)"),
                               QStringLiteral("Pixel Format"),
                               QStringLiteral("Reverse X"),
                               QStringLiteral("Trigger Software"),
                               QStringLiteral("设备温度"),
                               QStringLiteral("Height Max")};
    QVector<QTreeWidgetItem*> rows;
    for (const QString& name : names)
        rows.append(new QTreeWidgetItem(group, {name}));
    new QTreeWidgetItem(tree, {QStringLiteral("Acquisition Control")});
    tree->topLevelItem(1)->addChild(new QTreeWidgetItem({QStringLiteral("x")}));
    tree->expandItem(group);

    auto* spin = new ZELCustomSpinBox64(nullptr, ZELCustomSpinBox64::Style_Cell);
    spin->setRange(16, 4096);
    spin->setValue(4096);
    auto* text = new ZELCustomLineEdit(nullptr, ZELCustomLineEdit::Style_Cell);
    text->setText(QStringLiteral("12000.0000"));
    auto* combo = new ZELCustomComboBox(nullptr, ZELCustomComboBox::Style_Cell);
    combo->addItems({QStringLiteral("Mono8")});
    auto* check = new ZELCustomCheckBox(nullptr, ZELCustomCheckBox::Style_Cell);
    check->setChecked(true);
    auto* command =
        new ZELCustomPushButton(QStringLiteral("执行"), nullptr, ZELCustomPushButton::Style_Cell);
    auto* readOnly = new ZELCustomLineEdit(nullptr, ZELCustomLineEdit::Style_Cell);
    readOnly->setText(QStringLiteral("41.3750"));
    readOnly->setEnabled(false);
    auto* readOnlySpin = new ZELCustomSpinBox64(nullptr, ZELCustomSpinBox64::Style_Cell);
    readOnlySpin->setRange(0, 99999);
    readOnlySpin->setValue(3000);
    readOnlySpin->setEnabled(false);
    const QVector<QWidget*> editors = {spin, text, combo, check, command, readOnly, readOnlySpin};
    for (int i = 0; i < rows.size(); ++i) {
        auto* cell = new QWidget;
        auto* box = new QHBoxLayout(cell);
        box->setContentsMargins(5, 2, 10, 3);
        box->addWidget(editors.at(i));
        if (editors.at(i) == check)
            check->setFixedSize(check->sizeHint());
        tree->setItemWidget(rows.at(i), 1, cell);
    }
    tree->setCurrentItem(rows.at(1));
    return tree;
}

QWidget* side(QWidget* parent)
{
    auto* page = new ZELCustomWidget(parent);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* bar = new ZELCustomToolBar(page);
    bar->setFixedHeight(46);
    bar->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_ORXFeatureToolBarColor_Background_Gradient"));
    const QStringList names = {
        QStringLiteral("icon_Cn_normal|icon_Cn_hover"),
        QStringLiteral("icon_En_normal|icon_En_hover"), QStringLiteral("Save|Save_sel"),
        QStringLiteral("refresh|refresh_sel"), QStringLiteral("refresh|refresh_sel")};
    int i = 0;
    for (const QString& name : names) {
        auto* button = new ZELCustomPushButton(bar);
        const QString path = QStringLiteral(":/ORXToolBarBtn/%1.png");
        button->cSetImages(path.arg(name.section(QLatin1Char('|'), 0, 0)),
                           path.arg(name.section(QLatin1Char('|'), 1)),
                           path.arg(name.section(QLatin1Char('|'), 1)),
                           QStringLiteral(":/ORXToolBarBtn/refresh_dis.png"));
        button->setFixedSize(34, 34);
        if (i == 2)
            button->setAttribute(Qt::WA_UnderMouse);
        button->setEnabled(i++ != 4);
        bar->cAddSpacing(6);
        bar->cAddWidget(button);
    }
    bar->cAddEndMarker();
    auto* label = new ZELCustomLabel(QStringLiteral("User Level: "), bar);
    label->cSetFontSize(14);
    label->cSetTextColor(QColor(QStringLiteral("#B4BEBEBE")));
    auto* level = new ZELCustomComboBox(bar);
    level->addItems({QStringLiteral("Guru"), QStringLiteral("Beginner")});
    level->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_ORXFeatureToolBarColor_Background_Gradient"));
    level->cSetBorderWidth(0);
    level->cSetFontSize(14);
    level->cSetTextColor(QColor(QStringLiteral("#BEBEBE")));
    level->setFixedWidth(95);
    bar->cAddWidget(label);
    bar->cAddSpacing(6);
    bar->cAddWidget(level);
    bar->cAddSpacing(16);
    column->addWidget(bar);

    auto* heading = new ZELCustomDockTitleBar(page);
    heading->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_ORXMainFeatureWidgetColor_TitleBar_Background_Gradient"));
    heading->cSetTitleText(QStringLiteral("Line scan 4K · 左侧相机"));
    column->addWidget(heading);
    column->addWidget(tree(page), 1);

    auto* text = new Sheeted<QTextEdit>(page);
    text->cSetStyleSheets({ZELCustom::Sheet_TextPanel, ZELCustom::Sheet_ScrollBar});
    text->setReadOnly(true);
    text->setFixedHeight(90);
    text->setHtml(QStringLiteral("<b>Exposure Time</b><br>Sets the exposure time in microseconds."
                                 "<br>曝光时间，以微秒为单位。<br>Min: 10<br>Max: 1000000"));
    column->addWidget(text);

    auto* table = new Sheeted<QTableWidget>(page);
    table->cSetStyleSheets({ZELCustom::Sheet_Table, ZELCustom::Sheet_ScrollBar});
    table->setRowCount(2);
    table->setColumnCount(3);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->hide();
    table->setAlternatingRowColors(true);
    table->setFixedHeight(112);
    for (int cell = 0; cell < 6; ++cell) {
        auto* edit = new ZELCustomLineEdit(nullptr, ZELCustomLineEdit::Style_Panel);
        edit->setText(QStringLiteral("1.0000"));
        edit->setEnabled(cell != 4);
        table->setCellWidget(cell / 3, cell % 3, edit);
        table->setRowHeight(cell / 3, 40);
    }
    column->addWidget(table);
    for (int first = 1; first <= 14; first += 7) {
        auto* row = new QHBoxLayout;
        row->setContentsMargins(8, 4, 8, 4);
        QStringList names14 = QDir(QStringLiteral(":/ORX/Temperature")).entryList();
        names14 = names14.filter(QRegExp(QStringLiteral("^mode[0-9]+_[^@]*$")));
        for (int n = first - 1; n < qMin(first + 6, names14.size()); ++n) {
            auto* picture = new QLabel(page);
            picture->setPixmap(
                QIcon(QStringLiteral(":/ORX/Temperature/") + names14.at(n)).pixmap(182, 22));
            picture->setScaledContents(true);
            picture->setFixedSize(60, 22);
            row->addWidget(picture);
        }
        column->addLayout(row);
    }
    return page;
}

void messages(ZELCustomMainWindow* owner)
{
    const QStringList titles = {QString(),
                                QString(),
                                QStringLiteral("Not supported."),
                                QStringLiteral("Failed to set the feature value."),
                                QStringLiteral("Reset the device?"),
                                QString()};
    const QStringList texts = {
        QStringLiteral("Plain."),
        QStringLiteral("Exporting to file completed."),
        QString(),
        QStringLiteral("Node 'Width':failed to save value '4096'\r\n0x80000106 (the feature is not "
                       "readable)"),
        QStringLiteral("The camera will be disconnected and all settings that were not saved to a "
                       "user set are lost. 相机将断开连接。"),
        QStringLiteral("The camera is about to reboot. Reconnect the\ncamera later.")};
    QVector<QPixmap> pictures;
    for (int hint = 0; hint < 6; ++hint) {
        ZELCustomMessageBox box(owner);
        box.cSetTextTitle(titles.at(hint));
        box.cSetContent(texts.at(hint));
        box.cSetHintStyle(hint);
        box.cSetButtons(hint == 4 ? 3 : hint == 2 ? 2 : 1);
        box.cEndSetParameter();
        box.show();
        QApplication::processEvents();
        pictures.append(box.grab());
        box.close();
    }
    const qreal ratio = owner->devicePixelRatioF();
    QImage sheet(QSize(int(1120 * ratio), int(820 * ratio)), QImage::Format_RGB32);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(QColor(110, 116, 122));
    QPainter painter(&sheet);
    for (int i = 0; i < pictures.size(); ++i)
        painter.drawPixmap(QPoint(10 + 555 * (i % 2), 10 + 260 * (i / 2)), pictures.at(i));
    painter.end();
    sheet.save(s_folder + QStringLiteral("/messages.png"));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    s_folder = application.arguments().value(1, QStringLiteral("."));
    const QString packs = QCoreApplication::applicationDirPath() +
                          QStringLiteral("/FeatureTreeResource/%1_Default.rcc");
    for (const char* pack : {"Client", "StyledCtl", "ToolBarBtn"})
        QResource::registerResource(packs.arg(QLatin1String(pack)));
    ZELCustom::addXmlPath(QStringLiteral(":/ORX/QSS/CustomStyleSheet_ORX.xml"));

    ZELCustomMainWindow window;
    window.cSetTitleText(QStringLiteral("Camera features — 相机属性"));
    window.cSetTitleIcon(QIcon(QStringLiteral(":/ORX/icon/window.png")));
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(states(&window), 3);
    row->addWidget(side(&window), 2);
    window.cContentLayout()->addLayout(row);
    window.resize(1180, 920);
    window.show();
    window.activateWindow();
    ZELCustomLoadingDialog::setHostWindow(&window, 1);
    ZELCustomLoadingDialog::setHostWindow(&window, 4);
    save(&window, "gallery.png");

    // A window has one focus: draw each control of the focus column while it has it.
    QPixmap picture = window.grab();
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->property("galleryFocus").toBool())
            continue;
        widget->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        QPainter(&picture).drawPixmap(widget->mapTo(&window, QPoint(0, 0)), widget->grab());
    }
    picture.save(s_folder + QStringLiteral("/gallery.png"));

    ZELCustomLoadingDialog::showLoading(QStringLiteral("Setting features..."), 1);
    ZELCustomLoadingDialog::showLoading(QStringLiteral("正在更新属性..."), 4);
    save(&window, "loading.png");
    ZELCustomLoadingDialog::hideLoading(1);
    ZELCustomLoadingDialog::hideLoading(4);

    messages(&window);

    ZELCustomComboBox combo(&window);
    for (int i = 0; i < 14; ++i)
        combo.addItem(QStringLiteral("PixelFormat %1 像素").arg(i));
    combo.move(40, 80);
    combo.show();
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(2, 0));
    QApplication::processEvents();
    combo.view()->window()->grab().save(s_folder + QStringLiteral("/popup.png"));
    return 0;
}
