// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileWork.h"

#include "changes/ExactValue.h"
#include "device/OBDeviceControl.h"
#include "device/StopRequest.h"
#include "reading/FeatureDecider.h"

#include <QSet>

namespace {

using State = FeatureFileRow::State;

constexpr int kMaxSettings = 65536; // of a selector that is a number
constexpr int kMaxRounds = 5;       // of applying

bool isWritable(int mode)
{
    return mode == OB_FT_ACCESS_READ_WRITE;
}

} // namespace

FeatureFileWork::FeatureFileWork(const FeatureNodeMap& nodes, FeatureMutex* mutex,
                                 const StopRequest& stop, const Progress& progress)
    : m_nodes(nodes)
    , m_selectors(nodes)
    , m_stop(stop)
    , m_progress(progress)
    , m_lock(mutex, &stop)
    , m_positions(m_nodes, m_selectors)
{
}

bool FeatureFileWork::isStopped() const
{
    return m_stop.isRequested() || !m_lock.holds();
}

void FeatureFileWork::stepDone()
{
    m_progress(++m_done, m_total);
}

void FeatureFileWork::giveWay(const QVector<SelectorSetting>& settings)
{
    if (!m_lock.isWaitedFor())
        return;
    m_positions.putBack();
    m_lock.giveWay();
    if (!isStopped())
        m_positions.move(settings, nullptr);
}

// Saving ------------------------------------------------------------------------------------------

FeatureFile FeatureFileWork::save(const QStringList& names, QVector<FeatureFileRow>& notSaved)
{
    FeatureFile file;
    const QVector<FeatureFileGroup> groups = FeatureFileOrder::groups(m_nodes, names);
    for (const FeatureFileGroup& group : groups)
        m_total += int(group.features.size());
    for (const FeatureFileGroup& group : groups) {
        if (isStopped())
            break;
        saveGroup(group, file, notSaved);
    }
    return file;
}

void FeatureFileWork::saveGroup(const FeatureFileGroup& group, FeatureFile& file,
                                QVector<FeatureFileRow>& notSaved)
{
    if (!group.selectors.isEmpty()) {
        saveFrom(0, group, {}, file, notSaved);
        m_positions.putBack();
        m_done += int(group.features.size()) - 1;
        stepDone();
        return;
    }
    for (const QString& name : group.features) {
        if (isStopped())
            return;
        giveWay({});
        saveFeature(name, {}, file, notSaved);
        stepDone();
    }
}

bool FeatureFileWork::saveFrom(int selector, const FeatureFileGroup& group,
                               const QVector<SelectorSetting>& settings, FeatureFile& file,
                               QVector<FeatureFileRow>& notSaved)
{
    bool any = false;
    if (selector == group.selectors.size()) {
        for (const QString& name : group.features) {
            if (!isStopped())
                any = saveFeature(name, settings, file, notSaved) || any;
        }
        giveWay(settings);
        return any;
    }
    const FeatureNodePtr node = m_nodes.node(group.selectors.at(selector));
    QString stood = m_positions.before(node->name);
    if (stood.isNull())
        stood = ExactValue::read(*node).text;
    const QStringList values = settingsOf(*node);
    for (const QString& value : values) {
        if (isStopped())
            return any;
        QVector<SelectorSetting> deeper = settings;
        deeper.append({node->name, value});
        FeatureFileRow refused;
        refused.name = node->name;
        refused.selectors = deeper;
        if (!m_positions.move(deeper, &refused.error)) {
            if (isStopped())
                return any;
            refused.state = State::SelectorRefused;
            notSaved.append(refused);
            continue;
        }
        const int before = int(file.lines.size());
        file.append(node->name, value);
        if (saveFrom(selector + 1, group, deeper, file, notSaved))
            any = true;
        else
            file.lines.resize(before); // nothing stands behind it
    }
    if (any)
        file.append(node->name, stood);
    return any;
}

bool FeatureFileWork::saveFeature(const QString& name, const QVector<SelectorSetting>& settings,
                                  FeatureFile& file, QVector<FeatureFileRow>& notSaved)
{
    const FeatureNodePtr node = m_nodes.node(name);
    const int mode = OBDeviceControl::GetNodeAccessMode(name);
    const ExactValue::Read value = ExactValue::read(*node);
    if (isStopped())
        return false;
    if (isWritable(mode) && value.known) {
        file.append(name, value.text);
        return true;
    }
    FeatureFileRow row;
    row.name = name;
    row.selectors = settings;
    row.state = value.known ? State::NotWritable : State::Unreadable;
    row.error = value.error;
    notSaved.append(row);
    return false;
}

// Where the selector can stand now.
QStringList FeatureFileWork::settingsOf(const FeatureNode& selector) const
{
    if (selector.tag == FeatureTag::Boolean)
        return {QStringLiteral("false"), QStringLiteral("true")};
    QStringList settings;
    if (selector.tag == FeatureTag::Enumeration) {
        FeatureDecider decider;
        decider.setNodes(m_nodes);
        for (const FeatureEnumEntry& entry : selector.entries) {
            if (decider.IsFeatureImplemented(entry.pIsImplemented) &&
                decider.IsFeatureAvailable(entry.pIsAvailable))
                settings.append(entry.name);
        }
        return settings;
    }
    _ZDCC_INTVALUE_EX_T record = {};
    if (!OBDeviceControl::GetIntegerNodeValue(selector.name, &record))
        return settings;
    const qint64 step = qMax<qint64>(1, record.increment);
    for (qint64 number = record.minimum;
         number <= record.maximum && settings.size() < kMaxSettings;) {
        settings.append(QString::number(number));
        if (number > record.maximum - step)
            break;
        number += step;
    }
    return settings;
}

