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
    scripts.
*/
QByteArray attribute(const QTextCharFormat& format);

/*! The address that a link of \a format leads to; empty as that of attribute() is. */
QString target(const QTextCharFormat& format);

/*! The name of the anchor \a name as an id, which has no blanks and is none of a note. */
QString id(const QString& name);

} // namespace ORVHtmlLinks

#endif
