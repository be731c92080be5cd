#ifndef HOSTILEINPUTS_H
#define HOSTILEINPUTS_H

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QtEndian>

/*! Files that are made to cost a reader more time or memory than they are worth. */
namespace hostile {

/*! \a piece again and again, \a bytes in all or a little less. */
inline QByteArray filledWith(const QByteArray& piece, int bytes)
{
    return piece.repeated(qMax(1, bytes / int(piece.size())));
}

/*! What \a piece gives for 1, 2, 3… until \a bytes are full, a number taking the place of each "#". */
inline QByteArray counted(const QByteArray& piece, int bytes)
{
    QByteArray result;
    result.reserve(bytes + 100);
    for (int i = 1; result.size() < bytes; ++i)
        result += QByteArray(piece).replace('#', QByteArray::number(i));
    return result;
}

inline QByteArray document(const QByteArray& content)
{
    return "{\\rtf1\\ansi " + content + "}";
}

/*! A chunk of a PNG file with a checksum that fits. */
inline QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
{
    quint32 checksum = 0xFFFFFFFFu;
    const QByteArray checked = type + data;
    for (char byte : checked) {
        checksum ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1) ^ (checksum & 1 ? 0xEDB88320u : 0u);
    }
    QByteArray numbers(8, '\0');
    qToBigEndian(quint32(data.size()), reinterpret_cast<uchar*>(numbers.data()));
    qToBigEndian(checksum ^ 0xFFFFFFFFu, reinterpret_cast<uchar*>(numbers.data()) + 4);
    return numbers.left(4) + checked + numbers.mid(4);
}

/*! A black and white PNG of \a width by \a height pixels; its data are \a compressed. */
inline QByteArray png(quint32 width, quint32 height, const QByteArray& compressed)
{
    QByteArray header(13, '\0');
    qToBigEndian(width, reinterpret_cast<uchar*>(header.data()));
    qToBigEndian(height, reinterpret_cast<uchar*>(header.data()) + 4);
    header[8] = 1; // bits of a pixel
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) + pngChunk("IDAT", compressed)
        + pngChunk("IEND", QByteArray());
}

/*! A picture of 60,000 x 60,000 pixels, as zeros that compress to about half a megabyte. */
inline QByteArray decompressionBomb()
{
    const int side = 60000;
    // qCompress() puts the size in front, which no PNG has.
    return png(side, side, qCompress(QByteArray(side * (side / 8 + 1), '\0'), 9).mid(4));
}

inline QByteArray bombDocument()
{
    return document("{\\pict\\pngblip " + decompressionBomb().toHex() + "}");
}

/*! \a rows rows, each of two columns that meet where none of the others' do. */
inline QByteArray disjointRows(int rows)
{
    QByteArray result;
    for (int i = 0; i < rows; ++i)
        result += "\\trowd\\cellx" + QByteArray::number(1000 + i * 7919 % 30011)
            + "\\cellx40000\\pard\\intbl a\\cell b\\cell\\row\n";
    return result;
}

inline QByteArray wideRowAboveShortOnes(int columns, int rows)
{
    QByteArray result = "\\trowd";
    for (int i = 1; i <= columns; ++i)
        result += "\\cellx" + QByteArray::number(i);
    return result + "\\pard\\intbl" + QByteArray("\\cell").repeated(columns) + "\\row\n"
        + QByteArray("\\trowd\\cellx100\\pard\\intbl a\\cell\\row\n").repeated(rows);
}

inline QByteArray listTable(const QByteArray& content)
{
    return document("{\\*\\listtable{\\list" + content
                    + "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 x\\par ");
}

struct Input {
    const char* name;
    /*! The input of about that many bytes. */
    QByteArray (*make)(int bytes);
};

