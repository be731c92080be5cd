#ifndef ORVFRAGMENTS_H
#define ORVFRAGMENTS_H

#include "ORVRtfGlobal.h"

#include <QtCore/QStringList>

#include <functional>

class QTextCharFormat;
class QTextDocument;

/*! The runs of text of equal format that a document consists of. */
namespace ORVFragments {

/*!
    Calls \a change for the format of each run of text in \a document from the position \a from up to, but not
    with, \a to. It can do what QTextCursor::mergeCharFormat() cannot, such as clear a property. One step for
    undo. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void changeFormats(QTextDocument* document, int from, int to,
                                  const std::function<void(QTextCharFormat*)>& change);

/*! The names of the pictures that \a document shows, each once; none when it is null. */
ORV_RTF_EXPORT QStringList pictureNames(const QTextDocument* document);

/*!
    Gives the document \a to those of the pictures \a names that \a from holds. A part of a document does not
    bring its pictures along when it is inserted into another one. Does nothing when a document is null.
*/
ORV_RTF_EXPORT void copyPictures(const QStringList& names, const QTextDocument* from, QTextDocument* to);

} // namespace ORVFragments

#endif
