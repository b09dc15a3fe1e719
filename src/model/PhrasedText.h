// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

// A text in which phrases that come again and again stand as one sign each. Thousands of such texts
// are kept in a fraction of their length. A value type.
class PhrasedText
{
public:
    static constexpr int kMostPhrases = 32;

    PhrasedText() = default;
    // Without phrases.
    PhrasedText(const QString& text)
        : m_text(text)
    {
    }
    // `phrases` is not owned and outlives the text and its copies.
    PhrasedText(const QString& text, const QStringList* phrases)
        : m_text(text)
        , m_phrases(phrases)
    {
    }

    // What stands for the phrase of this place, from 0: a code point that means nothing in a text.
    static QChar sign(int phrase) { return QChar(kFirstSign + phrase); }
    // Appends what `append` appends, in which a sign stands for nothing.
    template <typename Append>
    static void appendForeign(QString& text, const Append& append)
    {
        const int before = int(text.size());
        append(text);
        for (int i = before; i < text.size(); ++i) {
            if (phraseOf(text.at(i)) >= 0)
                text[i] = QChar::ReplacementCharacter;
        }
    }

    // With the phrases in the place of their signs.
    QString whole() const;

private:
    static constexpr int kFirstSign = 0xFDD0;

    // -1 when it is no sign.
    static int phraseOf(QChar c)
    {
        const int phrase = c.unicode() - kFirstSign;
        return phrase < kMostPhrases ? qMax(phrase, -1) : -1;
    }

    QString m_text;
    const QStringList* m_phrases = nullptr;
};
