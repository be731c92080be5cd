#include "ORVMarkdownInline_p.h"

#include "ORVMarkdownEmphasis_p.h"
#include "ORVMarkdownTidy_p.h"

#include <QtCore/QSet>

#include <algorithm>

namespace {

using Piece = ORVMarkdownPiece;
using Escape = ORVMarkdownEscape::Surroundings;

/*! How an element is written. */
struct ElementSyntax {
    // Null where Markdown has none.
    const char* delimiter;
    const char* beginTag;
    const char* endTag;
};

// In the order of the bits of the style.
const ElementSyntax elementSyntax[Piece::ElementCount] = {
    {"**", "<strong>", "</strong>"}, {"*", "<em>", "</em>"},       {"~~", "<del>", "</del>"},
    {nullptr, "<u>", "</u>"},        {nullptr, "<sup>", "</sup>"}, {nullptr, "<sub>", "</sub>"}};

// A link is an element too, behind the others.
const int linkElement = Piece::ElementCount;
const int elementKinds = Piece::ElementCount + 1;

/*! A part of the paragraph: the begin or the end of an element, or what is between them. */
struct Token {
    enum Kind { Begin, End, Content };
    Kind kind;
    // Of an element: its number, and a bit of the style or the link.
    int number;
    int element;
    // Index of the piece; of that a link begins with.
    int piece;
};

/*! Divides a paragraph into elements that lie within each other. */
class Elements {
public:
    explicit Elements(const ORVMarkdownPieces& pieces) : m_pieces(pieces) { findEnds(); }

    QVector<Token> tokens();

private:
    struct Open {
        int number;
        int element;
        // The last piece in it.
        int last;
    };

    bool has(int piece, int element) const
    {
        return element == linkElement ? !m_pieces.at(piece).link.isEmpty()
                                      : (m_pieces.at(piece).style & (1 << element)) != 0;
    }
    bool goesOn(int piece, int element) const;
    void findEnds();
    int last(int piece, int element) const { return m_ends.at(piece * elementKinds + element); }
    bool isOpen(int element) const;
    bool isBetween(int piece) const;
    void end(int kept);
    void close(int piece);
    void open(int piece);

    const ORVMarkdownPieces& m_pieces;
    // For each piece and element, the last piece that the element goes on to.
    QVector<int> m_ends;
    QVector<Open> m_open;
    QVector<Token> m_tokens;
    int m_count = 0;
};

/*! Whether an element of \a piece is that of the next one too. */
bool Elements::goesOn(int piece, int element) const
{
    return piece + 1 < m_pieces.size() && has(piece + 1, element)
        && (element != linkElement || m_pieces.at(piece).link == m_pieces.at(piece + 1).link);
}

void Elements::findEnds()
{
    m_ends.fill(-1, int(m_pieces.size()) * elementKinds);
    for (int piece = int(m_pieces.size()) - 1; piece >= 0; --piece) {
        for (int element = 0; element < elementKinds; ++element) {
            if (has(piece, element))
                m_ends[piece * elementKinds + element] =
                    goesOn(piece, element) ? last(piece + 1, element) : piece;
        }
    }
}

bool Elements::isOpen(int element) const
{
    for (const Open& open : m_open) {
        if (open.element == element)
            return true;
    }
    return false;
}

/*! Whether \a piece is a line break or white space. */
bool Elements::isBetween(int piece) const
{
    const Piece& between = m_pieces.at(piece);
    return between.kind == Piece::LineBreak || (between.kind == Piece::Text && between.text.at(0).isSpace());
}

/*! Ends the elements that \a piece is not in, and those within them. A link is not divided by what ends in it. */
void Elements::close(int piece)
{
    const bool beginsLink = piece < m_pieces.size() && has(piece, linkElement)
        && (!isOpen(linkElement) || last(piece - 1, linkElement) < piece);
    const int needed = beginsLink ? last(piece, linkElement) : piece;
    int kept = 0;
    while (kept < m_open.size() && m_open.at(kept).last >= needed)
        ++kept;
    if (kept < m_open.size())
        end(kept);
}

/*! Ends the elements behind the first \a kept ones, in front of the white space that is last. */
void Elements::end(int kept)
{
    int position = int(m_tokens.size());
    while (position > 0 && m_tokens.at(position - 1).kind == Token::Content
           && isBetween(m_tokens.at(position - 1).piece))
        --position;
    const int piece = m_tokens.at(position - 1).piece;
    for (; m_open.size() > kept; m_open.removeLast())
        m_tokens.insert(position++, {Token::End, m_open.last().number, m_open.last().element, piece});
}

/*! Begins the elements of \a piece: those that last longest outside. White space needs none. */
void Elements::open(int piece)
{
    if (isBetween(piece))
        return;
    QVector<Open> begun;
    for (int element = 0; element < elementKinds; ++element) {
        if (has(piece, element) && !isOpen(element))
            begun.append({0, element, last(piece, element)});
    }
    std::stable_sort(begun.begin(), begun.end(),
                     [](const Open& left, const Open& right) { return left.last > right.last; });
    for (Open& open : begun) {
        open.number = m_count++;
        m_open.append(open);
        m_tokens.append({Token::Begin, open.number, open.element, piece});
    }
}

QVector<Token> Elements::tokens()
{
    for (int piece = 0; piece < m_pieces.size(); ++piece) {
        close(piece);
        open(piece);
        m_tokens.append({Token::Content, -1, -1, piece});
    }
    close(int(m_pieces.size()));
    return m_tokens;
}

/*! Whether \a link can stand between angle brackets as it is. */
bool isAddress(const QString& link)
{
    const int colon = int(link.indexOf(QLatin1String("://")));
    if (colon < 2)
        return false;
    for (int i = 0; i < link.size(); ++i) {
        const ushort code = link.at(i).unicode();
        const bool isInScheme = i < colon;
        if (code <= 0x20 || code >= 0x7f || (isInScheme && !link.at(i).isLetterOrNumber()))
            return false;
    }
    return true;
}

/*! Writes the tokens. The elements whose delimiters would not be recognised are tags. */
class Renderer {
public:
    Renderer(const ORVMarkdownPieces& pieces, ORVMarkdownPlace place)
        : m_pieces(pieces), m_place(place), m_tokens(Elements(pieces).tokens()), m_hasTildes(hasTildes())
    {
    }