// Comparing ---------------------------------------------------------------------------------------

QVector<FeatureFileRow> FeatureFileWork::compare(const FeatureFile& file)
{
    QHash<QString, int> lastLine;
    for (const FeatureFile::Line& line : file.lines)
        lastLine.insert(line.name, line.number);
    QVector<FeatureFileRow> rows;
    QHash<QString, QString> stands; // selectors, as the lines so far have set them
    for (const FeatureFile::Line& line : file.lines) {
        const bool selects = m_selectors.isSelector(line.name);
        if (selects)
            stands.insert(line.name, line.value);
        if (selects && lastLine.value(line.name) != line.number)
            continue;
        FeatureFileRow row;
        row.line = line.number;
        row.name = line.name;
        row.inFile = line.value;
        const QStringList selectors = m_selectors.of(line.name);
        for (const QString& selector : selectors) {
            const auto found = stands.constFind(selector);
            if (found != stands.constEnd())
                row.selectors.append({selector, *found});
        }
        rows.append(row);
    }
    m_total = int(rows.size());
    for (FeatureFileRow& row : rows) {
        if (isStopped())
            break;
        compareRow(row);
        stepDone();
        giveWay(row.selectors);
    }
    m_positions.putBack();
    return rows;
}

void FeatureFileWork::compareRow(FeatureFileRow& row)
{
    const FeatureNodePtr node = m_nodes.node(row.name);
    if (!node || !ExactValue::hasValue(node->tag)) {
        row.state = State::UnknownFeature;
        return;
    }
    if (!ExactValue::isValue(*node, row.inFile)) {
        row.state = State::NotAValue;
        return;
    }
    // A selector is told where the user has it, not where it was moved on the way.
    const QString before = m_positions.before(row.name);
    ExactValue::Read value;
    if (!before.isNull()) {
        value.known = true;
        value.text = before;
    } else if (m_positions.move(row.selectors, &row.error)) {
        value = ExactValue::read(*node);
    } else {
        row.state = isStopped() ? State::NotReached : State::SelectorRefused;
        return;
    }
    if (isStopped())
        return;
    row.error = value.error;
    row.inCamera = value.text;
    row.state = !value.known                                            ? State::Unreadable
                : ExactValue::areEqual(*node, row.inFile, row.inCamera) ? State::Same
                                                                        : State::Different;
}

// Applying ----------------------------------------------------------------------------------------

void FeatureFileWork::apply(QVector<FeatureFileRow>& rows)
{
    QVector<FeatureFileRow*> open;
    for (FeatureFileRow& row : rows) {
        if (row.chosen && row.canBeApplied()) {
            row.state = State::NotReached;
            open.append(&row);
        }
    }
    const QVector<FeatureFileRow*> all = open;
    m_total = 2 * int(all.size());
    for (int round = 0; round < kMaxRounds && !open.isEmpty(); ++round) {
        QVector<FeatureFileRow*> refused;
        for (FeatureFileRow* row : qAsConst(open)) {
            if (isStopped())
                return;
            if (!applyRow(*row))
                refused.append(row);
            if (round == 0)
                stepDone();
            giveWay(row->selectors);
        }
        // A later write may have changed what an earlier one had set.
        QVector<FeatureFileRow*> again;
        for (FeatureFileRow* row : all) {
            if (isStopped())
                return;
            if (refused.contains(row) || !readBack(*row))
                again.append(row);
            if (round == 0)
                stepDone();
            giveWay(row->selectors);
        }
        if (again == open)
            return; // trying once more helped nobody
        open = again;
    }
}

// False when trying again may help.
bool FeatureFileWork::applyRow(FeatureFileRow& row)
{
    const FeatureNodePtr node = m_nodes.node(row.name);
    if (!m_positions.move(row.selectors, &row.error)) {
        if (!isStopped())
            row.state = State::SelectorRefused;
        return false;
    }
    row.error = 0;
    const ExactValue::Written written = ExactValue::write(*node, row.inFile, &row.error);
    if (isStopped() && written != ExactValue::Written::Done)
        return false;
    row.state = written == ExactValue::Written::Done ? State::Written : State::Refused;
    if (written == ExactValue::Written::Done)
        m_positions.stays(row.name, row.inFile);
    return written == ExactValue::Written::Done;
}

// Whether the camera has what was written.
bool FeatureFileWork::readBack(FeatureFileRow& row)
{
    const FeatureNodePtr node = m_nodes.node(row.name);
    if (!m_positions.move(row.selectors, nullptr))
        return false;
    const QString before = m_positions.before(row.name);
    ExactValue::Read value = ExactValue::read(*node);
    if (isStopped())
        return true;
    if (!before.isNull() && value.known)
        value.text = before;
    if (!value.known)
        return true; // write-only, or gone: it stays what the write has said
    row.inCamera = value.text;
    const bool same = ExactValue::areEqual(*node, row.inFile, value.text);
    row.state = same ? State::Written : State::Adjusted;
    return same;
}
