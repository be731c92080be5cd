#ifndef LINKS_H
#define LINKS_H

#include <QString>

class QTextCharFormat;
class QTextCursor;
class QTextDocument;
class QUrl;

/*! Text of a document that is a link. */
struct Link {
    /*! 0 characters long when there is no link. */
    int position = 0;
    int length = 0;
    QString target;
};

namespace Links {

/*! The link of the character at \a position of \a document. */
Link at(const QTextDocument& document, int position);
/*! The link that \a cursor is in or beside. */
Link at(const QTextCursor& cursor);

/*! Makes what \a place selects, or \a text in place of it when that is another, a link to \a target. */
void set(QTextCursor place, const QString& text, const QString& target);
/*! Makes \a link of \a document ordinary text. */
void remove(QTextDocument* document, const Link& link);
/*! Makes \a format that of text without a link. */
void clear(QTextCharFormat* format);

/*!
    The address that a click on \a link may open; empty for all but web and mail addresses. A document may
    come from a stranger, and other addresses could start programs.
*/
QUrl addressToOpen(const Link& link);

/*! The target of \a link for display: addresses in plain ASCII, where no character looks like another. */
QString shownTarget(const Link& link);

} // namespace Links

#endif
