#ifndef ORVRTFLISTITEMTEXT_P_H
#define ORVRTFLISTITEMTEXT_P_H

#include <QtCore/QString>

class QTextListFormat;

namespace ORVRtfListItemText {

/*!
    The text before item \a number (counted from 1) of a list of \a format, as QTextList::itemText() returns
    it. That function searches the list for the item, which makes writing a long list quadratic.
*/
QString itemText(const QTextListFormat& format, int number, bool isRightToLeft);

} // namespace ORVRtfListItemText

#endif
