// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileDialog.h"

#include "changes/FeatureFileCheck.h"
#include "changes/FeatureFileTable.h"
#include "changes/ThemedTable.h"
#include "model/CTreeItemValue.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomWidget.h"
#include "tree/ORXFeatureTree.h"

#include <QDebug>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSaveFile>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 460;
constexpr int kMargin = 12;
constexpr int kFontPx = 13;

const QLatin1String kModelFeature("DeviceModelName");

} // namespace

FeatureFileDialog::FeatureFileDialog(ORXFeatureTree* tree, QWidget* parent)
    : ZELCustomMainWindow(parent)
    , m_pTree(tree)
    , m_pTable(new FeatureFileTable(this))
{
    setObjectName(QStringLiteral("FeatureFileDialog"));
    cSetDialogKeys(false);
    resize(kWidth, kHeight);
    buildLayout();
    retranslate();
    connect(&m_thread, &FeatureFileThread::SigProgress, this, &FeatureFileDialog::onProgress,
            Qt::QueuedConnection);
    connect(&m_thread, &FeatureFileThread::SigEnded, this, &FeatureFileDialog::onEnded,
            Qt::QueuedConnection);
    connect(m_pTable, &FeatureFileTable::SigChosenChanged, this, &FeatureFileDialog::updateButtons);
    // Its job holds the tree's mutex, and its rows are the tree's.
    connect(tree, &ORXFeatureTree::SigReadyForDelete, this, [this] {
        m_thread.stopAndWait();
        m_rowsLock.unlock();
    });
    parent->window()->installEventFilter(this);
}

FeatureFileDialog::~FeatureFileDialog()
{
    m_thread.stopAndWait();
}

