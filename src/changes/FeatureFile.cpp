// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFile.h"

#include "basetools/QtDifferences.h"

#include <QStringList>

#include <optional>

namespace {

const QLatin1String kHead("# Feature values of a camera: one name, a tab and the value a line.");
const QLatin1String kModel("# Model: ");
constexpr QChar kTab(u'\t');
constexpr QChar kBackslash(u'\\');

struct Escape
{
    QChar plain;
    QChar letter; // behind the backslash
};
constexpr Escape kEscapes[] = {{kBackslash, kBackslash},
                               {kTab, QChar(u't')},
                               {QChar(u'\n'), QChar(u'n')},
                               {QChar(u'\r'), QChar(u'r')}};

QString escaped(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        bool done = false;
        for (const Escape& escape : kEscapes) {
            if (character == escape.plain) {
                result += kBackslash;
                result += escape.letter;
                done = true;
            }
        }
        if (!done)
            result += character;
    }
    return result;
}

std::optional<QString> unescaped(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != kBackslash) {
            result += text.at(i);
            continue;
        }
        const QChar letter = ++i < text.size() ? text.at(i) : QChar();
        bool known = false;
        for (const Escape& escape : kEscapes) {
            if (!letter.isNull() && letter == escape.letter) {
                result += escape.plain;
                known = true;
            }
        }
        if (!known)
            return std::nullopt;
    }
    return result;
}

std::optional<QString> fromUtf8(const QByteArray& bytes)
{
    // A mark of the byte order is taken off the whole file, once.
    const auto read = QtDifferences::decodeUtf8(bytes.constData(), int(bytes.size()));
    return read.hasFaults || read.isCut ? std::nullopt : std::make_optional(read.text);
}

} // namespace

void FeatureFile::append(const QString& name, const QString& value)
{
    lines.append({int(lines.size()) + 1, name, value});
}

QString FeatureFile::Fault::text() const
{
    switch (kind) {
    case FaultKind::NotUtf8:
        return tr("Line %1 is not UTF-8 text.").arg(number);
    case FaultKind::NoTab:
        return tr("Line %1 has no tab between a name and a value.").arg(number);
    case FaultKind::NoName:
        return tr("Line %1 has no name before the tab.").arg(number);
    case FaultKind::SecondTab:
        return tr("Line %1 has a second tab; in a value it is written \"\\t\".").arg(number);
    case FaultKind::BadEscape:
        return tr("Line %1 has a backslash without \"\\\", \"t\", \"n\" or \"r\" behind it.")
            .arg(number);
    case FaultKind::Repeated:
        return tr("Line %1 gives %2 a second value; the first one is in line %3.")
            .arg(QString::number(number), name, QString::number(first));
    case FaultKind::TooLarge:
        return tr("The file is too large for a feature file.");
    }
    return QString();
}

FeatureFile FeatureFile::parse(const QByteArray& bytes)
{
    FeatureFile file;
    const auto addFault = [&file](int number, FaultKind kind) {
        Fault fault;
        fault.number = number;
        fault.kind = kind;
        file.faults.append(fault);
    };
    if (bytes.size() > kMaxBytes) {
        addFault(0, FaultKind::TooLarge);
        return file;
    }
    const QList<QByteArray> rawLines = bytes.split('\n');
    for (int i = 0; i < rawLines.size(); ++i) {
        const int number = i + 1;
        QByteArray raw = rawLines.at(i);
        if (i == 0 && raw.startsWith("\xEF\xBB\xBF"))
            raw.remove(0, 3);
        if (raw.endsWith('\r'))
            raw.chop(1);
        const std::optional<QString> text = fromUtf8(raw);
        if (!text) {
            addFault(number, FaultKind::NotUtf8);
            continue;
        }
        if (text->startsWith(kModel) && file.model.isEmpty())
            file.model = text->mid(kModel.size()).trimmed();
        const QString trimmed = text->trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
            continue;
        const int tab = int(text->indexOf(kTab));
        const QString name = text->left(tab).trimmed();
        if (tab < 0) {
            addFault(number, FaultKind::NoTab);
        } else if (name.isEmpty()) {
            addFault(number, FaultKind::NoName);
        } else if (text->indexOf(kTab, tab + 1) >= 0) {
            addFault(number, FaultKind::SecondTab);
        } else if (const std::optional<QString> value = unescaped(text->mid(tab + 1))) {
            file.lines.append({number, name, *value});
        } else {
            addFault(number, FaultKind::BadEscape);
        }
    }
    return file;
}

QByteArray FeatureFile::toBytes(const QStringList& remarks) const
{
    const auto comment = [](QString text) {
        text.replace(QLatin1Char('\n'), QLatin1Char(' '))
            .replace(QLatin1Char('\r'), QLatin1Char(' '));
        return text + QLatin1Char('\n');
    };
    QString text = kHead + QLatin1Char('\n');
    if (!model.isEmpty())
        text += comment(kModel + model);
    for (const QString& remark : remarks)
        text += comment(QLatin1String("# ") + remark);
    for (const Line& line : lines)
        text += line.name + kTab + escaped(line.value) + QLatin1Char('\n');
    return text.toUtf8();
}
