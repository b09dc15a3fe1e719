// SPDX-License-Identifier: Apache-2.0
#include "selector/SelectorChecks.h"

#include "basetools/ORXInterface.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ORXFeatureTree.h"

#include <QDebug>

namespace {

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

SelectorChecks::SelectorChecks(const QVector<Names>& choices, FeatureTag tag, QObject* parent)
    : QObject(parent)
    , m_choices(choices)
    , m_rows(tag)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SelectorChecks::readStates);
    connect(&m_thread, &SelectorStateThread::SigJobEnded, this, &SelectorChecks::onJobEnded,
            Qt::QueuedConnection);
}

SelectorChecks::~SelectorChecks() = default;

void SelectorChecks::requestStop()
{
    m_bShown = false;
    m_timer.stop();
    m_thread.requestStop();
}

void SelectorChecks::stopHostCalls()
{
    requestStop();
    m_thread.stopAndWait();
    onJobEnded();
    forgetWrites();
}

// Boxes whose write was dropped show again what the camera has.
void SelectorChecks::forgetWrites()
{
    const QList<qint64> entries = m_underWay.keys();
    m_underWay.clear();
    for (const qint64 entry : entries) {
        qCritical().noquote() << QStringLiteral("%1 of entry %2 was not written: stopped before")
                                     .arg(latin(m_names->enable))
                                     .arg(entry);
        showState(int(m_numbers.indexOf(entry)));
    }
}

void SelectorChecks::clear()
{
    stopHostCalls();
    m_rows.clear();
    m_numbers.clear();
    m_known.clear();
    m_bShown = false;
    m_names = nullptr;
    m_pTree = nullptr;
    m_lCameraID = -1;
}

// Rows --------------------------------------------------------------------------------------------

void SelectorChecks::attach(ORXFeatureTree* tree, ORXPropertyTreeItem* group,
                            ORXFeatureTreeView* view, qint64 cameraId)
{
    clear();
    m_pTree = tree;
    m_lCameraID = cameraId;
    m_rows.attach(group, view, mostEntries(), cameraId);
    refresh();
}

// The first pair that the camera shows now, else the first that it has at all.
const SelectorChecks::Names* SelectorChecks::chosen() const
{
    const Names* first = nullptr;
    for (const Names& choice : m_choices) {
        const ORXPropertyTreeItem* selector = cameraItem(choice.selector);
        const ORXPropertyTreeItem* enable = cameraItem(choice.enable);
        if (!selector || !enable)
            continue;
        if (selector->visible() && enable->visible())
            return &choice;
        first = first ? first : &choice;
    }
    return first;
}

// By the description: which entries the camera has is known after it was read.
int SelectorChecks::mostEntries() const
{
    int entries = 0;
    for (const Names& choice : m_choices) {
        const FeatureNodePtr node =
            m_pTree->descriptionIndex().GetDomElementNode(latin(choice.selector));
        if (node && cameraItem(choice.selector) && cameraItem(choice.enable))
            entries = qMax(entries, int(node->entries.size()));
    }
    return entries;
}

ORXPropertyTreeItem* SelectorChecks::cameraItem(const char* name) const
{
    return m_pTree ? m_pTree->propertyItemByName(latin(name)) : nullptr;
}

const CTreeEnumationItemValue* SelectorChecks::entries() const
{
    const ORXPropertyTreeItem* item = m_names ? cameraItem(m_names->selector) : nullptr;
    return item ? dynamic_cast<const CTreeEnumationItemValue*>(item->value()) : nullptr;
}

QString SelectorChecks::nodeName(qint64 entry) const
{
    return QStringLiteral("Custom_%1_%2").arg(latin(m_names->selector)).arg(entry);
}

void SelectorChecks::refresh()
{
    const Names* names = chosen();
    if (names != m_names)
        m_numbers.clear();
    m_names = names;
    const CTreeEnumationItemValue* selector = entries();
    const ORXPropertyTreeItem* enable = m_names ? cameraItem(m_names->enable) : nullptr;
    if (!selector || !enable)
        return;
    const QVector<qint64> known = selector->valueMap().keys().toVector().mid(0, m_rows.boxes());
    const bool changed = known != m_numbers;
    m_numbers = known;
    const QMap<qint64, QString> texts = selector->valueMap();
    const QStringList english = selector->displayList();
    const QStringList chinese = selector->displayListCN();
    const bool inChinese = ORXInterface::language() == QLatin1String("CH");
    const bool visible = cameraItem(m_names->selector)->visible() && enable->visible();
    for (int box = 0; box < m_rows.boxes(); ++box) {
        const bool used = box < m_numbers.size();
        const QString text = used ? texts.value(m_numbers.at(box)) : QString();
        const QString translated = inChinese ? chinese.value(english.indexOf(text)) : QString();
        m_rows.setBox(box, used ? nodeName(m_numbers.at(box)) : QString(),
                      translated.isEmpty() ? text : translated, enable->readOnly());
    }
    m_rows.show(visible ? int(m_numbers.size()) : 0, changed);
    if (changed)
        requestStates();
}

