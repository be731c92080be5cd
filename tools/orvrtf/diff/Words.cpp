#include "Words.h"

#include "Symbols.h"

namespace {

/*! The character at \a position, and how many units it takes. */
uint characterAt(const QString& text, int position, int* length)
{
    const QChar first = text.at(position);
    *length = 1;
    if (first.isHighSurrogate() && position + 1 < text.size() && text.at(position + 1).isLowSurrogate()) {
        *length = 2;
        return QChar::surrogateToUcs4(first, text.at(position + 1));
    }
    return first.unicode();
}

bool isPartOfWord(uint character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

/*! Soft hyphens, marks of direction and the like. Zero-width space divides words, and models have notes as signs. */
bool isUnseenInWord(uint character)
{
    return QChar::category(character) == QChar::Other_Format && character != 0x200b
        && (character < 0xfff9 || character > 0xfffb);
}

/*! Whether words of the script of \a character have no blanks between them. */
bool isWordOfItsOwn(uint character)
{
    switch (QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar: return true;
    default: return false;
    }
}

} // namespace

QVector<Word> Words::of(const QString& text)
{
    QVector<Word> words;
    bool isOpen = false;
    int length = 1;
    for (int i = 0; i < text.size(); i += length) {
        const uint character = characterAt(text, i, &length);
        const bool isPart = isPartOfWord(character) || (isOpen && isUnseenInWord(character));
        const bool isAlone = !isPart || isWordOfItsOwn(character);
        if (isOpen && !isAlone)
            words.last().end = i + length;
        else
            words.append({i, i + length, isPart});
        isOpen = !isAlone;
    }
    return words;
}

int Words::count(const QString& text)
{
    int count = 0;
    const QVector<Word> words = of(text);
    for (const Word& word : words)
        count += word.isWord ? 1 : 0;
    return count;
}

QVector<int> Words::numbers(const QString& text, Symbols* symbols)
{
    QVector<int> numbers;
    const QVector<Word> words = of(text);
    for (const Word& word : words) {
        if (word.isWord)
            numbers.append(symbols->of(text.mid(word.begin, word.end - word.begin)));
    }
    return numbers;
}
