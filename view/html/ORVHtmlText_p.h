#ifndef ORVHTMLTEXT_P_H
#define ORVHTMLTEXT_P_H

#include "ORVHtmlTextStyles_p.h"

#include <QtCore/QHash>
#include <QtCore/QPair>
#include <QtGui/QTextBlock>

struct ORVHtmlContext;
struct ORVHtmlNote;

/*! Writes the text of paragraphs of one document, with the elements that its formats need. */
class ORVHtmlText {
public:
    /*! \a notes are those of \a document. */
    ORVHtmlText(ORVHtmlContext* context, const QTextDocument* document, const QVector<ORVHtmlNote>& notes);

    /*! Number of what the paragraph \a block declares for most of its text. */
    int base(const QTextBlock& block, bool isHeading);
    /*! What the number \a base stands for. */
    const ORVHtmlDeclarations& baseDeclarations(int base) const { return m_bases.at(base); }
    /*! Writes the text of \a block in a paragraph that declares \a base. */
    void write(const QTextBlock& block, int base);
    /*! Whether the paragraph goes on with the next block, since a note holds the end of the last one. */
    bool goesOn() const { return m_goesOn; }

private:
    /*! A run of text of one format. */
    struct Run {
        QVector<ORVHtmlInlineElement> elements;
        QStringList anchors;
        bool isPicture = false;
    };

    Run newRun(const QTextCharFormat& format, int base) const;
    const Run& run(const QTextFragment& fragment, int base);
    void writeFragment(const QTextFragment& fragment, int base);
    void writePart(const QTextFragment& fragment, const Run& run, int from, int end);
    void writePictures(const QTextCharFormat& format, int count);
    void writeAnchors(const QStringList& names);
    void writeMark(const ORVHtmlNote& note, const Run& run);
    void setElements(const QVector<ORVHtmlInlineElement>& elements);

    ORVHtmlContext* m_context;
    const QTextDocument* m_document;
    ORVHtmlTextStyles m_styles;
    QVector<ORVHtmlInlineElement> m_open;
    // By the number of what the paragraph declares, and the index of the format.
    QHash<QPair<int, int>, Run> m_runs;
    QVector<ORVHtmlDeclarations> m_bases;
    // By their CSS, and by the index of a format, doubled, with 1 added for headings.
    QHash<QByteArray, int> m_baseNumbers;
    QHash<int, int> m_formatBases;
    const QVector<ORVHtmlNote>& m_notes;
    int m_nextNote = 0;
    bool m_goesOn = false;
};

#endif
