#include "ORVMarkdownTidy_p.h"

namespace {

using Piece = ORVMarkdownPiece;

bool isBlankText(const Piece& piece)
{
    return piece.kind == Piece::Text && piece.text.at(0).isSpace();
}

/*! Whether \a piece takes its style from those around it. */
bool takesStyle(const Piece& piece)
{
    return piece.kind == Piece::LineBreak || isBlankText(piece);
}

bool isAlike(const Piece& left, const Piece& right)
{
    return left.style == right.style && left.link == right.link;
}

/*! Divides text into white space, text without any at its ends, and white space. */
void appendSplit(ORVMarkdownPieces* result, const Piece& piece)
{
    const QString& text = piece.text;
    int first = 0;
    while (first < text.size() && text.at(first).isSpace())
        ++first;
    int end = int(text.size());
    while (end > first && text.at(end - 1).isSpace())
        --end;
    const auto append = [&](int from, int to) {
        if (to > from)
            result->append(Piece(Piece::Text, text.mid(from, to - from), piece.style, piece.link));
    };
    append(0, first);
    append(first, end);
    append(end, int(text.size()));
}

/*! Gives white space and line breaks the style that both the text in front of them and that behind them have. */
void setStylesBetween(ORVMarkdownPieces* pieces)
{
    for (int first = 0; first < pieces->size();) {
        int end = first;
        bool hasBreak = false;
        for (; end < pieces->size() && takesStyle(pieces->at(end)); ++end)
            hasBreak = hasBreak || pieces->at(end).kind == Piece::LineBreak;
        const bool isInside = first > 0 && end < pieces->size();
        int style = isInside ? pieces->at(first - 1).style & pieces->at(end).style : 0;
        // Code ends with its line, and has one style.
        if (hasBreak || !isInside || !isAlike(pieces->at(first - 1), pieces->at(end)))
            style &= ~int(Piece::Code);
        const QString link =
            isInside && pieces->at(first - 1).link == pieces->at(end).link ? pieces->at(end).link : QString();
        for (int i = first; i < end; ++i) {
            (*pieces)[i].style = style;
            (*pieces)[i].link = link;
            // White space at the end and at the start of a line.
            if (hasBreak)
                (*pieces)[i].text.clear();
        }
        first = end + 1;
    }
}

bool canJoin(const Piece& left, const Piece& right)
{
    return left.kind == Piece::Text && right.kind == Piece::Text && isAlike(left, right);
}

/*! Appends \a piece to \a result. White space joins text only if it is alike on both sides. */
void appendJoined(ORVMarkdownPieces* result, const Piece& piece)
{
    const int last = int(result->size()) - 1;
    const bool isAlikeLast = last >= 0 && canJoin(result->at(last), piece);
    if (isAlikeLast && isBlankText(result->at(last)) == isBlankText(piece)) {
        (*result)[last].text += piece.text;
    } else if (isAlikeLast && isBlankText(result->at(last)) && last > 0
               && canJoin(result->at(last - 1), piece)) {
        (*result)[last - 1].text += result->at(last).text + piece.text;
        result->removeLast();
    } else {
        result->append(piece);
    }
}

/*! Joins neighbours that are alike; text without content goes. */
ORVMarkdownPieces withJoined(const ORVMarkdownPieces& pieces)
{
    ORVMarkdownPieces result;
    for (const Piece& piece : pieces) {
        if (piece.kind != Piece::Text || !piece.text.isEmpty())
            appendJoined(&result, piece);
    }
    return result;
}

ORVMarkdownPieces withoutBreaksAround(const ORVMarkdownPieces& pieces)
{
    int first = 0;
    while (first < pieces.size() && takesStyle(pieces.at(first)))
        ++first;
    int end = int(pieces.size());
    while (end > first && takesStyle(pieces.at(end - 1)))
        --end;
    return pieces.mid(first, end - first);
}

} // namespace

ORVMarkdownPieces ORVMarkdownTidy::tidied(const ORVMarkdownPieces& pieces)
{
    ORVMarkdownPieces result;
    for (const Piece& piece : pieces) {
        if (piece.kind == Piece::Text)
            appendSplit(&result, piece);
        else
            result.append(piece);
    }
    result = withoutBreaksAround(result);
    setStylesBetween(&result);
    return withJoined(result);
}
