#ifndef ORVTEXTRTFWRITER_P_H
#define ORVTEXTRTFWRITER_P_H

#include "ORVRtfOutputColors_p.h"
#include "ORVRtfOutputFonts_p.h"
#include "ORVRtfOutput_p.h"
#include "ORVRtfPage_p.h"
#include "ORVTextPage.h"
#include "ORVTextRtf.h"
#include "ORVTextRtfCommon.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QSharedPointer>
#include <QtGui/QTextBlock>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextFrame>

#include <memory>
#include <vector>

class ORVTextListLevel;
class QImage;
class QTextDocument;
class QTextImageFormat;
class QTextList;
class QTextTable;
class QTextTableCell;
class QTextTableFormat;

/*!
    One document on its way to RTF. It is walked twice: once to collect its fonts, colours and lists, whose
    tables come first in the file, and once to write it.
*/
class ORVTextRtfWriterPrivate : public ORVTextRtfCommon {
public:
    bool write(const QTextDocument* document, bool inPlace);

    ORVRtfOutput m_output;
    bool m_exportingMode = false;
    bool m_paragraphBeforeTableEnded = false;
    bool m_highlightForMsWord = false;
    bool m_decorateHyperlinks = false;
    QColor m_hyperlinksColor = QColor(0, 0, 255);
    bool m_footnotesWithLeadingSpace = false;
    ORVTextRtf::ExportStyle m_footnoteDestination = ORVTextRtf::ExportAsFootnote;
    ORVTextRtf::ExportStyle m_annotationDestination = ORVTextRtf::ExportAsAnnotation;

private:
    /*! What the walk over the document is for; nothing is written while collecting. */
    enum Pass { Collect, Write };

    /*! Which notes, links and bookmarks a run of text belongs to. */
    struct FragmentState {
        enum Flag {
            Annotation = 1,
            Footnote = 2,
            AnnotationAnchor = 4,
            FootnoteAnchor = 8,
            AlternateFootnote = 16,
            Hyperlink = 32,
            Bookmark = 64,
            AnyNote = Annotation | Footnote | AnnotationAnchor | FootnoteAnchor | AlternateFootnote
        };
        int flags = 0;
        QByteArray noteData;
        QString name;

        bool operator==(const FragmentState& other) const;
        bool operator!=(const FragmentState& other) const { return !(*this == other); }
        /*! Instruction of the link's field. It tells neighbours apart, but does not make states differ. */
        QString link;
    };

    /*! What there is to know of a character format, worked out once however many runs have it. */
    struct RunFormat {
        QTextCharFormat format;
        FragmentState state;
        bool isPicture = false;
        bool isCollected = false;
        // The control words that state the format, made when they are first written.
        QByteArray words;
        int fontNumber = 0;
        QString pageReference;
    };

    /*! The document that the text at hand belongs to, the one that is written or a note's. */
    struct TextSource {
        QTextDocument* document = nullptr;
        // By the number of the format in the document.
        std::vector<std::unique_ptr<RunFormat>> formats;
    };

    /*! What is known of the paragraphs that are being written; a note has its own. */
    struct ParagraphState {
        FragmentState fragment;
        // Format of the run that was written last: a footnote's mark takes it.
        RunFormat* lastRun = nullptr;
        // Number of the format in the document.
        int blockFormat = -1;
        bool isFirst = true;
        // The next paragraph, directly behind a table, is left out when it is empty.
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

    // Character formats and states (ORVTextRtfWriterFormats.cpp)
    void processFormat(const QTextBlock& block, Pass pass);
    void collectFormat(const QTextCharFormat& format);
    RunFormat& runFormat(const QTextFragment& fragment);
    RunFormat& runFormat(const QTextBlock& block);
    std::unique_ptr<RunFormat>& runFormatAt(int number);
    static std::unique_ptr<RunFormat> describe(const QTextCharFormat& format);
    void writeCharFormat(RunFormat& run);
    QByteArray charFormatWords(const QTextCharFormat& format) const;
    void writeFontStyle(const QTextCharFormat& format, ORVRtfOutput& words) const;
    void writeColors(const QTextCharFormat& format, ORVRtfOutput& words) const;
    void writeBackground(int number, ORVRtfOutput& words) const;
    QColor foregroundColor(const QTextCharFormat& format) const;
    bool hasChosenColor(const QTextCharFormat& format) const;
    void writeFormattedText(const QString& text, RunFormat& run);
    static FragmentState cleanState(const QTextCharFormat& format);
    FragmentState convertedState(const FragmentState& state) const;

