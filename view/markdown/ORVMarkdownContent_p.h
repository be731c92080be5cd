#ifndef ORVMARKDOWNCONTENT_P_H
#define ORVMARKDOWNCONTENT_P_H

#include "ORVMarkdownEscape_p.h"
#include "ORVMarkdownLists_p.h"
#include "ORVMarkdownText_p.h"

#include <QtCore/QStringList>
#include <QtGui/QTextFrame>

class QTextTable;
class QTextTableCell;

/*! Writes the content of a document: the one that is converted, or the text of a note. */
class ORVMarkdownContent {
public:
    /*! \a document is the text of a note where \a isNote. */
    ORVMarkdownContent(ORVMarkdownContext* context, const QTextDocument* document, bool isNote);

    /*! Puts \a text in front of the text of the first paragraph. */
    void setHead(const QString& text);
    /*! Writes everything. */
    void write();

private:
    void writeFrame(QTextFrame::iterator it, int depth);
    void writeFlat(const QTextFrame& frame);
    void writeBlock(const QTextBlock& block);
    void writeParagraph();
    void writeHeading(int level, const QString& text);
    void writeItem(const ORVTextListLabels::Label& label, bool isNumbered, const QString& text);
    void writeOther(const QString& lines);
    void addCode(const QTextBlock& block);
    void endCode();
    void endHead();
    bool isItem(const ORVTextListLabels::Label& label, bool* isNumbered);
    void writeTable(QTextTable* table, int depth);
    void writePipes(const QTextTable* table);
    void writeHtml(const QTextTable* table, int depth);
    ORVMarkdownPieces cellPieces(const QTextTableCell& cell);

    ORVMarkdownContext* m_context;
    const QTextDocument* m_document;
    ORVTextListLabels m_labels;
    ORVMarkdownText m_text;
    ORVMarkdownLists m_lists;
    // What stands in front of the first paragraph.
    ORVMarkdownPieces m_head;
    // The paragraph whose text is being collected.
    QTextBlock m_block;
    QStringList m_code;
    // Number of empty paragraphs behind the code.
    int m_codeGap = 0;
};

#endif