bool SelectorChecks::concerns(const QString& nodeName) const
{
    return m_names && (nodeName == latin(m_names->selector) || nodeName == latin(m_names->enable));
}

// States ------------------------------------------------------------------------------------------

SelectorStateThread::Pair SelectorChecks::pair() const
{
    SelectorStateThread::Pair pair;
    pair.selector = latin(m_names->selector);
    pair.enable = latin(m_names->enable);
    const ORXPropertyTreeItem* enable = cameraItem(m_names->enable);
    if (const auto* value = dynamic_cast<const CTreeEnumationItemValue*>(enable->value())) {
        pair.isEnumeration = true;
        const auto numberOf = [value](const QString& entry, quint32 usual) {
            const QString text = value->nameMap().value(entry);
            return static_cast<quint32>(value->valueMap().key(text, usual));
        };
        pair.on = numberOf(QStringLiteral("On"), pair.on);
        pair.off = numberOf(QStringLiteral("Off"), pair.off);
    }
    return pair;
}

void SelectorChecks::setShown(bool shown)
{
    const bool appears = shown && !m_bShown;
    m_bShown = shown;
    if (appears) {
        requestStates();
    } else if (!shown) {
        m_timer.stop();
        m_thread.stopReading();
        // The worker reports no end of a reading that it has not begun.
        QMetaObject::invokeMethod(this, &SelectorChecks::onJobEnded, Qt::QueuedConnection);
    }
}

void SelectorChecks::requestStates()
{
    if (m_bShown && m_names && !m_numbers.isEmpty())
        m_timer.start(0);
}

void SelectorChecks::readStates()
{
    const ORXPropertyTreeItem* enable = m_names ? cameraItem(m_names->enable) : nullptr;
    if (!enable || !enable->visible() || m_numbers.isEmpty())
        return;
    lockRows();
    m_thread.read(m_pTree->GetFeatureMutex(), pair(), m_numbers);
}

// Before the worker moves the selector, so that no edit of the user can land on another entry.
void SelectorChecks::lockRows()
{
    m_rowsLock.lockSelector(m_pTree, latin(m_names->selector));
}

void SelectorChecks::onJobEnded()
{
    const QVector<SelectorStateThread::Answer> answers = m_thread.takeAnswers();
    for (const SelectorStateThread::Answer& each : answers) {
        if (each.isWrite)
            onWritten(each.selector, each.entry, each.on, each.feature, each.error);
        else
            onStatesRead(each.selector, each.states);
    }
    if (!m_thread.isBusy())
        m_rowsLock.unlock();
}

void SelectorChecks::onStatesRead(const QString& selector, const QVector<int>& states)
{
    // The rows may have changed since the reading was asked for.
    if (!m_names || selector != latin(m_names->selector) || states.size() != m_numbers.size())
        return;
    for (int i = 0; i < states.size(); ++i) {
        if (states.at(i) < 0)
            continue;
        m_known[m_numbers.at(i)] = states.at(i) == 1;
        // The user has changed the box since.
        if (!m_underWay.contains(m_numbers.at(i)))
            showState(i);
    }
}

// Shows what the camera told last about the entry of a box.
void SelectorChecks::showState(int index)
{
    if (index >= 0 && m_known.contains(m_numbers.at(index)))
        m_rows.setChecked(index, m_known.value(m_numbers.at(index)));
}

bool SelectorChecks::write(const QString& nodeName, bool on)
{
    for (const qint64 entry : qAsConst(m_numbers)) {
        if (this->nodeName(entry) != nodeName)
            continue;
        ++m_underWay[entry];
        // The state was never read: before the click it was the opposite.
        if (!m_known.contains(entry))
            m_known.insert(entry, !on);
        lockRows();
        m_thread.write(m_pTree->GetFeatureMutex(), pair(), entry, on);
        return true;
    }
    return false;
}

void SelectorChecks::onWritten(const QString& selector, qint64 entry, bool on,
                               const QString& feature, int error)
{
    const bool isLast = --m_underWay[entry] <= 0;
    if (isLast)
        m_underWay.remove(entry);
    if (feature.isEmpty())
        m_known[entry] = on;
    const int index = int(m_numbers.indexOf(entry));
    if (!m_names || selector != latin(m_names->selector) || index < 0)
        return;
    const QString enable = latin(m_names->enable);
    if (feature.isEmpty()) {
        qInfo().noquote() << QStringLiteral("NodeName:%1, NodeValue:%2, [CameraID:%3]")
                                 .arg(enable, QString::number(int(on)),
                                      QString::number(m_lCameraID));
    } else {
        // After the last of several clicks the box shows the camera's state again.
        if (isLast)
            showState(index);
        m_pTree->showWriteFailure(
            feature, feature == selector ? QString::number(entry) : QString::number(int(on)),
            error);
    }
    // The whole tree shows the same for the entry that is selected there.
    m_pTree->rereadInvalidated(enable);
}