/*! All of them; each is to be read in time and memory that grow no faster than its size. */
inline QList<Input> inputs()
{
    return QList<Input>{
        {"opening braces", [](int n) { return QByteArray(n, '{'); }},
        {"closing braces", [](int n) { return QByteArray(n, '}'); }},
        {"empty groups", [](int n) { return document(filledWith("{}", n)); }},
        {"groups of formats", [](int n) { return document(filledWith("{\\b\\fs30\\cf1 x", n)); }},
        {"backslashes", [](int n) { return QByteArray(n, '\\'); }},
        {"line feeds", [](int n) { return document(QByteArray(n, '\n')); }},
        {"escaped line feeds", [](int n) { return document(filledWith("\\\n", n)); }},
        {"byte 80", [](int n) { return document(QByteArray(n, '\x80')); }},
        {"NUL bytes", [](int n) { return document(QByteArray(n, '\0')); }},
        {"escaped bytes", [](int n) { return document(filledWith("\\'41", n)); }},
        {"unicode", [](int n) { return document(filledWith("\\u65 ", n)); }},
        {"unicode with much to skip",
         [](int n) { return document("\\uc2000000000" + filledWith("\\u65", n)); }},
        {"long control word", [](int n) { return "\\" + QByteArray(n, 'a'); }},
        {"long number", [](int n) { return "\\fs" + QByteArray(n, '9'); }},
        {"upr", [](int n) { return document(filledWith("{\\upr", n)); }},
        {"upr siblings", [](int n) { return document(filledWith("{\\upr{a}{\\*\\ud b}}", n)); }},
        {"binary data that is missing", [](int n) { return filledWith("\\bin2147483647", n); }},
        {"binary data in pictures",
         [](int n) { return document(filledWith("{\\pict\\bin9 123456789}", n)); }},
        {"skipped groups", [](int n) { return document(filledWith("{\\*\\zzz{", n)); }},
        {"footnotes", [](int n) { return document(filledWith("{\\footnote x", n)); }},
        {"paragraphs", [](int n) { return document(filledWith("\\par", n)); }},
        {"paragraphs with text", [](int n) { return document(filledWith("\\pard x\\par ", n)); }},
        {"pages", [](int n) { return document(filledWith("\\page ", n)); }},
        {"formats without text", [](int n) { return document(filledWith("\\b0\\i\\qc\\li720", n)); }},
        {"runs", [](int n) { return document(filledWith("\\b1 x\\b0 y", n)); }},
        {"runs all different", [](int n) { return document(counted("\\fs# x", n)); }},
        {"tabs", [](int n) { return document(counted("\\tx#", n) + " x\\par"); }},
        {"tabs and paragraphs", [](int n) { return document(counted("\\tx#\\par", n)); }},
        {"fonts", [](int n) { return document("{\\fonttbl" + counted("{\\f# Aa#;}", n) + "}x"); }},
        {"fonts without groups",
         [](int n) { return document("{\\fonttbl" + counted("\\f# Aa#;", n) + "}x"); }},
        {"many fonts of one number",
         [](int n) { return document("{\\fonttbl" + counted("{\\f1 Aa#;}", n) + "}x"); }},
        {"one font again and again",
         [](int n) { return document("{\\fonttbl" + filledWith("{\\f1 Aa;}", n) + "}x"); }},
        {"font tables between paragraphs",
         [](int n) { return document(filledWith("x\\par{\\fonttbl\\f0 A;}", n)); }},
        {"font of every size",
         [](int n) { return document("{\\fonttbl" + counted("{\\f#\\fs# A;}", n) + "}"); }},
        {"long font name", [](int n) { return document("{\\fonttbl\\f0 " + filledWith("ab{}", n) + ";}x"); }},
        {"colours", [](int n) { return document("{\\colortbl" + QByteArray(n, ';') + "}x"); }},
        {"colours in pieces",
         [](int n) { return document("{\\colortbl" + filledWith(";\\red9", n) + "}x"); }},
        {"groups in the colour table",
         [](int n) { return document("{\\colortbl" + filledWith(";{}", n) + "}x"); }},
        {"colour tables between paragraphs",
         [](int n) { return document(filledWith("x\\par{\\colortbl;}", n)); }},
        {"list levels",
         [](int n) { return listTable(filledWith("{\\listlevel{\\leveltext\\'02\\'00.;}}", n)); }},
        {"lists", [](int n) { return listTable(counted("\\listid#}{\\list\\listlevel\\leveltext x", n)); }},
        {"level text closed again and again",
         [](int n) {
             return listTable("{\\listlevel{\\leveltext" + filledWith("\\u65535?", n / 2)
                              + filledWith("{}", n / 2) + "}}");
         }},
        {"level text of many pieces",
         [](int n) {
             return listTable("{\\listlevel{\\leveltext\\u65535?" + filledWith("a\\b ", n) + "}}");
         }},
        {"level text of placeholders",
         [](int n) {
             return listTable("{\\listlevel{\\leveltext\\u65535?" + filledWith("\\'00", n) + "}}");
         }},
        {"different lists",
         [](int n) {
             return document("{\\*\\listtable"
                             + counted("{\\list{\\listlevel}{\\listlevel\\li#}\\listid#}", n / 2)
                             + "}{\\*\\listoverridetable" + counted("{\\listoverride\\listid#\\ls#}", n / 4)
                             + "}" + counted("\\pard\\ls# x\\par ", n / 4));
         }},
        {"list overrides",
         [](int n) {
             return document("{\\*\\listoverridetable" + counted("{\\listoverride\\listid#\\ls#}", n)
                             + "}\\ls1 x");
         }},
        {"list numbers", [](int n) { return document(counted("\\pard\\ls# x\\par ", n)); }},
        {"field instructions",
         [](int n) {
             return document("{\\field{\\*\\fldinst HYPERLINK \"" + QByteArray(n / 2, 'a') + "\""
                             + filledWith("{}", n / 2) + "}}");
         }},
        {"fields in fields",
         [](int n) { return document(filledWith("{\\field{\\*\\fldinst x}{\\fldrslt ", n)); }},
        {"links",
         [](int n) {
             return document(counted("{\\field{\\*\\fldinst HYPERLINK \"http://e.org/#\"}{\\fldrslt x}}", n));
         }},
        {"bookmarks", [](int n) { return document(counted("{\\*\\bkmkstart a#}x{\\*\\bkmkend a#}", n)); }},
        {"picture names in pieces",
         [](int n) { return document("{\\pict{\\*\\nisusfilename " + filledWith("ab\\b ", n) + "}}"); }},
        {"hexadecimal digits",
         [](int n) { return document("{\\pict\\pngblip " + QByteArray(n, '0') + "}"); }},
        {"digits one by one",
         [](int n) { return document("{\\pict\\pngblip " + filledWith("0 ", n) + "}"); }},
        {"empty pictures", [](int n) { return document(filledWith("{\\pict\\pngblip 00}", n)); }},
        {"tables of different widths",
         [](int n) { return document(counted("\\trowd\\cellx#\\lastrow\\intbl x\\cell\\row", n)); }},
        {"paragraphs of different tabs", [](int n) { return document(counted("\\pard\\tx#\\par", n)); }},
        {"table levels", [](int n) { return document(filledWith("\\itap9999", n)); }},
        {"table levels with text", [](int n) { return document(filledWith("\\itap9999 x", n)); }},
        {"table levels opened and closed",
         [](int n) { return document(filledWith("\\pard\\itap12 x\\pard\\itap1 y", n)); }},
        {"one boundary", [](int n) { return document(filledWith("\\cellx1", n)); }},
        {"boundaries", [](int n) { return document(counted("\\cellx#", n) + "\\cell\\row"); }},
        {"rows without definitions", [](int n) { return document(filledWith("\\trowd\\cell\\row", n)); }},
        {"cells", [](int n) { return document(filledWith("\\intbl x\\cell ", n)); }},
        {"rows", [](int n) { return document(filledWith("\\trowd\\cellx9\\intbl x\\cell\\row", n)); }},
        {"tables",
         [](int n) { return document(filledWith("\\trowd\\cellx9\\lastrow\\intbl x\\cell\\row", n)); }},
        {"alternating splits",
         [](int n) {
             return document(filledWith("\\trowd\\cellx500\\cellx900\\intbl a\\cell b\\cell\\row"
                                        "\\trowd\\cellx700\\cellx900\\intbl a\\cell b\\cell\\row",
                                        n));
         }},
        {"cells merged downwards",
         [](int n) {
             return document(filledWith("\\trowd\\clvmrg\\cellx5\\cellx9\\intbl a\\cell b\\cell\\row", n));
         }},
        {"cells merged to the left",
         [](int n) {
             return document(filledWith("\\trowd\\cellx5\\clmrg\\cellx9\\intbl a\\cell b\\cell\\row", n));
         }},
        {"rows with boundaries of their own", [](int n) { return document(disjointRows(n / 62)); }},
        {"a wide row above short ones", [](int n) { return document(wideRowAboveShortOnes(10000, n / 50)); }},
        {"nested rows",
         [](int n) {
             return document(filledWith("\\intbl\\itap2 a\\nestcell{\\*\\nesttableprops\\cellx9\\nestrow}", n)
                             + "\\intbl\\cell\\row");
         }},
    };
}

} // namespace hostile

#endif
