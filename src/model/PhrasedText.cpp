// SPDX-License-Identifier: Apache-2.0
#include "model/PhrasedText.h"

QString PhrasedText::whole() const
{
    if (!m_phrases)
        return m_text;
    QString whole;
    int pending = 0;
    for (int i = 0; i < m_text.size(); ++i) {
        const int phrase = phraseOf(m_text.at(i));
        if (phrase < 0)
            continue;
        whole.append(m_text.constData() + pending, i - pending);
        whole += m_phrases->value(phrase);
        pending = i + 1;
    }
    whole.append(m_text.constData() + pending, int(m_text.size()) - pending);
    return whole;
}
