#ifndef ORVRTFCELLCONTENT_P_H
#define ORVRTFCELLCONTENT_P_H

#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>

class QTextBlock;
class QTextCursor;
class QTextDocument;

/*!
    What one table cell holds, waiting for its table to be made.

    A document of its own for each cell would take some 8 KB, however short its text, and a table of 100,000
    cells is no rarity. So plain paragraphs are kept as such, and only a cell that holds a table keeps its
    document.
*/
class ORVRtfCellContent {
public:
    /*! Nothing at all. */
    ORVRtfCellContent() { }
    /*! What \a document holds: its paragraphs, and the format of the first of them even if it is empty. */
    explicit ORVRtfCellContent(const QSharedPointer<QTextDocument>& document);

    bool hasText() const;
    bool endsWithEmptyParagraph() const;
    /*! Format of the first paragraph. */
    QTextBlockFormat firstFormat() const;
    /*! Gives the last paragraph \a format. */
    void setLastFormat(const QTextBlockFormat& format);

    /*! What stands between the contents of cells that become one. */
    enum Separator { NoSeparator, Blank, NewParagraph };
    /*! Adds \a other, whose first paragraph gives its format to the one it is added to. */
    void append(const ORVRtfCellContent& other);
    /*! Adds the text of a cell that becomes part of this one. */
    void absorb(const ORVRtfCellContent& other, Separator separator);

    /*! Inserts everything at \a cursor. */
    void insertAt(QTextCursor& cursor) const;

private:
    struct Run {
        QString text;
        QTextCharFormat format;
    };
    struct Paragraph {
        QTextBlockFormat format;
        QTextCharFormat charFormat;
        QVector<Run> runs;
    };
    struct Part {
        Separator separator = NoSeparator;
        // Whether the paragraph that the part is added to takes the format of the part's first one.
        bool formatsParagraph = true;
        QTextBlockFormat firstFormat;
        // Empty when the part has no text.
        QVector<Paragraph> paragraphs;
        // Set instead of paragraphs when the cell holds tables.
        QSharedPointer<QTextDocument> document;

        bool hasText() const { return document || !paragraphs.isEmpty(); }
        bool hasSeveralParagraphs() const { return document || paragraphs.size() > 1; }
        bool endsWithEmptyParagraph() const;
    };

    static Paragraph paragraphOf(const QTextBlock& block);
    static void insertBlank(const Part& part, QTextCursor& cursor);
    static void insertPart(const Part& part, QTextCursor& cursor);

    QVector<Part> m_parts;
};

#endif
