#ifndef ORVRTF_TEXTREPORT_H
#define ORVRTF_TEXTREPORT_H

#include <QByteArray>

struct ComparedFiles;
struct Differences;

/*! \a differences of \a files as text for people, in UTF-8; empty when there are none. */
QByteArray textReport(const Differences& differences, const ComparedFiles& files);

#endif