    // Paragraphs (ORVTextRtfWriterParagraphs.cpp)
    void processBlock(const QTextBlock& block, const QTextBlock& next, Pass pass);
    bool beginParagraph(const QTextBlock& block);
    void writeBlockFormat(const QTextBlock& block);
    void writeTabs(const QTextBlockFormat& format);
    void writeIndents(const QTextBlockFormat& format, bool isInList);
    void writeLineSpacing(const QTextBlockFormat& format);
    void writeListItem(const QTextBlock& block, QTextList* list, bool isFormatStated);
    int itemNumber(const QTextList* list, const QTextBlock& block);
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
    void openFootnoteGroups(bool isAlternate, RunFormat& mark);
    void openHyperlink(const QTextFragment& fragment, RunFormat& run, bool isFollowed);
    static QString linkInstruction(const QTextCharFormat& format);
    void writeNoteText(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                       const QTextBlock& block);
    void writeContent(const QTextFragment& fragment, RunFormat& run, bool inGroup, bool isTrimmed = false);
    void finalizeFragmentState(const QString& nextBookmark);
    void writeNumberGroup(KeyWord keyWord);
    void writeAnnotationEnd();
    void writeFootnoteEnd();
    void writeBookmark(const QString& name);

    // Notes (ORVTextRtfWriterFragments.cpp)
    void collectRun(RunFormat& run);
    void collectNote(const QTextCharFormat& format);
    void writePendingNote();
    void writeNote(const QByteArray& content);
    QSharedPointer<QTextDocument> noteDocument(const QByteArray& content);
    void processSubDocument(QTextDocument* document, Pass pass);

    // Pictures (ORVTextRtfWriterPictures.cpp)
    void writePicture(const QTextImageFormat& format);
    void writePicturePosition(const QTextImageFormat& format);
    void writeEmbeddedPdf(const QTextImageFormat& format);
    void writePictureData(const QTextImageFormat& format, const QImage& image);
    void writeTextGroup(KeyWord keyWord, const QString& text);

    // Frames and tables (ORVTextRtfWriterTables.cpp)
    void processFrame(const QTextFrame* frame, Pass pass);
    void processTableCell(const QTextTableCell& cell, Pass pass);
    void processContent(QTextFrame::iterator it, const QTextFrame::iterator& end, bool hasBlocks, Pass pass);
    void endParagraphBeforeTable();
    void processTable(const QTextTable* table, Pass pass);
    void collectTable(const QTextTable* table);
    void writeTable(const QTextTable* table);
    void writeTableRow(const QTextTable* table, int row);
    void processTableRowDefinition(const QTextTable* table, int row);
    void writeCellDefinition(const QTextTableCell& cell, int row, int column, const QTextTableFormat& format);
    void writeCellBorder(KeyWord side, const QTextTableFormat& format);
    void writeNoBorder(KeyWord side);
    void writeClosed(KeyWord keyWord);
    void backgroundColor(const QTextTableCell& cell);

    // Lists (ORVTextRtfWriterLists.cpp)
    void collectList(QTextList* list, const QTextCharFormat& format);
    int textListIndex(QTextList* list) const;
    bool containsTextList(QTextList* list) const { return textListIndex(list) >= 0; }
    void writeListTemplates();
    void writeListTemplate(QTextList* list, const QTextCharFormat& format, int number);
    void writeListLevel(const ORVTextListLevel& level, int index, const QTextCharFormat& format);
    void writeLevelGroup(KeyWord keyWord, const QString& text);

    QTextDocument* m_document = nullptr;
    TextSource m_text;
    ORVRtfPage m_page;
    ORVTextPage m_header;
    ORVTextPage m_footer;

    ORVRtfOutputFonts m_fonts;
    ORVRtfOutputColors m_colors;
    // The lists in order of appearance, with the format of their markers, and their places in it.
    QList<QPair<QTextList*, QTextCharFormat>> m_lists;
    QHash<QTextList*, int> m_listIndexes;
    QHash<const QTextList*, int> m_nextListItem;

    ParagraphState m_paragraph;

    // Notes: number of the last one, RTF of the one whose anchor is open, and what has been parsed so far.
    int m_noteCounter = 0;
    QByteArray m_pendingNote;
    QHash<QByteArray, QSharedPointer<QTextDocument>> m_noteDocuments;
    int m_noteDepth = 0;
};

#endif
