#ifndef BENCHDOCUMENTS_H
#define BENCHDOCUMENTS_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>

#include <random>

class QTextDocument;

/*! Inputs of the benchmarks. They are made from word lists with fixed seeds, so every run has the same. */
namespace BenchDocuments {

/*! One paragraph of prose: plain, bold and again plain text. */
struct Paragraph {
    QString before;
    QString bold;
    QString after;
};

/*! Paragraphs of some 180 characters, one after the other. */
class Prose {
public:
    Paragraph next();

private:
    std::mt19937 m_random{1};
};

/*! The first \a count of them. */
QList<Paragraph> prose(int count);
/*! The same as RTF, with the control words that word processors write. */
QByteArray proseRtf(const QList<Paragraph>& paragraphs);

/*! Builds a document of prose directly, with ready-made formats: the floor of reading. */
class ProseBuilder {
public:
    explicit ProseBuilder(QTextDocument* document);
    ~ProseBuilder();
    void add(const Paragraph& paragraph);

private:
    Q_DISABLE_COPY(ProseBuilder)

    QTextCursor m_cursor;
    QTextCharFormat m_plain;
    QTextCharFormat m_bold;
};

/*! \a paragraphs paragraphs of a novel as LibreOffice writes them: many control words for each run. */
QByteArray novelRtf(int paragraphs);

/*! \a count paragraphs with a footnote each. */
QByteArray notesRtf(int count);

/*! \a count parts of a list of two levels, each of ten items behind an ordinary paragraph. */
QByteArray listsRtf(int count);

/*! The blocks and runs of a document with their formats. */
class Copy {
public:
    explicit Copy(const QTextDocument& document);
    /*! Inserts them into \a document one by one: the floor of reading it. */
    void build(QTextDocument* document) const;

private:
    struct Run {
        QString text;
        QTextCharFormat format;
    };
    struct Block {
        QTextBlockFormat format;
        QTextCharFormat charFormat;
        QList<Run> runs;
    };
    QList<Block> m_blocks;
};

/*! PNG data of some \a megabytes megabytes, of noise that cannot be compressed. */
QByteArray noisePng(int megabytes);
/*! JPEG data of a noisy picture of \a side x \a side pixels. */
QByteArray noiseJpeg(int side);
/*! A document of one picture; \a type is its control word. */
QByteArray pictureRtf(const QByteArray& picture, const char* type);

/*! Paragraphs of \a count escaped bytes, and blanks: Cyrillic of code page 1251, or Japanese of 932. */
QByteArray cyrillicRtf(int count);
QByteArray japaneseRtf(int count);

/*! \a count groups of one letter. */
QByteArray groupsRtf(int count);

/*! A table of \a rows rows and five columns; if \a merged, the first column is one cell. */
QByteArray tableRtf(int rows, bool merged);

/*! A decimal list of \a items items. */
QByteArray listRtf(int items);
/*! The same without the list: paragraphs only. */
QByteArray plainListRtf(int items);

} // namespace BenchDocuments

#endif
