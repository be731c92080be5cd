#ifndef ORVHTMLRUNS_P_H
#define ORVHTMLRUNS_P_H

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCharFormat>

/*!
    The text of a document as runs of one format each. Qt searches a tree for each paragraph and each run: one walk
    through the document for all passes takes less time than the rest of the writing.
*/
class ORVHtmlRuns {
public:
    struct Run {
        /*! Index of the format. */
        int format;
        int length;
    };
    struct Paragraph {
        /*! Of the first character in the document. */
        int position = 0;
        /*! Number of characters without the end of the paragraph. */
        int length = 0;
        int firstRun = 0;
        int runCount = 0;
        /*! Whether there are blanks and tabs that HTML would leave out. */
        bool keepsWhiteSpace = false;
    };

    /*! The document must not change as long as this is in use. */
    explicit ORVHtmlRuns(const QTextDocument* document);

    const Paragraph& paragraph(const QTextBlock& block) const;
    const Run& run(int index) const { return m_runs.at(index); }
    /*! The characters from \a position on. */
    const QChar* text(int position) const { return m_text.constData() + position; }
    QTextCharFormat format(int index) const { return m_formats.at(index).toCharFormat(); }
    /*! Numbers of characters by the index of their format, in the order of the indexes. */
    QMap<int, int> lengthsOfFormats() const;

private:
    void add(const QTextBlock& block, int position);

    QString m_text;
    QVector<QTextFormat> m_formats;
    QVector<Run> m_runs;
    // In the order of the document.
    QVector<Paragraph> m_paragraphs;
    // The one asked for last, as most questions are about the same or the next one.
    mutable QTextBlock m_lastBlock;
    mutable int m_lastNumber = 0;
};

#endif
