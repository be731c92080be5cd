#ifndef ORVRTF_TEXTEXPORT_H
#define ORVRTF_TEXTEXPORT_H

#include <QByteArray>
#include <QTextFrame>

class QString;
class QTextBlock;
class QTextDocument;

/*! How plain text is laid out. */
struct TextLayout {
    /*! Whether the cells of a table stand side by side. */
    bool hasTables = false;
    /*! Columns that a line may have; 0 for any number. */
    int width = 0;
};

/*!
    The text of \a document as UTF-8: a line for each paragraph, table cell and line break, no-break spaces
    kept, pictures left out. The text of notes stands at the end. Ends with a line feed unless it is empty. The
    document is changed.

    As \a layout says, longer lines are broken at blanks, and the cells of a row stand side by side.
*/
QByteArray documentToPlainText(QTextDocument& document, const TextLayout& layout = TextLayout());

/*! The text of \a block, of which pictures are no part, with line feeds for line breaks. */
QString paragraphText(const QTextBlock& block);

/*! Whether \a block, behind which \a next stands, is the empty paragraph that Qt needs in front of a table and hides. */
bool isHiddenParagraph(const QTextBlock& block, const QTextFrame::iterator& next);

#endif
