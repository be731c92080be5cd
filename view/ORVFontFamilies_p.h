#ifndef ORVFONTFAMILIES_P_H
#define ORVFONTFAMILIES_P_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*! What the names of fonts tell about them. */
namespace ORVFontFamilies {

/*! The generic family of what is a family of fixed pitch or a sans-serif one by its name; empty for others. */
QByteArray generic(const QString& family);

} // namespace ORVFontFamilies

#endif
