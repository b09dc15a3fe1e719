// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELThemeData.h"

#include <QLinearGradient>
#include <QXmlStreamReader>

namespace {

constexpr int kMaxReferences = 16;

QString attribute(const QXmlStreamReader& element, const char* name)
{
    return element.attributes().value(QLatin1String(name)).toString();
}

// Invalid, without Qt's own warning, when the attribute is missing or no colour.
QColor colorAttribute(const QXmlStreamReader& element, const char* name)
{
    const QString text = attribute(element, name);
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
    QXmlStreamReader xml(text);
    ZELThemeData data;
    if (xml.readNextStartElement() && xml.name() != QLatin1String("Theme"))
        xml.raiseError(QStringLiteral("root element is \"%1\", not \"Theme\"").arg(xml.name()));
    while (xml.readNextStartElement()) {
        const QString tag = xml.name().toString();
        if (!data.takeElement(xml))
            xml.raiseError(QStringLiteral("unusable element \"%1\"").arg(tag));
    }
    while (!xml.atEnd())
        xml.readNext();
    if (!xml.hasError())
        return data;
    *error = QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString());
    return std::nullopt;
}

bool ZELThemeData::takeElement(QXmlStreamReader& xml)
{
    const QString key = normalKey(attribute(xml, "key"));
    Paint paint;
    bool good = false;
    if (xml.name() == QLatin1String("Color")) {
        paint.ref = normalKey(attribute(xml, "ref"));
        paint.from = colorAttribute(xml, "value");
        good = !key.isEmpty() && (paint.from.isValid() || !paint.ref.isEmpty());
    } else if (xml.name() == QLatin1String("Gradient")) {
        paint.from = colorAttribute(xml, "from");
        paint.to = colorAttribute(xml, "to");
        good = !key.isEmpty() && paint.from.isValid() && paint.to.isValid();
    } else if (xml.name() == QLatin1String("StyleSheet")) {
        const int number = attribute(xml, "number").toInt(&good);
        if (good)
            m_sheets.insert(number, xml.readElementText(QXmlStreamReader::IncludeChildElements));
        return good;
    }
    if (good) {
        m_paints.insert(key, paint);
        xml.skipCurrentElement();
    }
    return good;
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
