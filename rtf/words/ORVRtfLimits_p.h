#ifndef ORVRTFLIMITS_P_H
#define ORVRTFLIMITS_P_H

#include <QtCore/qglobal.h>

/*!
    Bounds on what a damaged or hostile file can make the library use. No real document meets them; beyond
    them it goes on within bounds. docs/rtf.md lists them for users.
*/
namespace ORVRtfLimits {

/*! Open groups; a group opened beyond them is skipped whole. */
const int openGroups = 1000000;
/*! Tables within tables: Qt's layout time doubles with each level. */
const int tableNesting = 12;
/*! Columns of one table. */
const int tableColumns = 256;
/*!
    Cells that the tables of one document may have beyond four for each cell in the file. Rows need not state
    all the cells that they have, so a short row below a wide one takes more memory than its text.
*/
const int spareTableCells = 100000;
const qint64 tableCellsForEachInFile = 4;
/*! Tab stops of one paragraph. */
const int tabStops = 256;
/*! Different lists of tab stops, or of column widths, whose formats have no serial number. */
const int formatsWithoutSerial = 256;
/*! Fonts of one font table. */
const int fonts = 10000;
/*! Font names that are looked for among the installed fonts, which takes half a millisecond each. */
const int matchedFonts = 1000;
/*! Levels of one list. */
const int listLevels = 9;
/*! Lists of a list table, overrides of them, and lists that paragraphs state themselves. */
const int lists = 10000;
/*! Items of one QTextList; a longer list goes on in another one. */
const int textListItems = 5000;
/*! Number of the first item of a list. */
const int listStart = 32767;
/*! Characters of a list level's text, with the length byte that RTF has in front of it. */
const int levelText = 256;
/*! Characters of a field's instruction, which is looked at whenever a group in it ends. */
const int fieldInstruction = 8192;
/*! Notes and text boxes within one another; the text of a deeper one is left out. */
const int noteNesting = 16;
/*! Characters of a mark that is made of several symbols. */
const int noteMark = 16;
/*! The greatest number that notes begin with. */
const int noteStart = 32767;
/*! Characters of a page header or footer. */
const int pageText = 65536;
/*! Bookmarks of one document, and characters of a bookmark's name. */
const int bookmarks = 100000;
const int bookmarkName = 255;
/*! Characters of each text that describes the document, and of the name of who wrote a comment. */
const int informationText = 65536;
/*! Bytes of a list item's label in which the end of a paragraph is looked for. */
const int listText = 65536;
/*! Pixels of one picture, by its header and before it is decoded. */
const qint64 picturePixels = 100000000;
/*! Pixels of a displayed picture's side. */
const int pictureSide = 32767;

} // namespace ORVRtfLimits

#endif
