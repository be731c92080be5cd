#ifndef ORVRTFSYMBOLFIELD_P_H
#define ORVRTFSYMBOLFIELD_P_H

#include <QtCore/QString>

class ORVRtfTextDecoder;

/*! Fields that stand for one character: SYMBOL 183 \f "Symbol". */
namespace ORVRtfSymbolField {

/*!
    The character that \a instruction stands for; empty when it is no such field. Without a symbol font its
    number is a byte in \a codePage, or with a switch a Unicode character (\u) or one of Shift-JIS (\j). \a decoder decodes
    such bytes; it is left in their page.
*/
QString text(const QString& instruction, int codePage, ORVRtfTextDecoder& decoder);

} // namespace ORVRtfSymbolField

#endif
