#ifndef ORVHTMLTEXT_P_H
#define ORVHTMLTEXT_P_H

#include "ORVHtmlRuns_p.h"
#include "ORVHtmlTextStyles_p.h"

#include <QtCore/QHash>
#include <QtCore/QPair>
#include <QtGui/QTextBlock>

struct ORVHtmlContext;
struct ORVHtmlNote;

/*! Writes the text of paragraphs of one document, with the elements that its formats need. */
class ORVHtmlText {
public:
    /*! \a runs and \a notes are those of \a document. */
    ORVHtmlText(ORVHtmlContext* context, const QTextDocument* document, const ORVHtmlRuns& runs,
                const QVector<ORVHtmlNote>& notes);

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
        // Whether blanks look like those without a format.
        bool hasPlainBlanks = true;
    };

    int mostFrequentFormat(const ORVHtmlRuns::Paragraph& paragraph) const;
    Run newRun(const QTextCharFormat& format, int base) const;
    const Run& run(int format, int base);
    void writeRun(int format, int position, int end, int base);
    void writePart(const Run& run, int format, int from, int end);
    void writePictures(const QTextCharFormat& format, int count);
    void writeAnchors(const QStringList& names);
    void writeMark(const ORVHtmlNote& note, const Run& run);
    int commonElements(const QVector<ORVHtmlInlineElement>& elements) const;
    void closeElements(int kept);
    void setElements(const QVector<ORVHtmlInlineElement>& elements);

    ORVHtmlContext* m_context;
    const QTextDocument* m_document;
    const ORVHtmlRuns& m_runs;
    ORVHtmlTextStyles m_styles;
    QVector<ORVHtmlInlineElement> m_open;
    // By the number of what the paragraph declares, and the index of the format.
    QHash<QPair<int, int>, Run> m_knownRuns;
    QVector<ORVHtmlDeclarations> m_bases;
    // By their CSS, and by the index of a format, doubled, with 1 added for headings.
    QHash<QByteArray, int> m_baseNumbers;
    QHash<int, int> m_formatBases;
    const QVector<ORVHtmlNote>& m_notes;
    int m_nextNote = 0;
    bool m_goesOn = false;
};

#endif
