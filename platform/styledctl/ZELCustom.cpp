// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustom.h"

#include "styledctl/ZELTheme.h"
#include "styledctl/private/ZELStyle.h"
#include "styledctl/private/ZELThemeStore.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <mutex>

namespace {

struct Families
{
    QString interface;
    QString fixed;
};

QString firstInstalled(const QStringList& installed, const QStringList& wanted,
                       QFontDatabase::SystemFont otherwise)
{
    for (const QString& family : wanted) {
        if (installed.contains(family))
            return family;
    }
    return QFontDatabase::systemFont(otherwise).family();
}

// One family must show Latin and Chinese alike: mixed families give uneven line heights in the
// rows of a tree.
const Families& families()
{
    static Families result;
    static std::once_flag once;
    std::call_once(once, [] {
        const QStringList installed = QFontDatabase().families();
        result.interface = firstInstalled(
            installed,
            {QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Source Han Sans SC"),
             QStringLiteral("Noto Sans SC"), QStringLiteral("WenQuanYi Micro Hei"),
             QStringLiteral("WenQuanYi Zen Hei"), QStringLiteral("Noto Sans"),
             QStringLiteral("DejaVu Sans")},
            QFontDatabase::GeneralFont);
        result.fixed =
            firstInstalled(installed,
                           {QStringLiteral("Noto Sans Mono CJK SC"),
                            QStringLiteral("Noto Sans Mono"), QStringLiteral("DejaVu Sans Mono")},
                           QFontDatabase::FixedFont);
    });
    return result;
}

} // namespace

QString ZELCustom::styleSheet(int number)
{
    const ZELThemeStore& store = ZELThemeStore::instance();
    return store.resolveSheet(store.sheet(number));
}

QString ZELCustom::resolveSheet(const QString& text)
{
    return ZELThemeStore::instance().resolveSheet(text);
}

QColor ZELCustom::getDataBaseColor(const QString& key)
{
    return ZELThemeStore::instance().color(key);
}

QBrush ZELCustom::getDataBaseBrush(const QString& key)
{
    return ZELThemeStore::instance().brush(key);
}

bool ZELCustom::hasDataBaseColor(const QString& key)
{
    return ZELThemeStore::instance().contains(key);
}

QString ZELCustom::globalFontFamily(int variant)
{
    return variant == Font_Fixed ? families().fixed : families().interface;
}

// Set as a list, too: with a family alone, each parent that has one adds it to the list of its
// children, and Qt takes two lengths of the list for two fonts, each loaded by itself.
void ZELCustom::setFamily(QFont* font, int variant)
{
    font->setFamily(globalFontFamily(variant));
    font->setFamilies({globalFontFamily(variant)});
}

QFont ZELCustom::font(int pixelSize, int weight)
{
    QFont font;
    setFamily(&font, Font_Interface);
    font.setPixelSize(qMax(1, pixelSize));
    font.setWeight(QFont::Weight(weight));
    return font;
}

bool ZELCustom::addXmlPath(const QString& path)
{
    // Once on this thread, before workers ask: listing the installed fonts is the GUI thread's.
    families();
    if (!ZELThemeStore::instance().load(path))
        return false;
    emit ZELTheme::instance()->cSigThemeChanged();
    return true;
}

QStyle* ZELCustom::style()
{
    // Never deleted: widgets of the host may be torn down after every other static object.
    static ZELStyle* const style = new ZELStyle;
    return style;
}