void FeatureFileDialog::buildLayout()
{
    auto* content = new QVBoxLayout;
    content->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    content->setSpacing(kMargin);
    m_pSummary = new QLabel(cContentWidget());
    m_pSummary->setObjectName(QStringLiteral("FeatureFileSummary"));
    m_pSummary->setWordWrap(true);
    m_pSummary->setFont(ZELCustom::font(kFontPx));
    m_pProgress = new QProgressBar(cContentWidget());
    m_pProgress->setTextVisible(false);
    m_pProgress->setFixedHeight(4);
    m_pProgress->setStyleSheet(ZELCustom::resolveSheet(
        QStringLiteral("QProgressBar { background: @StyledCtlColor_Separator@; border: none; }"
                       "QProgressBar::chunk { background: @StyledCtlColor_Accent@; }")));
    m_pView = new ThemedTable(m_pTable, cContentWidget());
    m_pView->setObjectName(QStringLiteral("FeatureFileRows"));
    m_pView->setShares({5, 3, 3, 3});
    m_pApply =
        new ZELCustomPushButton(QString(), cContentWidget(), ZELCustomPushButton::Style_Primary);
    m_pApply->setObjectName(QStringLiteral("FeatureFileApply"));
    m_pClose = new ZELCustomPushButton(QString(), cContentWidget());
    m_pClose->setObjectName(QStringLiteral("FeatureFileClose"));
    connect(m_pApply, &QPushButton::clicked, this, &FeatureFileDialog::apply);
    connect(m_pClose, &QPushButton::clicked, this, [this] {
        if (isWorking())
            stop();
        else
            close();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_pApply);
    buttons->addWidget(m_pClose);
    content->addWidget(m_pSummary);
    content->addWidget(m_pProgress);
    content->addWidget(m_pView, 1);
    content->addLayout(buttons);
    cContentLayout()->addLayout(content);
}

// Work --------------------------------------------------------------------------------------------

void FeatureFileDialog::start(FeatureFileJob job)
{
    job.nodes = m_pTree->descriptionIndex().nodes();
    job.mutex = m_pTree->GetFeatureMutex();
    // Before the worker moves a selector, so that no edit of the user can land on another entry.
    const FeatureFileOrder::Selectors selectors(job.nodes);
    m_rowsLock.lock(m_pTree, selectors.allConcerned());
    m_pTable->setEditable(false);
    m_pProgress->setRange(0, 0);
    m_thread.start(job);
    tell(Outcome::Working);
}

// Shows the dialog; false while it is at work.
bool FeatureFileDialog::isFree()
{
    show();
    raise();
    return !isWorking();
}

void FeatureFileDialog::save(const QString& path)
{
    if (!isFree())
        return;
    m_strPath = path;
    m_pTable->setRows({}, false);
    FeatureFileJob job;
    job.kind = FeatureFileJob::Kind::Save;
    job.names = m_pTree->AllTreeItemsMap().keys();
    const ORXPropertyTreeItem* model = m_pTree->propertyItemByName(kModelFeature);
    if (model && model->value() && model->wasRead())
        job.file.model = model->value()->value().toString();
    start(job);
}

void FeatureFileDialog::compare(const QString& path)
{
    if (!isFree())
        return;
    m_strPath = path;
    m_strModel.clear();
    m_pTable->setRows({}, false);
    QFile file(path);
    FeatureFileJob job;
    job.kind = FeatureFileJob::Kind::Compare;
    const bool opened = file.open(QIODevice::ReadOnly);
    if (opened)
        job.file = FeatureFile::parse(file.read(FeatureFile::kMaxBytes + 1));
    // Only a file of which every line is understood says where its selectors stand.
    if (job.file.faults.isEmpty())
        job.file.faults =
            FeatureFileCheck::repeatedLines(job.file, m_pTree->descriptionIndex().nodes());
    if (!opened || file.error() != QFileDevice::NoError) {
        qWarning().noquote()
            << QStringLiteral("Feature file %1 cannot be read: %2").arg(path, file.errorString());
        tell(Outcome::NotReadable);
    } else if (!job.file.faults.isEmpty()) {
        m_pTable->setFaults(job.file.faults);
        tell(Outcome::Faulty, int(job.file.faults.size()));
    } else if (job.file.lines.isEmpty()) {
        tell(Outcome::NoLines);
    } else {
        m_strModel = job.file.model;
        start(job);
    }
}

void FeatureFileDialog::apply()
{
    if (isWorking() || m_pTable->chosenCount() == 0)
        return;
    FeatureFileJob job;
    job.kind = FeatureFileJob::Kind::Apply;
    job.rows = m_pTable->rows();
    start(job);
}

void FeatureFileDialog::stop()
{
    m_thread.requestStop();
    // A job that had not begun ends without a word of the worker.
    QMetaObject::invokeMethod(this, &FeatureFileDialog::onEnded, Qt::QueuedConnection);
}

void FeatureFileDialog::onProgress()
{
    const FeatureFileThread::Progress progress = m_thread.progress();
    m_pProgress->setRange(0, progress.total);
    m_pProgress->setValue(progress.done);
    m_pSummary->setText(outcomeText());
}

void FeatureFileDialog::onEnded()
{
    const std::optional<FeatureFileJob> job = m_thread.takeResult();
    if (m_thread.isBusy())
        return;
    m_rowsLock.unlock();
    m_pTable->setEditable(true);
    if (!job) {
        if (m_outcome == Outcome::Working)
            tell(Outcome::Stopped);
        return;
    }
    m_pProgress->setRange(0, 1);
    m_pProgress->setValue(1);
    const auto count = [&](FeatureFileRow::State state) {
        return int(std::count_if(job->rows.begin(), job->rows.end(),
                                 [=](const FeatureFileRow& row) { return row.state == state; }));
    };
    switch (job->kind) {
    case FeatureFileJob::Kind::Save:
        afterSave(*job);
        break;
    case FeatureFileJob::Kind::Compare:
        m_pTable->setRows(job->rows, true);
        tell(job->wasStopped ? Outcome::Stopped : Outcome::Compared,
             int(job->rows.size()) - count(FeatureFileRow::State::Same), int(job->rows.size()));
        break;
    case FeatureFileJob::Kind::Apply: {
        const int chosen = m_pTable->chosenCount();
        m_pTable->setRows(job->rows, false);
        tell(job->wasStopped ? Outcome::Stopped : Outcome::Applied,
             count(FeatureFileRow::State::Written), chosen);
        m_pTree->RefreshFeatures();
        break;
    }
    }
}

// Written whole or not at all; what was ended on the way is not written.
void FeatureFileDialog::afterSave(const FeatureFileJob& job)
{
    m_pTable->setRows(job.rows, false);
    if (job.wasStopped) {
        tell(Outcome::Stopped);
        return;
    }
    QStringList remarks;
    for (const FeatureFileRow& row : job.rows)
        remarks.append(
            QStringLiteral("Not saved: %1: %2").arg(row.nameWithSelectors(), row.stateText()));
    QSaveFile file(m_strPath);
    const QByteArray bytes = job.file.toBytes(remarks);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                         file.flush() && file.commit();
    if (!written) {
        qWarning().noquote() << QStringLiteral("Feature file %1 cannot be written: %2")
                                    .arg(m_strPath, file.errorString());
    }
    tell(written ? Outcome::Saved : Outcome::NotSaved, int(job.file.lines.size()),
         int(job.rows.size()));
}

// Words -------------------------------------------------------------------------------------------

void FeatureFileDialog::tell(Outcome outcome, int first, int second)
{
    m_outcome = outcome;
    m_first = first;
    m_second = second;
    m_pSummary->setText(outcomeText());
    m_pProgress->setVisible(outcome == Outcome::Working);
    updateButtons();
}

QString FeatureFileDialog::summary() const
{
    return outcomeText();
}

QString FeatureFileDialog::outcomeText() const
{
    const QString file = QFileInfo(m_strPath).fileName();
    switch (m_outcome) {
    case Outcome::None:
        return {};
    case Outcome::Working: {
        const FeatureFileThread::Progress progress = m_thread.progress();
        return progress.total > 0 ? tr("Feature %1 of %2").arg(progress.done).arg(progress.total)
                                  : tr("Working...");
    }
    case Outcome::Saved:
        return m_second > 0 ? tr("%1 values were saved to \"%2\". These could not be saved:")
                                  .arg(m_first)
                                  .arg(file)
                            : tr("%1 values were saved to \"%2\".").arg(m_first).arg(file);
    case Outcome::NotSaved:
        return tr("The file \"%1\" cannot be written.").arg(file);
    case Outcome::NotReadable:
        return tr("The file \"%1\" cannot be read.").arg(file);
    case Outcome::Faulty:
        return tr("The file \"%1\" is not understood; nothing was read or written.").arg(file);
    case Outcome::NoLines:
        return tr("There is no feature in the file \"%1\".").arg(file);
    case Outcome::Compared: {
        const QString result = m_first > 0
                                   ? tr("%1 of %2 values differ.").arg(m_first).arg(m_second)
                                   : tr("None of %1 values differs.").arg(m_second);
        const ORXPropertyTreeItem* model = m_pTree->propertyItemByName(kModelFeature);
        const QString name =
            model && model->value() ? model->value()->value().toString() : QString();
        return m_strModel.isEmpty() || name.isEmpty() || m_strModel == name
                   ? result
                   : tr("The file is of another model, %1.").arg(m_strModel) + QLatin1Char(' ') +
                         result;
    }
    case Outcome::Applied:
        return tr("%1 of %2 values were written and read back.").arg(m_first).arg(m_second);
    case Outcome::Stopped:
        return tr("Ended before everything was done.");
    }
    return {};
}

void FeatureFileDialog::updateButtons()
{
    const bool working = m_outcome == Outcome::Working;
    m_pApply->setVisible(m_outcome != Outcome::Saved && m_outcome != Outcome::NotSaved);
    m_pApply->setEnabled(!working && m_pTable->chosenCount() > 0);
    m_pClose->setText(working ? tr("End") : tr("Close"));
}

void FeatureFileDialog::retranslate()
{
    cSetTitleText(tr("Feature File"));
    m_pApply->setText(tr("Apply"));
    m_pSummary->setText(outcomeText());
    m_pTable->retranslate();
    updateButtons();
}

void FeatureFileDialog::changeEvent(QEvent* event)
{
    ZELCustomMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

// A window that was closed leaves no dialog behind.
bool FeatureFileDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous() &&
        watched == parentWidget()->window())
        close();
    return ZELCustomMainWindow::eventFilter(watched, event);
}

void FeatureFileDialog::hideEvent(QHideEvent* event)
{
    ZELCustomMainWindow::hideEvent(event);
    stop();
}
