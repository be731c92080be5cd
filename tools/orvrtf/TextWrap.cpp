#include "TextWrap.h"

#include "ORVTextColumns_p.h"

#include <QTextBoundaryFinder>
#include <QVector>

namespace {

const int tabWidth = 8;

/*! Whether a line may end at \a character, which then is left out. */
bool isBlank(QChar character)
{
    const ushort code = character.unicode();
    const bool isFixed = code == QChar::Nbsp || code == 0x2007 || code == 0x202f;
    return character.isSpace() && !isFixed;
}

/*! Whether a line may end beside \a character without a blank. Korean has blanks between its words. */
bool needsNoBlanks(uint character)
{
    return ORVTextColumns::isWide(character) && QChar::script(character) != QChar::Script_Hangul;
}

bool hasWideCharacter(const QString& text)
{
    for (int i = 0; i < text.size();) {
        if (needsNoBlanks(ORVTextColumns::nextCharacter(text, &i)))
            return true;
    }
    return false;
}

/*! Where a line may end, as one without line feeds is read from its start. */
class Breaks {
public:
    explicit Breaks(const QString& text) : m_text(text)
    {
        if (hasWideCharacter(text))
            findBetweenWide();
    }

    /*! Whether the character at \a index may begin a line; it is not the first one. */
    bool isBefore(int index) const
    {
        return (isBlank(m_text.at(index - 1)) && !isBlank(m_text.at(index)))
            || (!m_betweenWide.isEmpty() && m_betweenWide.at(index));
    }

private:
    void findBetweenWide();

    const QString& m_text;
    QVector<bool> m_betweenWide;
};

void Breaks::findBetweenWide()
{
    m_betweenWide.fill(false, int(m_text.size()) + 1);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, m_text);
    bool isLastWide = false;
    for (int i = 0; i < m_text.size();) {
        const int first = i;
        const bool isWide = needsNoBlanks(ORVTextColumns::nextCharacter(m_text, &i));
        if (isWide || isLastWide) {
            finder.setPosition(first);
            m_betweenWide[first] = finder.isAtBoundary();
        }
        isLastWide = isWide;
    }
}

int columnsAt(const QString& text, int* index, int column)
{
    const uint character = ORVTextColumns::nextCharacter(text, index);
    return character == '\t' ? tabWidth - column % tabWidth : ORVTextColumns::ofCharacter(character);
}

/*! Wraps one line. */
class Wrapper {
public:
    /*! The first line has \a firstWidth columns at most, the others \a width. */
    Wrapper(const QString& text, int firstWidth, int width, TextWrap::LongWords longWords)
        : m_text(text), m_breaks(text), m_firstWidth(firstWidth), m_width(width), m_longWords(longWords)
    {
    }

    /*! Appends the lines to \a result: the first one behind \a head, the others behind \a indent. */
    void run(const QString& head, const QString& indent, QStringList* result);

private:
    int lineEnd(int next) const;
    int nextLine(int index) const;

    const QString& m_text;
    Breaks m_breaks;
    int m_firstWidth;
    int m_width;
    TextWrap::LongWords m_longWords;
    int m_start = 0;
    // Where the next line may begin, and where a long word may be broken.
    int m_break = 0;
    int m_wordBreak = 0;
};

/*! Where the line ends if the next one begins at \a next. */
int Wrapper::lineEnd(int next) const
{
    int end = next;
    while (end > m_start && isBlank(m_text.at(end - 1)))
        --end;
    return end;
}

/*! Where the next line begins, as there is no room for the character at \a index; the line's start if it goes on. */
int Wrapper::nextLine(int index) const
{
    if (m_break > m_start && lineEnd(m_break) > m_start)
        return m_break;
    if (m_longWords == TextWrap::Whole)
        return m_start;
    return m_wordBreak > m_start ? m_wordBreak : index;
}

void Wrapper::run(const QString& head, const QString& indent, QStringList* result)
{
    int column = 0;
    for (int i = 0; i < m_text.size();) {
        if (i > m_start && m_breaks.isBefore(i))
            m_break = i;
        if (i > m_start && m_text.at(i - 1) == QLatin1Char('-'))
            m_wordBreak = i;
        const int first = i;
        const int columns = columnsAt(m_text, &i, column);
        column += columns;
        if (isBlank(m_text.at(first)) || column <= (m_start == 0 ? m_firstWidth : m_width) || columns == 0)
            continue;
        const int next = nextLine(first);
        if (next == m_start)
            continue;
        result->append((m_start == 0 ? head : indent) + m_text.mid(m_start, lineEnd(next) - m_start));
        m_start = m_break = next;
        column = 0;
        for (int j = next; j < i;)
            column += columnsAt(m_text, &j, column);
    }
    result->append((m_start == 0 ? head : indent) + m_text.mid(m_start));
}

/*! The columns of the first word of \a text. */
int firstWord(const QString& text)
{
    int columns = 0;
    for (int i = 0; i < text.size() && !isBlank(text.at(i));)
        columns += ORVTextColumns::ofCharacter(ORVTextColumns::nextCharacter(text, &i));
    return columns;
}

} // namespace

QStringList TextWrap::lines(const QString& label, const QString& text, int width, LongWords longWords)
{
    const bool needsBlank = !label.isEmpty() && !text.isEmpty();
    QString head = needsBlank ? label + QLatin1Char(' ') : label;
    const int headColumns = ORVTextColumns::of(head);
    // Lines that are not wrapped are as they stand in the document.
    const int hanging = headColumns > width / 2 ? 0 : headColumns;
    const QString indent(hanging, QLatin1Char(' '));
    int firstWidth = qMax(1, width - headColumns);
    QStringList result;
    if (hanging < headColumns && width > 0 && headColumns + firstWord(text) > width) {
        result.append(label);
        head.clear();
        firstWidth = width;
    }
    const QStringList parts = text.split(QLatin1Char('\n'));
    for (const QString& part : parts) {
        if (width > 0)
            Wrapper(part, firstWidth, width - hanging, longWords).run(head, indent, &result);
        else
            result.append(head + part);
        head = indent;
        firstWidth = width - hanging;
    }
    return result;
}

QString TextWrap::withoutTabs(const QString& text)
{
    if (!text.contains(QLatin1Char('\t')))
        return text;
    QString result;
    int column = 0;
    for (int i = 0; i < text.size();) {
        const int first = i;
        const int columns = columnsAt(text, &i, column);
        column = text.at(first) == QLatin1Char('\n') ? 0 : column + columns;
        result += text.at(first) == QLatin1Char('\t') ? QString(columns, QLatin1Char(' '))
                                                      : text.mid(first, i - first);
    }
    return result;
}

int TextWrap::longestLine(const QString& text)
{
    int longest = 0;
    int columns = 0;
    for (int i = 0; i < text.size();) {
        const uint character = ORVTextColumns::nextCharacter(text, &i);
        columns = character == '\n' ? 0 : columns + ORVTextColumns::ofCharacter(character);
        longest = qMax(longest, columns);
    }
    return longest;
}

int TextWrap::longestWord(const QString& text)
{
    const Breaks breaks(text);
    int longest = 0;
    int columns = 0;
    for (int i = 0; i < text.size();) {
        if (isBlank(text.at(i)) || (i > 0 && breaks.isBefore(i)))
            columns = 0;
        const bool isBlankCharacter = isBlank(text.at(i));
        const uint character = ORVTextColumns::nextCharacter(text, &i);
        columns += isBlankCharacter ? 0 : ORVTextColumns::ofCharacter(character);
        longest = qMax(longest, columns);
    }
    return longest;
}
