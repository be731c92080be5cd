#ifndef HOSTILEINPUTS_H
#define HOSTILEINPUTS_H

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QtEndian>

#include <functional>

/*! Files that are made to cost a reader more time or memory than they are worth. */
namespace hostile {

/*!
    \a piece again and again, \a bytes in all or a little less. A "#" in it is 1, then 2, and so on, until the
    bytes are full.
*/
inline QByteArray filled(const QByteArray& piece, int bytes)
{
    if (!piece.contains('#'))
        return piece.repeated(qMax(1, bytes / int(piece.size())));
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

inline QByteArray wideRowAboveShortOnes(int bytes)
{
    return "\\trowd" + filled("\\cellx#", 100000) + "\\pard\\intbl" + QByteArray("\\cell").repeated(10000)
        + "\\row\n" + filled("\\trowd\\cellx100\\pard\\intbl a\\cell\\row\n", bytes);
}

inline QByteArray listTable(const QByteArray& content)
{
    return document("{\\*\\listtable{\\list" + content
                    + "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 x\\par ");
}

struct Input {
    const char* name;
    /*! The input of about that many bytes. */
    std::function<QByteArray(int bytes)> make;
};

/*! A document of \a piece, as by filled(), between \a before and \a after. */
inline Input repeated(const char* name, const QByteArray& piece, const QByteArray& before = QByteArray(),
                      const QByteArray& after = QByteArray())
{
    return {name, [=](int n) { return document(before + filled(piece, n) + after); }};
}

/*! As repeated(), but in the definition of a list. */
inline Input inListTable(const char* name, const QByteArray& piece, const QByteArray& before = QByteArray(),
                         const QByteArray& after = QByteArray())
{
    return {name, [=](int n) { return listTable(before + filled(piece, n) + after); }};
}

/*! Text in 3,000 fonts, whose code pages take turns. */
inline QByteArray textInManyFonts(int bytes)
{
    const char* const pages[] = {"437",  "866",  "874",  "932",  "936",  "949",   "950",   "1250",
                                 "1251", "1253", "1255", "1256", "1258", "10000", "10006", "65001"};
    const int fonts = 3000;
    QByteArray result = "{\\fonttbl";
    for (int i = 0; i < fonts; ++i)
        result += "{\\f" + QByteArray::number(i) + "\\cpg" + pages[i % 16] + " A;}";
    result += '}';
    for (int i = 0; result.size() < bytes; ++i)
        result += "\\f" + QByteArray::number(i % fonts) + "\\'e4\\'b8\\'ad ";
    return document(result);
}

/*! All of them; each is to be read in time and memory that grow no faster than its size. */
inline QList<Input> inputs()
{
    return QList<Input>{
        {"opening braces", [](int n) { return QByteArray(n, '{'); }},
        {"closing braces", [](int n) { return QByteArray(n, '}'); }},
        repeated("empty groups", "{}"),
        repeated("groups of formats", "{\\b\\fs30\\cf1 x"),
        {"backslashes", [](int n) { return QByteArray(n, '\\'); }},
        repeated("line feeds", "\n"),
        repeated("escaped line feeds", "\\\n"),
        repeated("byte 80", "\x80"),
        {"NUL bytes", [](int n) { return document(QByteArray(n, '\0')); }},
        repeated("escaped bytes", "\\'41"),
        repeated("unicode", "\\u65 "),
        repeated("unicode with much to skip", "\\u65", "\\uc2000000000"),
        {"long control word", [](int n) { return "\\" + QByteArray(n, 'a'); }},
        {"long number", [](int n) { return "\\fs" + QByteArray(n, '9'); }},
        repeated("upr", "{\\upr"),
        repeated("upr siblings", "{\\upr{a}{\\*\\ud b}}"),
        {"binary data that is missing", [](int n) { return filled("\\bin2147483647", n); }},
        repeated("binary data in pictures", "{\\pict\\bin9 123456789}"),
        repeated("skipped groups", "{\\*\\zzz{"),
        repeated("footnotes", "{\\footnote x"),
        repeated("paragraphs", "\\par"),
        repeated("paragraphs with text", "\\pard x\\par "),
        repeated("pages", "\\page "),
        repeated("formats without text", "\\b0\\i\\qc\\li720"),
        repeated("runs", "\\b1 x\\b0 y"),
        repeated("runs all different", "\\fs# x"),
        repeated("tabs", "\\tx#", "", " x\\par"),
        repeated("tabs and paragraphs", "\\tx#\\par"),
        repeated("fonts", "{\\f# Aa#;}", "{\\fonttbl", "}x"),
        repeated("fonts without groups", "\\f# Aa#;", "{\\fonttbl", "}x"),
        repeated("many fonts of one number", "{\\f1 Aa#;}", "{\\fonttbl", "}x"),
        repeated("one font again and again", "{\\f1 Aa;}", "{\\fonttbl", "}x"),
        repeated("font tables between paragraphs", "x\\par{\\fonttbl\\f0 A;}"),
        repeated("font of every size", "{\\f#\\fs# A;}", "{\\fonttbl", "}"),
        repeated("long font name", "ab{}", "{\\fonttbl\\f0 ", ";}x"),
        repeated("colours", ";", "{\\colortbl", "}x"),
        repeated("colours in pieces", ";\\red9", "{\\colortbl", "}x"),
        repeated("groups in the colour table", ";{}", "{\\colortbl", "}x"),
        repeated("colour tables between paragraphs", "x\\par{\\colortbl;}"),
        inListTable("list levels", "{\\listlevel{\\leveltext\\'02\\'00.;}}"),
        inListTable("lists", "\\listid#}{\\list\\listlevel\\leveltext x"),
        {"level text closed again and again",
         [](int n) {
             return listTable("{\\listlevel{\\leveltext" + filled("\\u65535?", n / 2) + filled("{}", n / 2)
                              + "}}");
         }},
        inListTable("level text of many pieces", "a\\b ", "{\\listlevel{\\leveltext\\u65535?", "}}"),
        inListTable("level text of placeholders", "\\'00", "{\\listlevel{\\leveltext\\u65535?", "}}"),
        {"different lists",
         [](int n) {
             return document("{\\*\\listtable"
                             + filled("{\\list{\\listlevel}{\\listlevel\\li#}\\listid#}", n / 2)
                             + "}{\\*\\listoverridetable" + filled("{\\listoverride\\listid#\\ls#}", n / 4)
                             + "}" + filled("\\pard\\ls# x\\par ", n / 4));
         }},
        repeated("list overrides", "{\\listoverride\\listid#\\ls#}", "{\\*\\listoverridetable", "}\\ls1 x"),
        repeated("list numbers", "\\pard\\ls# x\\par "),
        {"field instructions",
         [](int n) {
             return document("{\\field{\\*\\fldinst HYPERLINK \"" + QByteArray(n / 2, 'a') + "\""
                             + filled("{}", n / 2) + "}}");
         }},
        repeated("fields in fields", "{\\field{\\*\\fldinst x}{\\fldrslt "),
        repeated("links", "{\\field{\\*\\fldinst HYPERLINK \"http://e.org/#\"}{\\fldrslt x}}"),
        repeated("bookmarks", "{\\*\\bkmkstart a#}x{\\*\\bkmkend a#}"),
        repeated("picture names in pieces", "ab\\b ", "{\\pict{\\*\\nisusfilename ", "}}"),
        repeated("hexadecimal digits", "0", "{\\pict\\pngblip ", "}"),
        repeated("digits one by one", "0 ", "{\\pict\\pngblip ", "}"),
        repeated("empty pictures", "{\\pict\\pngblip 00}"),
        repeated("tables of different widths", "\\trowd\\cellx#\\lastrow\\intbl x\\cell\\row"),
        repeated("paragraphs of different tabs", "\\pard\\tx#\\par"),
        repeated("table levels", "\\itap9999"),
        repeated("table levels with text", "\\itap9999 x"),
        repeated("table levels opened and closed", "\\pard\\itap12 x\\pard\\itap1 y"),
        repeated("one boundary", "\\cellx1"),
        repeated("boundaries", "\\cellx#", "", "\\cell\\row"),
        repeated("rows without definitions", "\\trowd\\cell\\row"),
        repeated("cells", "\\intbl x\\cell "),
        repeated("rows", "\\trowd\\cellx9\\intbl x\\cell\\row"),
        repeated("tables", "\\trowd\\cellx9\\lastrow\\intbl x\\cell\\row"),
        repeated("alternating splits",
                 "\\trowd\\cellx500\\cellx900\\intbl a\\cell b\\cell\\row"
                 "\\trowd\\cellx700\\cellx900\\intbl a\\cell b\\cell\\row"),
        repeated("cells merged downwards", "\\trowd\\clvmrg\\cellx5\\cellx9\\intbl a\\cell b\\cell\\row"),
        repeated("cells merged to the left", "\\trowd\\cellx5\\clmrg\\cellx9\\intbl a\\cell b\\cell\\row"),
        {"rows with boundaries of their own", [](int n) { return document(disjointRows(n / 62)); }},
        {"a wide row above short ones", [](int n) { return document(wideRowAboveShortOnes(n)); }},
        repeated("lead bytes", "\\'93", "\\ansicpg932 "),
        repeated("lead bytes and braces", "\\'93{}", "\\ansicpg932 "),
        repeated("lead byte in front of braces", "{}", "\\ansicpg932\\'93", "\\'fa"),
        repeated("characters of two bytes", "\\'93\\'fa", "\\ansicpg932 "),
        repeated("fonts of different code pages", "{\\f#\\cpg#\\fcharset# A;}", "{\\fonttbl", "}x"),
        {"text in fonts of all code pages", textInManyFonts},
        repeated("code pages in turn", "\\f1\\'e4\\f2\\'e4",
                 "{\\fonttbl{\\f1\\fcharset128 A;}{\\f2\\fcharset204 B;}}"),
        repeated("symbols and others", "a\\'ff", "{\\fonttbl{\\f1\\fcharset2 Symbol;}}\\f1 "),
        repeated("hidden paragraphs", "{\\v x\\par}"),
        repeated("second forms of pictures", "{\\nonshppict{\\pict 0}}"),
        repeated("rows without an end", "\\trowd\\cellx9 x\\cell "),
        repeated("cells without a row", "a\\cell b\\row "),
        repeated("paragraphs that are in a table and others", "\\intbl a\\par\\pard b\\par "),
        repeated("nested cells", "a\\nestcell "),
        repeated("nested rows without a level", "a\\nestcell\\nestrow b\\cell "),
        repeated("rows of other edges", "\\trowd\\cellx#0\\cellx99999999 a\\cell b\\cell\\row "),
        repeated("definitions of rows", "\\trowd"),
        repeated("rows of many other edges",
                 "\\trowd\\cellx#1\\cellx#2\\cellx#3\\cellx#4\\cellx#5 a\\cell b\\cell c\\cell d\\cell "
                 "e\\cell\\row "),
        repeated("cells without a width", "\\cellx1 x\\cell "),
        repeated("table levels one by one", "\\itap# x\\nestcell "),
        repeated("rows on the deepest level", "\\itap12 x\\nestcell\\trowd\\cellx9\\nestrow "),
        repeated("row ends without a row", "x\\row y\\nestrow "),
        repeated("lines of paragraphs", "\\pard\\box\\brdrs\\brdrw#\\brsp#\\brdrcf#\\brdrb\\brdrdb x\\par "),
        repeated("words for lines", "\\brdrt\\brdrs\\brdrw#"),
        repeated("rulers", "\\pard\\brdrb\\brdrs\\brdrw#\\par "),
        repeated("lines and padding of cells",
                 "\\trowd\\clbrdrt\\brdrs\\brdrw#\\clbrdrl\\brdrdb\\clpadl#\\clpadt#\\clshdng#\\cellx9 "
                 "x\\cell\\row "),
        repeated("lines of many cells", "\\clbrdrt\\brdrs\\brdrw#\\clpadt#\\cellx#", "\\trowd",
                 " x\\cell\\row"),
        repeated("looks of rows",
                 "\\trowd\\trhdr\\trqc\\trgaph#\\trbrdrh\\brdrs\\brdrw#\\trwWidth#\\trleft-#\\cellx9 "
                 "x\\cell\\row "),
        repeated("words for the look of a row", "\\trpaddl#\\trcbpat#\\tblind#\\trbrdrv\\brdrs"),
        repeated("rows that end nearly together",
                 "\\trowd\\cellx100000\\cellx10#\\intbl a\\cell b\\cell\\row "),
        repeated("tables in notes", "x{\\footnote\\trowd\\cellx9 y\\cell\\row}"),
        repeated("notes of different texts", "x{\\footnote y#\\par}"),
        repeated("endnotes in a paragraph", "{\\super\\chftn{\\footnote\\ftnalt\\chftn x}}"),
        repeated("marks of the author's own", "{\\super *{\\footnote *x}}"),
        repeated("raised text", "{\\super x}"),
        repeated("comments", "{\\*\\atnid a#}{\\*\\atnauthor b#}{\\*\\annotation{\\*\\atndate #}x}"),
        repeated("authors without a comment", "{\\*\\atnauthor a}"),
        repeated("author in pieces", "a\\b ", "{\\*\\atnauthor ", "}"),
        repeated("headers", "{\\header x#}"),
        repeated("empty headers", "{\\header\\par}"),
        repeated("long header", "x\\par ", "{\\header ", "}"),
        repeated("page numbers in a header", "\\chpgn{\\field{\\*\\fldinst PAGE}}", "{\\footer ", "}"),
        repeated("table in a header", "\\trowd\\cellx9\\intbl x\\cell\\row ", "{\\header ", "}"),
        repeated("text boxes in a paragraph", "{\\shp{\\*\\shpinst{\\shptxt x#}}}"),
        repeated("text boxes", "{\\shp{\\*\\shpinst{\\shptxt x\\par}}}\\par "),
        repeated("text boxes with tables", "{\\*\\do{\\dptxbxtext\\trowd\\cellx9 x\\cell\\row}}\\par "),
        repeated("text boxes in text boxes", "{\\shp{\\*\\shpinst{\\shptxt x"),
        repeated("text boxes in cells", "\\trowd\\cellx9 x{\\*\\do{\\dptxbxtext y}}\\cell\\row "),
        repeated("information", "{\\title a#}{\\creatim\\yr#}", "{\\info", "}"),
        repeated("title in pieces", "a\\b ", "{\\info{\\title ", "}}"),
        repeated("bookmarks in one place", "{\\*\\bkmkstart a#}"),
        repeated("bookmark in pieces", "a\\b ", "{\\*\\bkmkstart ", "}x"),
        repeated("instructions of many words", "\\\\l x \"y\" ", "{\\field{\\*\\fldinst HYPERLINK ", "}}"),
        repeated("links in links", "{\\field{\\*\\fldinst HYPERLINK \"a#\"}{\\fldrslt x"),
        repeated("links over plain text", "\\plain x", "{\\field{\\*\\fldinst HYPERLINK a}{\\fldrslt ", "}}"),
        repeated("labels", "{\\listtext x}y\\par "),
        repeated("labels that are text", "{\\listtext x\\par}"),
        repeated("labels in labels", "{\\listtext x", "", "\\par"),
        repeated("words for labels", "\\listtext x", "", "\\par"),
        repeated("sections", "\\sect\\sectd\\pgwsxn#\\titlepg\\pgnstarts# x"),
        repeated("sections with tables", "\\sect\\sectd\\trowd\\cellx9\\intbl x\\cell\\row\\pard "),
        repeated("text of two scripts", "a\\u23383?", "\\dbch\\af0\\afs40\\loch "),
        repeated("formats of scripts", "\\rtlch\\afs#\\ab\\ltrch\\dbch\\ai\\loch\\fs# \\u1488?x"),
        repeated("text from right to left", "\\u1488?\\par "),
        repeated("alternative fonts", "{\\f#{\\*\\falt a#}b#;}", "{\\fonttbl", "}x"),
        repeated("alternative font in pieces", "a\\b ", "{\\fonttbl{\\f0{\\*\\falt ", "}x;}}x"),
        repeated("alternatives of one font", "a{\\*\\falt b}", "{\\fonttbl{\\f0 ", ";}}x"),
        repeated("languages and spacing", "\\lang#\\expndtw#\\charscalex#\\kerning0 x"),
        repeated("shading", "\\chshdng#\\chcbpat1\\shading#\\outlinelevel1\\sl# x\\par "),
        repeated("tab leaders", "\\tldot\\tx#"),
        repeated("tab leaders of paragraphs", "\\pard\\tldot\\tx#\\tab x\\par "),
        repeated("numbers of the oldest kind",
                 "\\pard{\\pntext #.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart#}x\\par "),
        repeated("bullets of the oldest kind", "\\pard{\\pntext -#\\tab}x\\par "),
        repeated("levels of an override", "{\\lfolevel\\listoverridestartat\\levelstartat#}",
                 "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1", "}}"),
        repeated("raw data of pictures that are missing", "{\\pict\\bin2147483647 "),
        repeated("pictures without groups", "\\pict\\pngblip 00"),
        repeated("nested rows", "\\intbl\\itap2 a\\nestcell{\\*\\nesttableprops\\cellx9\\nestrow}", "",
                 "\\intbl\\cell\\row"),
    };
}

} // namespace hostile

#endif
