// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELColors.h"

#include "styledctl/private/ZELThemeStore.h"

namespace {

struct Entry
{
    const char* key;
    QColor ZELColors::*color;
};

const Entry kEntries[] = {
    {"Input", &ZELColors::input},
    {"Window", &ZELColors::window},
    {"Surface", &ZELColors::surface},
    {"Raised", &ZELColors::raised},
    {"Hover", &ZELColors::hover},
    {"Pressed", &ZELColors::pressed},
    {"Popup", &ZELColors::popup},
    {"Separator", &ZELColors::separator},
    {"Border", &ZELColors::border},
    {"BorderStrong", &ZELColors::borderStrong},
    {"Text", &ZELColors::text},
    {"TextMuted", &ZELColors::textMuted},
    {"TextDisabled", &ZELColors::textDisabled},
    {"Placeholder", &ZELColors::placeholder},
    {"Accent", &ZELColors::accent},
    {"AccentHover", &ZELColors::accentHover},
    {"AccentPressed", &ZELColors::accentPressed},
    {"OnAccent", &ZELColors::onAccent},
    {"Selection", &ZELColors::selection},
    {"TextSelection", &ZELColors::textSelection},
    {"SelectionText", &ZELColors::selectionText},
    {"Error", &ZELColors::error},
    {"Warning", &ZELColors::warning},
    {"Success", &ZELColors::success},
    {"Information", &ZELColors::information},
    {"WindowBorder", &ZELColors::windowBorder},
    {"Shadow", &ZELColors::shadow},
    {"Overlay", &ZELColors::overlay},
};

void setBoth(QPalette& palette, QPalette::ColorRole role, const QColor& normal,
             const QColor& disabled)
{
    palette.setColor(QPalette::Active, role, normal);
    palette.setColor(QPalette::Inactive, role, normal);
    palette.setColor(QPalette::Disabled, role, disabled);
}

} // namespace

const ZELColors& ZELColors::current()
{
    static ZELColors colors;
    static int generation = -1;
    const int now = ZELThemeStore::instance().generation();
    if (generation != now) {
        generation = now;
        colors.load();
    }
    return colors;
}

void ZELColors::load()
{
    const ZELThemeStore& store = ZELThemeStore::instance();
    for (const Entry& entry : kEntries)
        this->*entry.color =
            store.color(QLatin1String("StyledCtlColor_") + QLatin1String(entry.key));

    palette = QPalette();
    setBoth(palette, QPalette::Window, surface, surface);
    setBoth(palette, QPalette::Base, input, surface);
    setBoth(palette, QPalette::AlternateBase, surface, surface);
    setBoth(palette, QPalette::Button, raised, surface);
    setBoth(palette, QPalette::Light, hover, hover);
    setBoth(palette, QPalette::Midlight, raised, raised);
    setBoth(palette, QPalette::Mid, border, border);
    setBoth(palette, QPalette::Dark, window, window);
    setBoth(palette, QPalette::Shadow, window, window);
    setBoth(palette, QPalette::WindowText, text, textDisabled);
    setBoth(palette, QPalette::Text, text, textDisabled);
    setBoth(palette, QPalette::ButtonText, text, textDisabled);
    setBoth(palette, QPalette::BrightText, accentHover, textDisabled);
    setBoth(palette, QPalette::PlaceholderText, placeholder, placeholder);
    setBoth(palette, QPalette::Highlight, textSelection, selection);
    setBoth(palette, QPalette::HighlightedText, selectionText, selectionText);
    setBoth(palette, QPalette::Link, accent, accent);
    setBoth(palette, QPalette::LinkVisited, accentPressed, accentPressed);
    setBoth(palette, QPalette::ToolTipBase, popup, popup);
    setBoth(palette, QPalette::ToolTipText, text, text);
}
