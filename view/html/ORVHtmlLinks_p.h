#ifndef ORVHTMLLINKS_P_H
#define ORVHTMLLINKS_P_H

#include <QtCore/QByteArray>
#include <QtCore/QSet>
#include <QtCore/QStringList>

class QTextCharFormat;

/*! Targets and anchors as HTML has them. */
namespace ORVHtmlLinks {

/*!
    The target of a link of \a format as an attribute with a blank in front. Empty for text that is no link, and for
    targets that a browser would run as a program.
*/
QByteArray attribute(const QTextCharFormat& format);

/*! \a target as an address, with the characters escaped that addresses do not have; folders end with "/". */
QString address(const QString& target);

/*! The name of the anchor \a name as an id, which has no blanks and is none of a note. */
QString id(const QString& name);

} // namespace ORVHtmlLinks

#endif
