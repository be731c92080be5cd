#ifndef ORVTEXTRTFWRITER_P_H
#define ORVTEXTRTFWRITER_P_H

#include "ORVRtfNoteDocuments_p.h"
#include "ORVRtfOutputColors_p.h"
#include "ORVRtfOutputFonts_p.h"
#include "ORVRtfOutputLists_p.h"
#include "ORVRtfOutput_p.h"
#include "ORVRtfPage_p.h"
#include "ORVRtfTextSource_p.h"
#include "ORVRtfWriterSettings_p.h"
#include "ORVTextBorder.h"
#include "ORVTextPage.h"
#include "ORVTextRtfCommon.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextFrame>

class ORVTextListLevel;
class QImage;
class QTextDocument;
class QTextImageFormat;
class QTextList;
class QTextTable;
class QTextTableCell;
class QTextTableFormat;

/*!
    Writes one document as RTF. The document is walked twice: the first pass collects its fonts, colours and
    lists, whose tables come first in the file; the second pass writes it.
*/
class ORVTextRtfWriterPrivate : public ORVTextRtfCommon {
public:
    bool write(const QTextDocument* document, bool inPlace);

    ORVRtfOutput m_output;
    ORVRtfWriterSettings m_settings;

private:
    /*! The two passes. Nothing is written while collecting. */
    enum Pass { Collect, Write };

    typedef ORVRtfFragmentState FragmentState;
    typedef ORVRtfRunFormat RunFormat;

    /*! State of the paragraphs that are being written. A note has its own. */
    struct ParagraphState {
        FragmentState fragment;
        // RTF of the note whose anchor is open.
        QByteArray pendingNote;
        // Its mark, where the author has chosen it.
        QString pendingMark;
        // Format of the last run written, for the mark of a footnote.
        RunFormat* lastRun = nullptr;
        // Number of the format in the document.
        int blockFormat = -1;
        bool isFirst = true;
        // The next paragraph follows a table directly and is left out if it is empty.
        bool skipEmpty = false;
        int tableDepth = 0;
    };

    // Frame (ORVTextRtfWriterPrivate.cpp)
    bool writeHeader();
    void readPageSetup(const QTextDocument* document);
    void createTables();
    void processDocument(QTextDocument* document, Pass pass);
    void collectPageFont(const ORVTextPage& page);
    void writeFontTable();
    void writeColorTable();
    void writeDocumentSettings(const QTextDocument* document);
    void writePageFooterOrHeader(KeyWord which, const ORVTextPage& page);

    // Character formats (ORVTextRtfWriterFormats.cpp)
    void processFormat(const QTextBlock& block, Pass pass);
    void collectFormat(const QTextCharFormat& format);
    void writeCharFormat(RunFormat& run);
    QByteArray charFormatWords(const QTextCharFormat& format) const;
    void writeFontStyle(const QTextCharFormat& format, ORVRtfOutput& words) const;
    void writeColors(const QTextCharFormat& format, ORVRtfOutput& words) const;
    void writeBackground(int number, ORVRtfOutput& words) const;
    QColor foregroundColor(const QTextCharFormat& format) const;
    bool hasChosenColor(const QTextCharFormat& format) const;
    void writeFormattedText(const QString& text, RunFormat& run);

    // Paragraphs (ORVTextRtfWriterParagraphs.cpp)
    void processBlock(const QTextBlock& block, const QTextBlock& next, Pass pass);
    bool beginParagraph(const QTextBlock& block);
    void writeBlockFormat(const QTextBlock& block);
    void writeTabs(const QTextBlockFormat& format);
    void writeIndents(const QTextBlockFormat& format, bool isInList);
    void writeLineSpacing(const QTextBlockFormat& format);
    void writeListItem(const QTextBlock& block, QTextList* list, bool isFormatStated);
    void endFragments(const QTextBlock& next);