    QString run();

private:
    bool hasTildes() const;
    bool isTag(const Token& token) const
    {
        return !elementSyntax[token.element].delimiter || m_tags.contains(token.number);
    }
    QChar firstCharacter(int index) const;
    bool isAutomaticLink(int index) const;
    void write();
    void writeElement(const Token& token);
    void writeLink(const Token& token);
    void writeContent(int index);
    void writeText(int index, const Piece& piece);

    const ORVMarkdownPieces& m_pieces;
    ORVMarkdownPlace m_place;
    QVector<Token> m_tokens;
    bool m_hasTildes;
    // Numbers of elements.
    QSet<int> m_tags;
    QString m_result;
    ORVMarkdownEmphasis m_emphasis = ORVMarkdownEmphasis(m_result);
    bool m_isLineStart = true;
    bool m_isFirstLine = true;
    bool m_isInLink = false;
    bool m_isBehindNote = false;
};

bool Renderer::hasTildes() const
{
    int count = 0;
    for (const Piece& piece : m_pieces) {
        if (piece.kind != Piece::Text)
            continue;
        count += int(piece.text.count(QLatin1Char('~'))) + (piece.style & Piece::StrikeOut ? 2 : 0);
    }
    return count > 1;
}

/*! What the token \a index begins with; null for the end of the line. */
QChar Renderer::firstCharacter(int index) const
{
    if (index >= m_tokens.size())
        return QChar();
    const Token& token = m_tokens.at(index);
    if (token.kind != Token::Content) {
        if (token.element == linkElement)
            return QLatin1Char(token.kind == Token::Begin ? '[' : ']');
        return isTag(token) ? QLatin1Char('<') : QLatin1Char(elementSyntax[token.element].delimiter[0]);
    }
    const Piece& piece = m_pieces.at(token.piece);
    if (piece.kind == Piece::LineBreak)
        return m_place == ORVMarkdownPlace::Paragraph ? QChar() : QChar(QLatin1Char('<'));
    return piece.style & Piece::Code && piece.kind == Piece::Text ? QLatin1Char('`') : piece.text.at(0);
}

/*! Whether the link that the token \a index begins is nothing but its address. */
bool Renderer::isAutomaticLink(int index) const
{
    if (index + 2 >= m_tokens.size() || m_tokens.at(index + 1).kind != Token::Content
        || m_tokens.at(index + 2).kind != Token::End)
        return false;
    const Piece& piece = m_pieces.at(m_tokens.at(index + 1).piece);
    return piece.kind == Piece::Text && !(piece.style & Piece::Code) && piece.text == piece.link
        && isAddress(piece.link);
}

void Renderer::writeElement(const Token& token)
{
    const ElementSyntax& syntax = elementSyntax[token.element];
    const bool isBegin = token.kind == Token::Begin;
    if (isTag(token)) {
        m_result += QLatin1String(isBegin ? syntax.beginTag : syntax.endTag);
        return;
    }
    const QLatin1String delimiter(syntax.delimiter);
    m_result += delimiter;
    m_emphasis.add(token.number, QLatin1Char(syntax.delimiter[0]), int(delimiter.size()), isBegin);
}

void Renderer::writeLink(const Token& token)
{
    m_isInLink = token.kind == Token::Begin;
    if (m_isInLink) {
        m_emphasis.beginLink();
        m_result += QLatin1Char('[');
        return;
    }
    m_emphasis.endLink();
    m_result += QLatin1String("](") + ORVMarkdownEscape::destination(m_pieces.at(token.piece).link)
        + QLatin1Char(')');
}

void Renderer::writeText(int index, const Piece& piece)
{
    if (piece.style & Piece::Code) {
        m_result += ORVMarkdownEscape::code(piece.text, m_place);
        return;
    }
    Escape surroundings;
    surroundings.place = m_place;
    surroundings.isLineStart = m_isLineStart;
    surroundings.isFirstLine = m_isFirstLine;
    surroundings.next = firstCharacter(index + 1);
    surroundings.isInLink = m_isInLink;
    surroundings.isBehindNote = m_isBehindNote;
    surroundings.hasTildes = m_hasTildes;
    m_result += ORVMarkdownEscape::text(piece.text, surroundings);
}

void Renderer::writeContent(int index)
{
    const Piece& piece = m_pieces.at(m_tokens.at(index).piece);
    switch (piece.kind) {
    case Piece::Text: writeText(index, piece); break;
    case Piece::Markup: m_result += piece.text; break;
    case Piece::LineBreak:
        m_result += QLatin1String(m_place == ORVMarkdownPlace::Paragraph ? "\\\n" : "<br>");
        m_isFirstLine = false;
        break;
    }
    m_isBehindNote = piece.kind == Piece::Markup && piece.text.startsWith(QLatin1String("[^"));
    m_isLineStart = piece.kind == Piece::LineBreak;
}

void Renderer::write()
{
    m_result.clear();
    m_emphasis.clear();
    m_isLineStart = m_isFirstLine = true;
    for (int i = 0; i < m_tokens.size(); ++i) {
        const Token& token = m_tokens.at(i);
        if (token.kind == Token::Content) {
            writeContent(i);
            continue;
        }
        m_isLineStart = m_isBehindNote = false;
        if (token.element != linkElement) {
            writeElement(token);
        } else if (token.kind == Token::Begin && isAutomaticLink(i)) {
            m_result += QLatin1Char('<') + m_pieces.at(token.piece).link + QLatin1Char('>');
            i += 2;
        } else {
            writeLink(token);
        }
    }
}

QString Renderer::run()
{
    // Tags make other runs of delimiters than there were; without delimiters nothing is left to be lost.
    const int attempts = 5;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        write();
        const QVector<int> lost = m_emphasis.lost();
        if (lost.isEmpty())
            return m_result;
        for (const int number : lost)
            m_tags.insert(number);
    }
    for (const Token& token : m_tokens)
        m_tags.insert(token.number);
    write();
    return m_result;
}

} // namespace

QString ORVMarkdownInline::markdown(const ORVMarkdownPieces& pieces, ORVMarkdownPlace place)
{
    const ORVMarkdownPieces tidied = ORVMarkdownTidy::tidied(pieces);
    return Renderer(tidied, place).run();
}

bool ORVMarkdownInline::isAllOf(const ORVMarkdownPieces& pieces, ORVMarkdownPiece::Style style)
{
    bool hasText = false;
    for (const Piece& piece : pieces) {
        if (piece.kind != Piece::Text || piece.text.trimmed().isEmpty())
            continue;
        hasText = true;
        if (!(piece.style & style))
            return false;
    }
    return hasText;
}

void ORVMarkdownInline::removeCommonStyle(ORVMarkdownPieces* pieces)
{
    for (const Piece::Style style : {Piece::Bold, Piece::Italic, Piece::Underline}) {
        if (!isAllOf(*pieces, style))
            continue;
        for (Piece& piece : *pieces)
            piece.style &= ~int(style);
    }
}
