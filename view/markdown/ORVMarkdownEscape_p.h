#ifndef ORVMARKDOWNESCAPE_P_H
#define ORVMARKDOWNESCAPE_P_H

#include <QtCore/QString>

/*! Where Markdown stands: each place has its own syntax. */
enum class ORVMarkdownPlace {
    Paragraph,
    Heading,
    /*! Of a table of pipes. */
    Cell
};

/*! Text as Markdown, with as few escapes as it needs. */
namespace ORVMarkdownEscape {

/*! What stands around a part of a line. */
struct Surroundings {
    ORVMarkdownPlace place = ORVMarkdownPlace::Paragraph;
    /*! Whether nothing stands in front of it in its line. */
    bool isLineStart = false;
    bool isFirstLine = true;
    /*! What follows; null at the end of the line. */
    QChar next;
    bool isInLink = false;
    bool isBehindNote = false;
    /*! Whether the paragraph has several tildes, which would strike out what is between them. */
    bool hasTildes = false;
};

/*! \a text, which has no line breaks, so that it stands for itself. */
QString text(const QString& text, const Surroundings& surroundings);

/*! \a text as a code span, where \a place is that of the span. */
QString code(const QString& text, ORVMarkdownPlace place);

/*! \a address as the destination of a link or picture. */
QString destination(const QString& address);

/*! The longest run of \a character in \a text. */
int longestRun(const QString& text, QChar character);

} // namespace ORVMarkdownEscape

#endif
