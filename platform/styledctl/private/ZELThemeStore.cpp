// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELThemeStore.h"

#include <QFile>
#include <QRegularExpression>

#include <mutex>

namespace {

const char kDefaultTheme[] = ":/ORXStyledCtl/DefaultTheme.xml";

// Which basic colour stands in for an unknown key, by the first word found in it.
struct Substitute
{
    const char* word;
    const char* key;
};
const Substitute kSubstitutes[] = {
    {"Border", "StyledCtlColor_Border"},      {"Grid", "StyledCtlColor_Border"},
    {"Font", "StyledCtlColor_Text"},          {"Text", "StyledCtlColor_Text"},
    {"Line", "StyledCtlColor_Accent"},        {"Background", "StyledCtlColor_Surface"},
    {"background", "StyledCtlColor_Surface"},
};

} // namespace

// A static library's resources need their initialiser called; in a shared library this is a no-op
// that keeps both kinds of build right.
static void initResources()
{
    Q_INIT_RESOURCE(StyledCtl);
}

ZELThemeStore& ZELThemeStore::instance()
{
    static ZELThemeStore store;
    return store;
}

ZELThemeStore::ZELThemeStore()
{
    initResources();
    load(QString::fromLatin1(kDefaultTheme));
}

bool ZELThemeStore::load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("Theme file \"%s\" cannot be opened: %s", qUtf8Printable(path),
                 qUtf8Printable(file.errorString()));
        return false;
    }
    QString error;
    const std::optional<ZELThemeData> data = ZELThemeData::parse(file.readAll(), &error);
    if (!data) {
        qWarning("Theme file \"%s\" is not used: %s", qUtf8Printable(path), qUtf8Printable(error));
        return false;
    }
    const std::unique_lock<std::shared_mutex> lock(m_mutex);
    m_data.merge(*data);
    m_reported.clear();
    ++m_generation;
    return true;
}

QColor ZELThemeStore::fallback(const QString& normalKey) const
{
    const char* substitute = "StyledCtlColor_Text";
    for (const Substitute& entry : kSubstitutes) {
        if (normalKey.contains(QLatin1String(entry.word))) {
            substitute = entry.key;
            break;
        }
    }
    QColor color;
    bool report = false;
    {
        const std::unique_lock<std::shared_mutex> lock(m_mutex);
        color = m_data.color(QString::fromLatin1(substitute));
        report = !m_reported.contains(normalKey);
        m_reported.insert(normalKey);
    }
    if (report) {
        qInfo("Theme has no colour \"%s\", %s is used", qUtf8Printable(normalKey), substitute);
    }
    return color;
}

QColor ZELThemeStore::color(const QString& key) const
{
    const QString normal = ZELThemeData::normalKey(key);
    {
        const std::shared_lock<std::shared_mutex> lock(m_mutex);
        QColor color = m_data.color(normal);
        if (color.isValid())
            return color;
    }
    return fallback(normal);
}

QBrush ZELThemeStore::brush(const QString& key) const
{
    const QString normal = ZELThemeData::normalKey(key);
    {
        const std::shared_lock<std::shared_mutex> lock(m_mutex);
        QBrush brush = m_data.brush(normal);
        if (brush.style() != Qt::NoBrush)
            return brush;
    }
    return QBrush(fallback(normal));
}

bool ZELThemeStore::contains(const QString& key) const
{
    const std::shared_lock<std::shared_mutex> lock(m_mutex);
    return m_data.contains(ZELThemeData::normalKey(key));
}

QString ZELThemeStore::sheet(int number) const
{
    QString text;
    bool report = false;
    {
        const std::unique_lock<std::shared_mutex> lock(m_mutex);
        text = m_data.sheet(number);
        const QString mark = QStringLiteral("sheet %1").arg(number);
        report = text.isEmpty() && !m_reported.contains(mark);
        if (report)
            m_reported.insert(mark);
    }
    if (report)
        qInfo("Theme has no style sheet %d", number);
    return text;
}

QString ZELThemeStore::resolveSheet(const QString& text) const
{
    static const QRegularExpression marker(QStringLiteral("@([A-Za-z0-9_]+)@"));
    QString result;
    int last = 0;
    QRegularExpressionMatchIterator it = marker.globalMatch(text);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        const QString key = ZELThemeData::normalKey(match.captured(1));
        QString value;
        {
            const std::shared_lock<std::shared_mutex> lock(m_mutex);
            value = m_data.sheetValue(key);
        }
        if (value.isEmpty())
            value = fallback(key).name();
        result += text.mid(last, int(match.capturedStart()) - last) + value;
        last = int(match.capturedEnd());
    }
    return result + text.mid(last);
}
