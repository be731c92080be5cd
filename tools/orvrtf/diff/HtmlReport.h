#ifndef ORVRTF_HTMLREPORT_H
#define ORVRTF_HTMLREPORT_H

#include <QByteArray>

struct ComparedFiles;
struct Differences;

/*! \a differences of \a files as a page of HTML5, in UTF-8; also when there are none. */
QByteArray htmlReport(const Differences& differences, const ComparedFiles& files);

#endif
