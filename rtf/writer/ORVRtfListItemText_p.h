#ifndef ORVRTFLISTITEMTEXT_P_H
#define ORVRTFLISTITEMTEXT_P_H

#include <QtCore/QString>

class QTextListFormat;

namespace ORVRtfListItemText {

/*!
    The text before item \a number (counted from 1) of a list of \a format, as QTextList::itemText() gives it.
    Qt looks the item up to know its number, which makes a long list cost the square of its length.
*/
QString itemText(const QTextListFormat& format, int number, bool isRightToLeft);

} // namespace ORVRtfListItemText

#endif
