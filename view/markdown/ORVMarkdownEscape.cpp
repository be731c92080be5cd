#include "ORVMarkdownEscape_p.h"

#include <cstring>

namespace {

using Surroundings = ORVMarkdownEscape::Surroundings;

bool isAsciiLetter(QChar character)
{
    const ushort code = character.unicode() | 0x20;
    return code >= 'a' && code <= 'z';
}

bool isAsciiDigit(QChar character)
{
    return character.unicode() >= '0' && character.unicode() <= '9';
}

bool isAsciiPunctuation(QChar character)
{
    const ushort code = character.unicode();
    return code > 0x20 && code < 0x7f && !isAsciiDigit(character) && !isAsciiLetter(character);
}

/*! Whether \a character is one of those of \a set, which is ASCII. */
bool isOneOf(QChar character, const char* set)
{
    return character.unicode() > 0 && character.unicode() < 0x80 && std::strchr(set, character.unicode());
}

bool isSpaceOrTab(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

/*! Whether \a text has a character reference like "&amp;" at \a index. */
bool isReference(const QString& text, int index)
{
    // As long as the longest name that HTML has.
    const int longest = 32;
    int i = index + 1;
    const bool isNumber = i < text.size() && text.at(i) == QLatin1Char('#');
    if (isNumber)
        ++i;
    const int first = i;
    while (i < text.size() && i - first < longest && (isAsciiLetter(text.at(i)) || isAsciiDigit(text.at(i))))
        ++i;
    return i > first && i < text.size() && text.at(i) == QLatin1Char(';');
}

/*! Writes one part of a line. */
class Escaper {
public:
    Escaper(const QString& text, const Surroundings& surroundings)
        : m_text(text), m_surroundings(surroundings), m_lineStart(lineStartEscape())
    {
    }

    QString run();

private:
    bool endsLineAt(int index) const { return index >= m_text.size() && m_surroundings.next.isNull(); }
    /*! Whether white space follows the part of the line, but not its end. */
    bool isBeforeSpace() const { return m_surroundings.next.isSpace(); }
    bool isBlankAt(int index) const
    {
        return endsLineAt(index)
            || (index < m_text.size() ? isSpaceOrTab(m_text.at(index)) : isSpaceOrTab(m_surroundings.next));
    }
    bool isLineOf(const char* characters) const;
    int lineStartEscape() const;
    bool isEscaped(int index);
    bool isEscapedPunctuation(int index);
    bool opensTag(int index) const;
    bool opensAddress(int index);
    bool isAddressDamaged(int index);
    bool isClosingHeading(int index) const;
    void writeRun(int* index);
    bool isLiteralRun(int first, int end) const;
    bool isInWord(int first, int end) const;

    const QString& m_text;
    const Surroundings& m_surroundings;
    // The character that makes the line begin a list, a quotation and so on; -1 when there is none.
    int m_lineStart;
    // Where the address ends that was looked at last, and whether it is damaged.
    int m_addressEnd = -1;
    bool m_isAddressDamaged = false;
    QString m_result;
};

/*! Whether the line has only \a characters and blanks. */
bool Escaper::isLineOf(const char* characters) const
{
    if (!m_surroundings.next.isNull())
        return false;
    for (const QChar character : m_text) {
        if (!isSpaceOrTab(character) && !isOneOf(character, characters))
            return false;
    }
    return true;
}

int Escaper::lineStartEscape() const
{
    if (!m_surroundings.isLineStart || m_surroundings.place != ORVMarkdownPlace::Paragraph
        || m_text.isEmpty())
        return -1;
    int i = 0;
    switch (m_text.at(0).unicode()) {
    case '>': return 0;
    case '#':
        while (i < m_text.size() && m_text.at(i) == QLatin1Char('#'))
            ++i;
        return i <= 6 && isBlankAt(i) ? 0 : -1;
    case '+': return isBlankAt(1) ? 0 : -1;
    case '-':
        return isBlankAt(1) || isLineOf("-") || (!m_surroundings.isFirstLine && isLineOf("-:|")) ? 0 : -1;
    case '=': return !m_surroundings.isFirstLine && isLineOf("=") ? 0 : -1;
    case ':':
    case '|': return !m_surroundings.isFirstLine && isLineOf("-:|") ? 0 : -1;
    default: break;
    }
    while (i < m_text.size() && i < 9 && isAsciiDigit(m_text.at(i)))
        ++i;
    const bool isNumber =
        i > 0 && i < m_text.size() && (m_text.at(i) == QLatin1Char('.') || m_text.at(i) == QLatin1Char(')'));
    return isNumber && isBlankAt(i + 1) ? i : -1;
}

/*! Whether "<" begins a tag, a comment or an address between angle brackets. */
bool Escaper::opensTag(int index) const
{
    if (index + 1 == m_text.size())
        return !m_surroundings.next.isNull() && !isBeforeSpace();
    const QChar next = m_text.at(index + 1);
    return isAsciiLetter(next) || isOneOf(next, "/!?");
}

/*!
    Whether the address around \a index would not be what it is: GitHub makes a link of it, in which escapes and markup
    have no meaning.
*/
bool Escaper::isAddressDamaged(int index)
{
    // Once for each address, whatever it has within it.
    if (index < m_addressEnd)
        return m_isAddressDamaged;
    int end = index;
    bool isDamaged = false;
    while (end < m_text.size() && !m_text.at(end).isSpace()) {
        const QChar character = m_text.at(end);
        isDamaged = isDamaged || isOneOf(character, "\\*`~[]<|")
            || (character == QLatin1Char('_') && !isInWord(end, end + 1))
            || (character == QLatin1Char('&') && isReference(m_text, end));
        ++end;
    }
    m_addressEnd = end;
    m_isAddressDamaged =
        isDamaged || (end == m_text.size() && !m_surroundings.next.isNull() && !isBeforeSpace());
    return m_isAddressDamaged;
}

/*! Whether the character at \a index, ":" or ".", must not be that of an address. */
bool Escaper::opensAddress(int index)
{
    if (m_surroundings.isInLink)
        return false;
    if (m_text.at(index) == QLatin1Char(':')) {
        const QString scheme = m_text.mid(qMax(0, index - 5), qMin(index, 5)).toLower();
        const bool isScheme = scheme.endsWith(QLatin1String("http"))
            || scheme.endsWith(QLatin1String("https")) || scheme.endsWith(QLatin1String("ftp"));
        return isScheme && m_text.mid(index, 3) == QLatin1String("://") && isAddressDamaged(index);
    }
    return index >= 3 && m_text.mid(index - 3, 3).toLower() == QLatin1String("www")
        && isAddressDamaged(index);
}

/*! Whether the "#" at \a index is the first of those that would be taken for the end of a heading. */
bool Escaper::isClosingHeading(int index) const
{
    if (m_surroundings.place != ORVMarkdownPlace::Heading
        || (index > 0 && !isSpaceOrTab(m_text.at(index - 1))))
        return false;
    int end = index;
    while (end < m_text.size() && m_text.at(end) == QLatin1Char('#'))
        ++end;
    return endsLineAt(end);
}

bool Escaper::isEscapedPunctuation(int index)
{
    const bool isLast = index + 1 == m_text.size();
    switch (m_text.at(index).unicode()) {
    case '\\': return isLast ? !isBeforeSpace() : isAsciiPunctuation(m_text.at(index + 1));
    case '`':
    case '[': return true;
    case ']': return m_surroundings.isInLink;
    case '<': return opensTag(index);
    case '&': return isReference(m_text, index);
    case '~': return m_surroundings.hasTildes;
    case '|': return m_surroundings.place == ORVMarkdownPlace::Cell;
    case '!': return isLast && m_surroundings.next == QLatin1Char('[');
    case '#': return isClosingHeading(index);
    case '(': return index == 0 && m_surroundings.isBehindNote;
    case ':': return (index == 0 && m_surroundings.isBehindNote) || opensAddress(index);
    case '.': return opensAddress(index);
    default: return false;
    }
}

bool Escaper::isEscaped(int index)
{
    return index == m_lineStart || isEscapedPunctuation(index);
}

/*! Whether letters and digits are around the characters from \a first up to \a end. */
bool Escaper::isInWord(int first, int end) const
{
    return first > 0 && end < m_text.size() && m_text.at(first - 1).isLetterOrNumber()
        && m_text.at(end).isLetterOrNumber();
}

/*! Whether a run of asterisks or underscores can neither begin nor end emphasis. */
bool Escaper::isLiteralRun(int first, int end) const
{
    const bool isSpaced = first > 0 && m_text.at(first - 1).isSpace()
        && (end < m_text.size() ? m_text.at(end).isSpace() : endsLineAt(end) || isBeforeSpace());
    return isSpaced || (m_text.at(first) == QLatin1Char('_') && isInWord(first, end));
}

/*! Writes the run of asterisks or underscores at \a index, which moves on behind it. */
void Escaper::writeRun(int* index)
{
    const int first = *index;
    int end = first;
    while (end < m_text.size() && m_text.at(end) == m_text.at(first))
        ++end;
    const bool isLiteral = isLiteralRun(first, end);
    for (int i = first; i < end; ++i) {
        if (!isLiteral)
            m_result += QLatin1Char('\\');
        m_result += m_text.at(i);
    }
    *index = end;
}

QString Escaper::run()
{
    m_result.reserve(m_text.size() + 8);
    for (int i = 0; i < m_text.size();) {
        const QChar character = m_text.at(i);
        if (character == QLatin1Char('*') || character == QLatin1Char('_')) {
            writeRun(&i);
            continue;
        }
        if (isAsciiPunctuation(character) && isEscaped(i))
            m_result += QLatin1Char('\\');
        m_result += character;
        ++i;
    }
    return m_result;
}

} // namespace

QString ORVMarkdownEscape::text(const QString& text, const Surroundings& surroundings)
{
    return Escaper(text, surroundings).run();
}

QString ORVMarkdownEscape::code(const QString& text, ORVMarkdownPlace place)
{
    const QChar tick = QLatin1Char('`');
    const QString fence(longestRun(text, tick) + 1, tick);
    const bool isPadded = text.startsWith(tick) || text.endsWith(tick);
    const QString padding = isPadded ? QString(QLatin1Char(' ')) : QString();
    QString content = text;
    // The one escape that code in a table has.
    if (place == ORVMarkdownPlace::Cell)
        content.replace(QLatin1Char('|'), QLatin1String("\\|"));
    return fence + padding + content + padding + fence;
}

QString ORVMarkdownEscape::destination(const QString& address)
{
    QString result;
    bool needsBrackets = address.isEmpty();
    for (int i = 0; i < address.size(); ++i) {
        const QChar character = address.at(i);
        needsBrackets = needsBrackets || character == QLatin1Char('(') || character == QLatin1Char(')')
            || character.isSpace();
        if (character == QLatin1Char('&') && isReference(address, i))
            result += QLatin1Char('\\');
        result += character;
    }
    return needsBrackets ? QLatin1Char('<') + result + QLatin1Char('>') : result;
}

int ORVMarkdownEscape::longestRun(const QString& text, QChar character)
{
    int longest = 0;
    int length = 0;
    for (const QChar next : text) {
        length = next == character ? length + 1 : 0;
        longest = qMax(longest, length);
    }
    return longest;
}
