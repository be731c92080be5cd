#ifndef ORVRTFLANGUAGES_P_H
#define ORVRTFLANGUAGES_P_H

#include <QtCore/QString>

/*! The languages that RTF has numbers for, and their tags of BCP 47. */
namespace ORVRtfLanguages {

/*! Text that is not to be checked has the number of no language. */
const int none = 1024;

/*! The tag of the language with \a number; empty for none and for numbers that are not known. */
QString tag(int number);

/*! The number of the language with \a tag; none where RTF has no number for it. */
int number(const QString& tag);

} // namespace ORVRtfLanguages

#endif
