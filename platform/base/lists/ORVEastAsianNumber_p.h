#ifndef ORVEASTASIANNUMBER_P_H
#define ORVEASTASIANNUMBER_P_H

#include <QtCore/QString>

/*! The numbers of lists in East Asian scripts. */
namespace ORVEastAsianNumber {

/*!
    \a number in the format \a kind, a value of ORVTextListLevel::Kind; empty for kinds of other scripts and
    for numbers that it cannot express. Letters and signs of the calendar begin again behind the last.
*/
QString text(unsigned kind, int number);

} // namespace ORVEastAsianNumber

#endif
