#ifndef ORVHTMLCONTENT_P_H
#define ORVHTMLCONTENT_P_H

#include "ORVHtmlLists_p.h"
#include "ORVHtmlNotes_p.h"
#include "ORVHtmlParagraph_p.h"
#include "ORVHtmlText_p.h"

#include <QtGui/QTextFrame>

class QTextTable;
class QTextTableCell;

/*! What the style of a paragraph depends on. */
struct ORVHtmlParagraphKey {
    /*! Index of its format, and number of the font that it declares. */
    int format;
    int base;
    ORVHtmlStyleSheet::Element element;
    bool keepsWhiteSpace;

    bool operator==(const ORVHtmlParagraphKey& other) const
    {
        return format == other.format && base == other.base && element == other.element
            && keepsWhiteSpace == other.keepsWhiteSpace;
    }
};

inline uint qHash(const ORVHtmlParagraphKey& key)
{
    return uint(key.format) * 31u + uint(key.base) * 977u + uint(key.element) * 7919u
        + (key.keepsWhiteSpace ? 1u : 0u);
}

/*! Writes the content of a document: the one that is converted, or the text of a note. */
class ORVHtmlContent {
public:
    /*! \a runs are those of \a document, which is the text of a note where \a isNote. */
    ORVHtmlContent(ORVHtmlContext* context, const QTextDocument* document, const ORVHtmlRuns& runs,
                   bool isNote);

    /*! Puts \a head in front of the text of the first paragraph. */
    void setHead(const QByteArray& head) { m_head = head; }
    /*! Writes everything. */
    void write();

private:
    /*! What an element declares for a paragraph. */
    struct BlockStyle {
        ORVHtmlDeclarations declarations;
        // In the style sheet; -1 before its first use.
        int number = -1;
    };

    void writeFrame(QTextFrame::iterator it);
    void writeBlock(const QTextBlock& block);
    void writeItem(const QTextBlock& block, const ORVHtmlParagraph& paragraph,
                   const ORVTextListLabels::Label& label);
    void writeParagraph(const QTextBlock& block, const ORVHtmlParagraph& paragraph);
    void writeText(const QTextBlock& block, int base);
    const ORVHtmlParagraph& paragraph(const QTextBlock& block);
    BlockStyle& blockStyle(const QTextBlock& block, const ORVHtmlParagraph& paragraph,
                           ORVHtmlStyleSheet::Element element, int base);
    QByteArray used(BlockStyle& style, ORVHtmlStyleSheet::Element element);
    bool isPlainText(const QTextBlock& block);
    void writeCell(const QTextTableCell& cell);
    void writeTable(QTextTable* table);
    bool hasNestedItem(const QTextBlock& block, const ORVTextListLabels::Label& label) const;

    ORVHtmlContext* m_context;
    const QTextDocument* m_document;
    const ORVHtmlRuns& m_runs;
    ORVTextListLabels m_labels;
    QVector<ORVHtmlNote> m_notes;
    ORVHtmlText m_text;
    ORVHtmlLists m_lists;
    // By the index of their format.
    QHash<int, ORVHtmlParagraph> m_paragraphs;
    QHash<ORVHtmlParagraphKey, BlockStyle> m_blockStyles;
    bool m_isInTableHead = false;
    QByteArray m_head;
    // The tag of a paragraph that is written, or that goes on since a note holds its end; null when there is none.
    const char* m_openTag = nullptr;
};

#endif
