#ifndef ORVRTF_REPORTTEXTS_H
#define ORVRTF_REPORTTEXTS_H

#include "Difference.h"

/*! The two files that are compared, by the names that reports have for them. */
struct ComparedFiles {
    QString before;
    QString after;
};

/*! Texts that reports have in common, whatever their format. */
namespace ReportTexts {

/*! \a text without characters that would control a terminal or are not allowed in HTML. */
QString visible(const QString& text);

/*! The same for a whole paragraph, which can be empty. */
QString visibleParagraph(const QString& text);

/*! The same with names for characters that cannot be seen, where nothing but them may be changed. */
QString visibleChange(const QString& text);

/*! \a text, equal in both documents, without the middle if it is long; no text stands in front of the first piece. */
QString context(const QString& text, bool isFirst, bool isLast);

/*! \a words in quotation marks, without the middle if they are long. */
QString quoted(const QString& words);

/*! Where \a difference is, and whether it is in one document only. */
QString heading(const Difference& difference);

/*! Where \a change is: how often, and examples. */
QString places(const FrequentChange& change);

/*! The heading of the changes that are in many places. */
QString frequentHeading();

/*! Counts of \a differences. */
QString summary(const Differences& differences);

} // namespace ReportTexts

#endif
