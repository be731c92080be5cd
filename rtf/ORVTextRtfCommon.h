#ifndef ORVTEXTRTFCOMMON_H
#define ORVTEXTRTFCOMMON_H

#include "ORVRtfGlobal.h"
#include "ORVRtfKeywords.h"

#include <QtCore/QChar>
#include <QtCore/QHash>
#include <QtCore/QLatin1String>
#include <QtCore/QPair>

class QColor;
class QFont;

/*!
    Shared by reading and writing RTF: the control words and their lookup, code pages, page defaults,
    quotation marks and revision colours.

    Everything is static. Constructing an object makes sure that the lookup tables exist. They are built once
    per process, by the first thread that needs them, and are read-only afterwards.
*/
class ORV_RTF_EXPORT ORVTextRtfCommon {
public:
    /*!
        The control words, 0 for none or unknown. The numbers have no meaning outside the process. Any other
        number is a control word without a spelling.
    */
    enum KeyWord : int {
        NoKeyWord = 0,
#define ORV_KEYWORD_MEMBER(name, spelling) name,
        ORV_RTF_KEYWORDS(ORV_KEYWORD_MEMBER)
#undef ORV_KEYWORD_MEMBER
            KeyWordEnd
    };
    /*! Number of control words in the tables. */
    static const int KeyWordCount = KeyWordEnd - 1;

    /*! Builds both tables, unless they exist. */
    ORVTextRtfCommon();
    virtual ~ORVTextRtfCommon();

    /*! Builds the table from control word to spelling, unless it exists. */
    static void initMap();
    /*! Builds both tables, unless they exist. */
    static void initHash();
    /*! Hash of the \a len bytes at \a s: the length in the upper half, plus the sum of the signed bytes. */
    static unsigned int hash(const char* s, unsigned int len);
    /*!
        The control word whose spelling begins with the \a len bytes at \a s (backslash included, numeric
        parameter excluded; no terminating NUL needed), or NoKeyWord.
    */
    static KeyWord fromLatin1(const char* s, unsigned int len);
    /*! The spelling of \a keyWord, or a null string when it has none. */
    static QLatin1String toLatin1(KeyWord keyWord);

    /*! The Windows code page for the `\fcharset` value \a charset; 1252 for unknown values. */
    static int charSetToCodePage(int charset);
    /*! Bytes per character that can be converted in \a codePage: 1 for 1252, 0 for every other. */
    static int codePageLen(int codePage);
    /*! The replacement for characters that \a codePage does not have: always "?". */
    static QChar codePageDefaultChar(int codePage);
    /*! The `\fcharset` value to write for \a font: 1252 for every font, which selects that code page. */
    static int fontCharset(const QFont& font);
    /*! The UTF-16 unit of the first byte at \a byte in code page 1252; 0 where the code page has none. */
    static ushort unicodeFromAnsi1252(const char* byte);
    /*! The byte of the non-ASCII UTF-16 unit \a unit in code page 1252, or 63 ("?") when there is none. */
    static int unicodeToAnsi1252(ushort unit);
    /*!
        The character of the first byte at \a bytes if \a codePage is 1252; otherwise \a defaultChar, or "?"
        if that is null. \a length is ignored: one byte is one character.
    */
    static QChar unicodeFromAnsi(const char* bytes, unsigned int codePage, int length, QChar defaultChar);
    /*!
        The two bytes of \a c in \a codePage: \a defaultChar twice ("?" twice if it is null), since multi-byte
        code pages cannot be written. \a length is ignored.
    */
    static QPair<ushort, ushort> unicodeToMultiByte(const QChar& c, unsigned int codePage, int length,
                                                    QChar defaultChar);

    /*! The colour of revision \a level (1 to 5); black for any other level. */
    static QColor revisionColor(int level);

    /*! Width of the paper in twips, unless a document states it: US Letter. */
    static const int defaultPaperWidth = 12240;
    /*! Height of the paper in twips, unless a document states it: US Letter. */
    static const int defaultPaperHeight = 15840;
    /*! Left margin of a page in twips, unless a document states it. */
    static const int defaultLeftMargin = 1800;
    /*! Right margin of a page in twips, unless a document states it. */
    static const int defaultRightMargin = 1800;
    /*! Top margin of a page in twips, unless a document states it. */
    static const int defaultTopMargin = 1440;
    /*! Bottom margin of a page in twips, unless a document states it. */
    static const int defaultBottomMargin = 1440;

    /*! Opening and closing quotation mark. */
    typedef QPair<QChar, QChar> QuotePair;
    /*! U+2018 and U+2019. */
    static const QuotePair defaultSingleQuotes;
    /*! U+201C and U+201D. */
    static const QuotePair defaultDoubleQuotes;

    /*! Red, see revisionColor(). */
    static const QColor firstRevisionColor;
    /*! Blue, see revisionColor(). */
    static const QColor secondRevisionColor;
    /*! Green, see revisionColor(). */
    static const QColor thirdRevisionColor;
    /*! Orange, see revisionColor(). */
    static const QColor fourthRevisionColor;
    /*! Purple, see revisionColor(). */
    static const QColor fifthRevisionColor;

protected:
    /*! Control word to spelling; the strings are those of ORVRtfKeywords, not copies. */
    static QHash<KeyWord, QLatin1String> mMap;
    /*! Hash of a spelling to the control words with that hash. */
    static QMultiHash<unsigned int, KeyWord> mHash;
};

#endif