    // Fragments (ORVTextRtfWriterFragments.cpp)
    void processFragment(const QTextFragment& fragment, const QTextFragment& next, const QTextBlock& block,
                         Pass pass);
    bool goesOnIn(const FragmentState& state) const;
    void openState(const QTextFragment& fragment, RunFormat& run, bool isFollowed, const QTextBlock& block);
    void openAnnotation(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                        const QTextBlock& block);
    void openAnnotationRange(const QTextFragment& fragment, RunFormat& run, bool isFollowed);
    void openFootnoteAnchor(const QTextFragment& fragment, RunFormat& run);
    void openFootnote(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                      const QTextBlock& block);
    void openFootnoteGroups(bool isAlternate, RunFormat& mark, const QString& ownMark);
    void openHyperlink(const QTextFragment& fragment, RunFormat& run, bool isFollowed);
    void writeNumberFormat(RunFormat& mark);
    void writeNoteText(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                       const QTextBlock& block);
    void writeContent(const QTextFragment& fragment, RunFormat& run, bool inGroup, bool isTrimmed = false);
    void finalizeFragmentState(const QString& nextBookmark);
    void writeNumberGroup(KeyWord keyWord);
    void writeTextGroup(KeyWord keyWord, const QString& text);
    void writeAnnotationDate(const QDateTime& date);
    void writeAnnotationEnd();
    void writeFootnoteEnd();
    void writeBookmark(const QString& name);

    // Notes (ORVTextRtfWriterFragments.cpp)
    void collectRun(RunFormat& run);
    void collectNote(const QTextCharFormat& format);
    void writePendingNote();
    void writeNote(const QByteArray& content);
    void processSubDocument(QTextDocument* document, Pass pass);

    // Pictures (ORVTextRtfWriterPictures.cpp)
    void writePicture(const QTextImageFormat& format);
    void writePicturePosition(const QTextImageFormat& format);
    void writeEmbeddedPdf(const QTextImageFormat& format);
    void writePictureData(const QTextImageFormat& format, const QImage& image);

    // Frames and tables (ORVTextRtfWriterTables.cpp)
    void processFrame(const QTextFrame* frame, Pass pass);
    void processTableCell(const QTextTableCell& cell, Pass pass);
    void processContent(QTextFrame::iterator it, const QTextFrame::iterator& end, bool hasBlocks, Pass pass);
    void endParagraphBeforeTable();
    void processTable(const QTextTable* table, Pass pass);
    void collectTable(const QTextTable* table);
    void collectCellBorders(const QTextCharFormat& format);
    void writeTable(const QTextTable* table);
    void writeTableRow(const QTextTable* table, int row);
    void processTableRowDefinition(const QTextTable* table, int row);
    void writeCellDefinition(const QTextTableCell& cell, int row, int column, const QTextTableFormat& format);
    void writeCellBorder(KeyWord word, ORVTextBorder::Side side, const QTextTableCell& cell,
                         const QTextTableFormat& format);
    void writeNoBorder(KeyWord side);
    void backgroundColor(const QTextTableCell& cell);

    // Lists (ORVTextRtfWriterLists.cpp)
    void collectList(QTextList* list, const QTextBlock& item);
    void writeListTemplates();
    void writeListTemplate(QTextList* list, const QTextCharFormat& format, int number);
    void writeListLevel(const ORVTextListLevel& level, int index, const QTextCharFormat& format);
    void writeLevelGroup(KeyWord keyWord, const QString& text);

    // The document that is written, and the one at hand: a note's while that is walked.
    QTextDocument* m_document = nullptr;
    ORVRtfTextSource m_text;
    ORVRtfPage m_page;
    ORVTextPage m_header;
    ORVTextPage m_footer;

    ORVRtfOutputFonts m_fonts;
    ORVRtfOutputColors m_colors;
    ORVRtfOutputLists m_lists;

    ParagraphState m_paragraph;

    ORVRtfNoteDocuments m_noteDocuments;
    // Number of the last note, and how many notes the text at hand is in.
    int m_noteCounter = 0;
    int m_noteDepth = 0;
};

#endif
