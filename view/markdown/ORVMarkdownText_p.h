#ifndef ORVMARKDOWNTEXT_P_H
#define ORVMARKDOWNTEXT_P_H

#include "ORVMarkdownContext_p.h"
#include "ORVMarkdownPiece_p.h"
#include "html/ORVHtmlRuns_p.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

class QTextDocument;

/*! The text of the paragraphs of one document as pieces. */
class ORVMarkdownText {
public:
    /*! \a document is the text of a note where \a isNote. */
    ORVMarkdownText(ORVMarkdownContext* context, const QTextDocument* document, bool isNote);

    /*! Appends the text of \a block, which follows those before it. */
    void append(const QTextBlock& block);
    /*! Whether the paragraph goes on with the next block, since a note holds the end of the last one. */
    bool goesOn() const { return m_goesOn; }
    /*! The pieces that have been appended; there are none afterwards. */
    ORVMarkdownPieces take();
    /*! Whether \a block is nothing but code. It is the next to be appended. */
    bool isCode(const QTextBlock& block);
    /*! The text of \a block as it stands, with line feeds. */
    QString plainText(const QTextBlock& block) const;

    /*! The label of the mark of \a note, which no other one has. */
    static QString label(const ORVNoteQueue::Entry& note);
    /*! Whether \a format, which is in stock form, has a font of fixed pitch. */
    static bool hasFixedPitch(const QTextCharFormat& format);
    /*! \a text without what no text has: control characters, marks of the document's own structure. */
    static QString cleaned(const QString& text);

private:
    /*! What a format comes to. */
    struct Format {
        int style = 0;
        QString link;
        QStringList anchors;
        bool isPicture = false;
    };

    Format newFormat(const QTextCharFormat& format) const;
    const Format& format(int index);
    void appendRun(int index, int from, int end);
    void appendPart(int index, int from, int end);
    void appendPictures(const QTextCharFormat& format, const QString& link, int count);
    void appendAnchors(const QStringList& names, const QString& link);

    ORVMarkdownContext* m_context;
    const QTextDocument* m_document;
    ORVHtmlRuns m_runs;
    QVector<ORVNoteQueue::Entry> m_notes;
    int m_nextNote = 0;
    bool m_goesOn = false;
    ORVMarkdownPieces m_pieces;
    // By their index.
    QHash<int, Format> m_formats;
};

#endif
