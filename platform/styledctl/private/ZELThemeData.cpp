// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELThemeData.h"

#include <QDomDocument>
#include <QLinearGradient>

namespace {

constexpr int kMaxReferences = 16;

// Invalid, without Qt's own warning, when the attribute is missing or no colour.
QColor colorAttribute(const QDomElement& element, const QString& name)
{
    const QString text = element.attribute(name);
    return QColor::isValidColor(text) ? QColor(text) : QColor();
}

QString rgba(const QColor& color)
{
    return QStringLiteral("rgba(%1,%2,%3,%4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

} // namespace

QString ZELThemeData::normalKey(const QString& key)
{
    static const QString prefix = QStringLiteral("ZEL_DB_COLOR_");
    return key.startsWith(prefix) ? key.mid(prefix.size()) : key;
}

std::optional<ZELThemeData> ZELThemeData::parse(const QByteArray& text, QString* error)
{
    QDomDocument document;
    QString message;
    int line = 0;
    if (!document.setContent(text, &message, &line)) {
        *error = QStringLiteral("line %1: %2").arg(line).arg(message);
        return std::nullopt;
    }
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String("Theme")) {
        *error = QStringLiteral("root element is \"%1\", not \"Theme\"").arg(root.tagName());
        return std::nullopt;
    }

    ZELThemeData data;
    for (QDomElement e = root.firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
        const QString key = normalKey(e.attribute(QStringLiteral("key")));
        Paint paint;
        bool good = false;
        if (e.tagName() == QLatin1String("Color")) {
            paint.ref = normalKey(e.attribute(QStringLiteral("ref")));
            paint.from = colorAttribute(e, QStringLiteral("value"));
            good = !key.isEmpty() && (paint.from.isValid() || !paint.ref.isEmpty());
        } else if (e.tagName() == QLatin1String("Gradient")) {
            paint.from = colorAttribute(e, QStringLiteral("from"));
            paint.to = colorAttribute(e, QStringLiteral("to"));
            good = !key.isEmpty() && paint.from.isValid() && paint.to.isValid();
        } else if (e.tagName() == QLatin1String("StyleSheet")) {
            const int number = e.attribute(QStringLiteral("number")).toInt(&good);
            if (good)
                data.m_sheets.insert(number, e.text());
        }
        if (!good) {
            *error = QStringLiteral("line %1: unusable element \"%2\"")
                         .arg(e.lineNumber())
                         .arg(e.tagName());
            return std::nullopt;
        }
        if (!key.isEmpty())
            data.m_paints.insert(key, paint);
    }
    return data;
}

void ZELThemeData::merge(const ZELThemeData& other)
{
    for (auto it = other.m_paints.cbegin(); it != other.m_paints.cend(); ++it)
        m_paints.insert(it.key(), it.value());
    for (auto it = other.m_sheets.cbegin(); it != other.m_sheets.cend(); ++it)
        m_sheets.insert(it.key(), it.value());
}

const ZELThemeData::Paint* ZELThemeData::resolve(const QString& normalKey) const
{
    QString key = normalKey;
    for (int i = 0; i < kMaxReferences; ++i) {
        const auto it = m_paints.constFind(key);
        if (it == m_paints.cend())
            return nullptr;
        if (it->from.isValid())
            return &*it;
        key = it->ref;
    }
    return nullptr;
}

QColor ZELThemeData::color(const QString& normalKey) const
{
    const Paint* paint = resolve(normalKey);
    return paint ? paint->from : QColor();
}

QBrush ZELThemeData::brush(const QString& normalKey) const
{
    const Paint* paint = resolve(normalKey);
    if (!paint)
        return QBrush();
    if (!paint->to.isValid())
        return QBrush(paint->from);
    QLinearGradient gradient(0, 0, 0, 1);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, paint->from);
    gradient.setColorAt(1, paint->to);
    return QBrush(gradient);
}

QString ZELThemeData::sheetValue(const QString& normalKey) const
{
    const Paint* paint = resolve(normalKey);
    if (!paint)
        return QString();
    if (!paint->to.isValid())
        return rgba(paint->from);
    return QStringLiteral("qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 %1, stop:1 %2)")
        .arg(rgba(paint->from), rgba(paint->to));
}
