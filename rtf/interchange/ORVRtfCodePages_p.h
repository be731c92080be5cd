#ifndef ORVRTFCODEPAGES_P_H
#define ORVRTFCODEPAGES_P_H

class QString;

/*!
    The code pages of Windows, DOS and the Macintosh by their numbers, and the words and names that stand for
    them in RTF.
*/
namespace ORVRtfCodePages {

/*! No page is stated. */
const int unknown = -1;
/*! The bytes are those of a symbol font. */
const int symbols = 42;
const int japanese = 932;
const int latin1Windows = 1252;
const int utf8 = 65001;

/*! The page of a font of the character set \a charset; unknown when the set says nothing about it. */
int ofCharset(int charset);
/*! The page that the end of a font's name stands for ("Arial CE"); unknown when it stands for none. */
int ofFontName(const QString& name);
/*! \a codePage, or the page that has the same characters if only that can be decoded; unknown for others. */
int supported(int codePage);
/*! What Qt and ICU call the page; null for those that supported() does not return. */
const char* codecName(int codePage);

} // namespace ORVRtfCodePages

#endif
