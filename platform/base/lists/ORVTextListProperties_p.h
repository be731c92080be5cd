#ifndef ORVTEXTLISTPROPERTIES_P_H
#define ORVTEXTLISTPROPERTIES_P_H

#include <QtGui/QTextFormat>

/*!
    The properties by which list formats store levels. QString is the only type of variable length that Qt hashes
    by value in formats. With any other, many lists would take quadratic time.
*/
namespace ORVTextListProperty {

enum Id {
    /*! QString: templates, kinds and indents of the levels, encoded. */
    Levels = QTextFormat::UserProperty + 300,
    /*! QString: start, what follows, and justification of the levels' markers, where any is not the default. */
    Markers = QTextFormat::UserProperty + 301,
    /*! int: the level that all items of the list have. */
    ShownLevel = QTextFormat::UserProperty + 302
};

} // namespace ORVTextListProperty

#endif
