// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTranslator>

// The translation of the window's texts, installed in the application while the interface language
// wants it. Owned by the main widget; GUI thread.
class InterfaceLanguage
{
public:
    // Installs or removes it as ORXInterface::language() says; false when it cannot be loaded.
    bool apply();
    void remove();

private:
    QTranslator m_translator;
    bool m_bInstalled = false;
};
