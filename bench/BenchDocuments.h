#ifndef BENCHDOCUMENTS_H
#define BENCHDOCUMENTS_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

class QTextDocument;

/*! Inputs of the benchmarks. They are made from word lists with fixed seeds, so every run has the same. */
namespace BenchDocuments {

/*! One paragraph of prose: plain, bold and again plain text. */
struct Paragraph {
    QString before;
    QString bold;
    QString after;
};

/*! \a count paragraphs of some 180 characters. */
QList<Paragraph> prose(int count);
/*! The same as RTF, with the control words that word processors write. */
QByteArray proseRtf(const QList<Paragraph>& paragraphs);
/*! Builds the same directly with ready-made formats: the floor of reading. */
void buildProse(QTextDocument* document, const QList<Paragraph>& paragraphs);

/*! A table of \a rows rows and five columns. With \a merged the first column is one cell from top to bottom.
 */
QByteArray tableRtf(int rows, bool merged);

/*! A decimal list of \a items items. */
QByteArray listRtf(int items);
/*! The same without the list: paragraphs only. */
QByteArray plainListRtf(int items);

} // namespace BenchDocuments

#endif
